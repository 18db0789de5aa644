#include "DocUnits.h"
#include "EDocumentError.h"
#include "TDocument.h"
#include "TParagraphSpacing.h"
#include "TTabStops.h"
#include "TestDocx.h"

#include <QAbstractTextDocumentLayout>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <gtest/gtest.h>

using engine::TDocSection;
using engine::TDocument;
using engine::TParagraphSpacing;
using engine::TSubDocument;
using engine::TTabStops;

namespace {

using docx::load;
using docx::paragraph;
using docx::run;
using docx::textParagraph;

// the character format of the first character of the given text
QTextCharFormat formatOf(const TSubDocument& document, const QString& text) {
    const QTextCursor found = document.findFirst(text);
    QTextCursor probe(found.document());
    probe.setPosition(found.selectionStart() + 1);
    return probe.charFormat();
}

QTextBlockFormat blockFormatOf(const TSubDocument& document, const QString& text) {
    return document.findFirst(text).blockFormat();
}

const QString kStyles = QStringLiteral(
    "<w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:ascii=\"Carlito\" w:hAnsi=\"Carlito\"/><w:sz "
    "w:val=\"22\"/>"
    "</w:rPr></w:rPrDefault><w:pPrDefault><w:pPr><w:spacing w:after=\"160\" w:line=\"259\" "
    "w:lineRule=\"auto\"/>"
    "</w:pPr></w:pPrDefault></w:docDefaults>"
    "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Standard\"><w:name "
    "w:val=\"Normal\"/></w:style>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Gross\"><w:basedOn w:val=\"Standard\"/><w:rPr><w:b/><w:sz "
    "w:val=\"28\"/>"
    "</w:rPr></w:style>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Groesser\"><w:basedOn w:val=\"Gross\"/><w:rPr><w:sz "
    "w:val=\"36\"/></w:rPr>"
    "</w:style>"
    "<w:style w:type=\"character\" w:styleId=\"Klein\"><w:rPr><w:sz w:val=\"18\"/><w:i/></w:rPr></w:style>"
    "<w:style w:type=\"table\" w:styleId=\"Tabellenraster\"><w:tblPr><w:tblBorders><w:top w:val=\"single\" "
    "w:sz=\"4\"/>"
    "</w:tblBorders></w:tblPr></w:style>");

} // namespace

TEST(DocxImport, ReadsParagraphsInOrder) {
    auto document = load(
        TestDocx().body(textParagraph(QStringLiteral("Erster")) + textParagraph(QStringLiteral("Zweiter"))));
    EXPECT_EQ(document->body().plainText(), QStringLiteral("Erster\nZweiter"));
}

TEST(DocxImport, RejectsWhatIsNoDocxWithAClearError) {
    const QByteArray real = TestDocx().body(textParagraph(QStringLiteral("Text"))).bytes();
    const QList<std::pair<const char*, QByteArray>> cases = {
        {"zero bytes", QByteArray()},
        {"plain text", QByteArray("Sehr geehrte Frau Doktor")},
        {"half a package", real.left(real.size() / 2)},
        {"package without text", TestDocx().bytes().replace("word/document.xml", "word/dokument.xml")},
    };
    for (const auto& [name, bytes] : cases) {
        TDocument document;
        EXPECT_THROW(document.loadOpenXml(bytes), engine::EDocumentError) << name;
    }
}

TEST(DocxImport, ReadsPageGeometryInTwips) {
    auto document = load(TestDocx().body(textParagraph(QStringLiteral("Text"))));
    const TDocSection& section = document->sections().front();
    EXPECT_NEAR(section.pageWidthInDocumentUnits(), 11906 / 1440.0 * 300, 1e-6);
    EXPECT_NEAR(section.pageHeightInDocumentUnits(), 16838 / 1440.0 * 300, 1e-6);
    EXPECT_NEAR(section.margins.top(), engine::units::fromTwips(1417), 1e-9);
    EXPECT_NEAR(section.margins.bottom(), engine::units::fromTwips(1134), 1e-9);
    EXPECT_NEAR(section.headerDistance, engine::units::fromTwips(708), 1e-9);
}

TEST(DocxImport, FontSizeFollowsDefaultsStylesAndDirectFormatting) {
    auto document = load(TestDocx().styles(kStyles).body(
        textParagraph(QStringLiteral("Vorgabe")) +
        paragraph(run(QStringLiteral("Stil")), QStringLiteral("<w:pStyle w:val=\"Gross\"/>")) +
        paragraph(run(QStringLiteral("Geerbt")), QStringLiteral("<w:pStyle w:val=\"Groesser\"/>")) +
        paragraph(run(QStringLiteral("Direkt"), QStringLiteral("<w:sz w:val=\"32\"/>")),
                  QStringLiteral("<w:pStyle w:val=\"Gross\"/>")) +
        paragraph(run(QStringLiteral("Zeichen"), QStringLiteral("<w:rStyle w:val=\"Klein\"/>")))));
    const struct {
        const char* text;
        double size;
        bool bold;
    } cases[] = {{"Vorgabe", 11, false},
                 {"Stil", 14, true},
                 {"Geerbt", 18, true},
                 {"Direkt", 16, true},
                 {"Zeichen", 9, false}};
    for (const auto& expected : cases) {
        const QTextCharFormat format = formatOf(document->body(), QString::fromUtf8(expected.text));
        EXPECT_DOUBLE_EQ(format.fontPointSize(), expected.size) << expected.text;
        EXPECT_EQ(format.fontWeight() == QFont::Bold, expected.bold) << expected.text;
    }
    EXPECT_TRUE(formatOf(document->body(), QStringLiteral("Zeichen")).fontItalic());
    EXPECT_EQ(document->body().namedStyleFontSize(QStringLiteral("Klein")), 9.0);
    EXPECT_FALSE(document->body().namedStyleFontSize(QStringLiteral("Gibtsnicht")).has_value());
}

TEST(DocxImport, ParagraphPropertiesKeepTheirUnits) {
    auto document = load(TestDocx().styles(kStyles).body(
        textParagraph(QStringLiteral("Vorgabe")) +
        paragraph(
            run(QStringLiteral("Eingerueckt")),
            QStringLiteral("<w:jc w:val=\"right\"/><w:ind w:left=\"720\" w:hanging=\"360\"/>"
                           "<w:spacing w:before=\"120\" w:after=\"240\" w:line=\"360\" w:lineRule=\"auto\"/>"
                           "<w:tabs><w:tab w:val=\"left\" w:pos=\"1440\"/><w:tab w:val=\"right\" "
                           "w:pos=\"4320\"/></w:tabs>"))));
    const auto format = [](double twips) { return engine::units::toFormat(engine::units::fromTwips(twips)); };
    const auto layout = [](double twips) { return engine::units::fromTwips(twips); };

    // the paragraph's own spacing; Qt's margins and line height are derived from it
    const QTextBlockFormat standard = blockFormatOf(document->body(), QStringLiteral("Vorgabe"));
    EXPECT_NEAR(TParagraphSpacing::spaceAfter(standard), layout(160), 1e-9);
    EXPECT_NEAR(TParagraphSpacing::lineFactor(standard), 259 / 240.0, 1e-9);

    const QTextBlockFormat indented = blockFormatOf(document->body(), QStringLiteral("Eingerueckt"));
    EXPECT_EQ(indented.alignment(), Qt::AlignRight);
    // Qt takes indents in device pixels, which are layout units
    EXPECT_NEAR(indented.leftMargin(), layout(720), 1e-9);
    EXPECT_NEAR(indented.textIndent(), -layout(360), 1e-9);
    EXPECT_NEAR(TParagraphSpacing::spaceBefore(indented), layout(120), 1e-9);
    EXPECT_NEAR(TParagraphSpacing::spaceAfter(indented), layout(240), 1e-9);
    EXPECT_EQ(indented.lineHeightType(), int(QTextBlockFormat::ProportionalHeight));
    EXPECT_NEAR(TParagraphSpacing::lineFactor(indented), 1.5, 1e-9);
    // measured from the margin, with the hanging indent as a stop of its own
    const auto tabs = TTabStops::wordTabs(indented);
    ASSERT_EQ(tabs.size(), 3);
    EXPECT_NEAR(tabs[0].position, format(720), 1e-9);
    EXPECT_NEAR(tabs[1].position, format(1440), 1e-9);
    EXPECT_EQ(tabs[2].type, QTextOption::RightTab);
}

TEST(DocxImport, DefaultTabsStandEveryHalfInch) {
    auto document = load(TestDocx().body(textParagraph(QStringLiteral("a\tb"))));
    EXPECT_NEAR(document->body().text().defaultTextOption().tabStopDistance(),
                engine::units::toFormat(engine::units::fromTwips(720)), 1e-9);
}

TEST(DocxImport, PlaceholderSplitOverDifferentlyFormattedRunsIsReplaced) {
    auto document = load(TestDocx().body(paragraph(
        run(QStringLiteral("Sehr geehrte {PAT"), QStringLiteral("<w:b/>")) +
        run(QStringLiteral("IEN"), QStringLiteral("<w:i/><w:sz w:val=\"30\"/>")) +
        QStringLiteral("<w:proofErr w:type=\"spellStart\"/>") + run(QStringLiteral("T}, willkommen")))));
    EXPECT_EQ(document->body().replaceAll(QStringLiteral("{patient}"), QStringLiteral("Anna Beispiel")), 1);
    EXPECT_EQ(document->body().plainText(), QStringLiteral("Sehr geehrte Anna Beispiel, willkommen"));
    // the replacement takes the format of the placeholder's first character
    const QTextCharFormat format = formatOf(document->body(), QStringLiteral("Anna"));
    EXPECT_EQ(format.fontWeight(), QFont::Bold);
    EXPECT_FALSE(format.fontItalic());
}

TEST(DocxImport, ReplaceAllDoesNotExpandItsOwnReplacement) {
    auto document = load(TestDocx().body(textParagraph(QStringLiteral("{A} und {a}"))));
    EXPECT_EQ(document->body().replaceAll(QStringLiteral("{A}"), QStringLiteral("{A}{A}")), 2);
    EXPECT_EQ(document->body().plainText(), QStringLiteral("{A}{A} und {A}{A}"));
}

TEST(DocxImport, LineBreaksTabsAndFieldResultsBecomeText) {
    auto document = load(TestDocx().body(paragraph(
        run(QStringLiteral("Eins")) +
        QStringLiteral("<w:r><w:br/><w:t>Zwei</w:t><w:tab/><w:t>Drei</w:t></w:r>") +
        QStringLiteral(
            "<w:r><w:fldChar w:fldCharType=\"begin\"/></w:r><w:r><w:instrText> PAGE </w:instrText></w:r>"
            "<w:r><w:fldChar w:fldCharType=\"separate\"/></w:r><w:r><w:t>7</w:t></w:r>"
            "<w:r><w:fldChar w:fldCharType=\"end\"/></w:r>"))));
    EXPECT_EQ(document->body().plainText(),
              QStringLiteral("Eins") + QChar(0x2028) + QStringLiteral("Zwei\tDrei7"));
    EXPECT_EQ(document->body().text().blockCount(), 1);
}

TEST(DocxImport, WhatCannotBeShownIsDroppedAndTheRestStays) {
    auto document = load(TestDocx().body(
        textParagraph(QStringLiteral("Vorher")) +
        paragraph(run(QStringLiteral("Mitte")) +
                      QStringLiteral("<w:r><w:footnoteReference w:id=\"1\"/></w:r>"
                                     "<m:oMath xmlns:m=\"urn:math\"><m:r><m:t>x</m:t></m:r></m:oMath>"),
                  QStringLiteral("<w:numPr><w:ilvl w:val=\"0\"/><w:numId w:val=\"1\"/></w:numPr>")) +
        QStringLiteral("<w:unbekannt><w:p><w:r><w:t>weg</w:t></w:r></w:p></w:unbekannt>") +
        textParagraph(QStringLiteral("Nachher"))));
    EXPECT_EQ(document->body().plainText(), QStringLiteral("Vorher\nMitte\nNachher"));
}

TEST(DocxImport, ReadsHeadersAndFootersByKind) {
    auto document = load(TestDocx()
                             .body(textParagraph(QStringLiteral("Text")))
                             .header(textParagraph(QStringLiteral("Kopf")))
                             .header(textParagraph(QStringLiteral("Erste Seite")), QStringLiteral("first"))
                             .footer(textParagraph(QStringLiteral("Fuss gerade")), QStringLiteral("even"))
                             .sectionExtras(QStringLiteral("<w:titlePg/>")));
    const TDocSection& section = document->sections().front();
    EXPECT_TRUE(section.differentFirstPage);
    ASSERT_TRUE(section.hasHeader(TDocSection::Primary));
    EXPECT_EQ(section.header(TDocSection::Primary)->plainText(), QStringLiteral("Kopf"));
    ASSERT_TRUE(section.hasHeader(TDocSection::First));
    EXPECT_EQ(section.header(TDocSection::First)->plainText(), QStringLiteral("Erste Seite"));
    EXPECT_FALSE(section.hasHeader(TDocSection::Even));
    EXPECT_FALSE(section.hasFooter(TDocSection::Primary));
    ASSERT_TRUE(section.hasFooter(TDocSection::Even));
    EXPECT_EQ(section.footer(TDocSection::Even)->plainText(), QStringLiteral("Fuss gerade"));
}

TEST(DocxImport, ReadsTablesWithTheirCells) {
    const QString cell =
        QStringLiteral("<w:tc><w:tcPr><w:tcW w:w=\"2000\" w:type=\"dxa\"/></w:tcPr>%1</w:tc>");
    auto document = load(TestDocx().styles(kStyles).body(
        QStringLiteral("<w:tbl><w:tblPr><w:tblStyle "
                       "w:val=\"Tabellenraster\"/></w:tblPr><w:tblGrid><w:gridCol w:w=\"2000\"/>"
                       "<w:gridCol w:w=\"3000\"/></w:tblGrid>") +
        QStringLiteral("<w:tr>") + cell.arg(textParagraph(QStringLiteral("Name"))) +
        cell.arg(textParagraph(QStringLiteral("{PATIENT}"))) + QStringLiteral("</w:tr><w:tr>") +
        QStringLiteral("<w:tc><w:tcPr><w:gridSpan w:val=\"2\"/></w:tcPr>") +
        textParagraph(QStringLiteral("Ganze Zeile")) + QStringLiteral("</w:tc></w:tr></w:tbl>") +
        textParagraph(QStringLiteral("Danach"))));
    QTextCursor inTable = document->body().findFirst(QStringLiteral("Name"));
    QTextTable* table = inTable.currentTable();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rows(), 2);
    EXPECT_EQ(table->columns(), 2);
    EXPECT_EQ(table->cellAt(1, 0).columnSpan(), 2);
    EXPECT_GT(table->format().border(), 0);
    EXPECT_EQ(document->body().replaceAll(QStringLiteral("{PATIENT}"), QStringLiteral("Anna")), 1);
    EXPECT_FALSE(document->body().findFirst(QStringLiteral("Danach")).currentTable());
}

TEST(DocxImport, TextBoxIsReadOnceFromItsDrawingAndTheVmlCopyIsDropped) {
    const QString box = QStringLiteral("<w:txbxContent>") + textParagraph(QStringLiteral("{THERAPEUT}")) +
                        QStringLiteral("</w:txbxContent>");
    const QString drawing =
        QStringLiteral(
            "<w:drawing><wp:anchor behindDoc=\"1\" simplePos=\"0\"><wp:simplePos x=\"0\" y=\"0\"/>"
            "<wp:positionH relativeFrom=\"page\"><wp:posOffset>914400</wp:posOffset></wp:positionH>"
            "<wp:positionV relativeFrom=\"paragraph\"><wp:posOffset>1828800</wp:posOffset></wp:positionV>"
            "<wp:extent cx=\"2743200\" cy=\"457200\"/><wp:wrapNone/><wp:docPr id=\"1\" name=\"Feld\"/>"
            "<a:graphic><a:graphicData "
            "uri=\"http://schemas.microsoft.com/office/word/2010/wordprocessingShape\">"
            "<wps:wsp><wps:spPr><a:ln><a:noFill/></a:ln></wps:spPr><wps:txbx>%1</wps:txbx><wps:bodyPr "
            "lIns=\"0\" tIns=\"0\"/>"
            "</wps:wsp></a:graphicData></a:graphic></wp:anchor></w:drawing>")
            .arg(box);
    const QString vml =
        QStringLiteral("<w:pict><v:shape style=\"position:absolute;margin-left:72pt;margin-top:144pt;"
                       "width:216pt;height:36pt\"><v:textbox>%1</v:textbox></v:shape></w:pict>")
            .arg(box);
    const QString alternate =
        QStringLiteral("<w:r><mc:AlternateContent><mc:Choice Requires=\"%1\">%2</mc:Choice>"
                       "<mc:Fallback>%3</mc:Fallback></mc:AlternateContent></w:r>");
    for (const QString& required : {QStringLiteral("wps"), QStringLiteral("unbekannt")}) {
        auto document = load(TestDocx().body(paragraph(alternate.arg(required, drawing, vml))));
        ASSERT_EQ(document->body().shapes().size(), 1u) << required.toStdString();
        const auto& shape = *document->body().shapes().front();
        ASSERT_TRUE(shape.hasTextBox());
        EXPECT_EQ(shape.textBox->plainText(), QStringLiteral("{THERAPEUT}"));
        EXPECT_NEAR(shape.horizontal.offset, engine::units::kLayoutDpi, 1e-6);
        EXPECT_NEAR(shape.vertical.offset, 2 * engine::units::kLayoutDpi, 1e-6);
        EXPECT_NEAR(shape.size.width(), 3 * engine::units::kLayoutDpi, 1e-6);
        EXPECT_EQ(document->body().plainText(), QString());
    }
}

TEST(DocxImport, VerticallyMergedCellsShowTheFirstCellOnly) {
    const QString cell = QStringLiteral("<w:tc><w:tcPr>%1</w:tcPr>%2</w:tc>");
    const QString restart = QStringLiteral("<w:vMerge w:val=\"restart\"/>");
    const QString continued = QStringLiteral("<w:vMerge/>");
    auto document = load(TestDocx().body(
        QStringLiteral(
            "<w:tbl><w:tblGrid><w:gridCol w:w=\"2000\"/><w:gridCol w:w=\"2000\"/></w:tblGrid><w:tr>") +
        cell.arg(restart, textParagraph(QStringLiteral("Oben"))) +
        cell.arg(QString(), textParagraph(QStringLiteral("A"))) + QStringLiteral("</w:tr><w:tr>") +
        cell.arg(continued, textParagraph(QStringLiteral("Versteckt"))) +
        cell.arg(QString(), textParagraph(QStringLiteral("B"))) + QStringLiteral("</w:tr><w:tr>") +
        cell.arg(QString(), textParagraph(QStringLiteral("Unten"))) +
        cell.arg(QString(), textParagraph(QStringLiteral("C"))) + QStringLiteral("</w:tr></w:tbl>")));
    QTextTable* table = document->body().findFirst(QStringLiteral("Oben")).currentTable();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->cellAt(0, 0).rowSpan(), 2);
    EXPECT_EQ(table->cellAt(2, 0).rowSpan(), 1);
    EXPECT_TRUE(document->body().findFirst(QStringLiteral("Versteckt")).isNull());
    EXPECT_FALSE(document->body().findFirst(QStringLiteral("Unten")).isNull());
}

// LibreOffice writes its own dialect: empty property elements, namespaces declared where they
// are used, a frame style in text boxes, and a VML rectangle as the copy for old readers
TEST(DocxImport, ReadsADocumentAsLibreOfficeWritesIt) {
    const QString body = QStringLiteral(
        "<w:p><w:pPr><w:pStyle "
        "w:val=\"Normal\"/><w:rPr></w:rPr></w:pPr><w:r><w:rPr></w:rPr><mc:AlternateContent>"
        "<mc:Choice Requires=\"wps\"><w:drawing><wp:anchor behindDoc=\"1\" distT=\"0\" distB=\"0\" "
        "distL=\"0\" "
        "distR=\"0\" simplePos=\"0\" locked=\"0\" layoutInCell=\"0\" allowOverlap=\"1\" relativeHeight=\"2\">"
        "<wp:simplePos x=\"0\" y=\"0\"/><wp:positionH relativeFrom=\"column\"><wp:posOffset>0</wp:posOffset>"
        "</wp:positionH><wp:positionV "
        "relativeFrom=\"paragraph\"><wp:posOffset>8554085</wp:posOffset></wp:positionV>"
        "<wp:extent cx=\"5676900\" cy=\"600075\"/><wp:effectExtent l=\"0\" t=\"0\" r=\"0\" "
        "b=\"0\"/><wp:wrapNone/>"
        "<wp:docPr id=\"1\" name=\"Gruss\"></wp:docPr><x:graphic "
        "xmlns:x=\"http://schemas.openxmlformats.org/drawingml/"
        "2006/main\"><x:graphicData "
        "uri=\"http://schemas.microsoft.com/office/word/2010/wordprocessingShape\"><wps:wsp>"
        "<wps:cNvSpPr/><wps:spPr><x:prstGeom prst=\"rect\"><x:avLst></x:avLst></x:prstGeom><x:noFill/><x:ln "
        "w=\"6350\">"
        "<x:noFill/></x:ln></wps:spPr><wps:style><x:lnRef idx=\"0\"/><x:fillRef "
        "idx=\"0\"/></wps:style><wps:txbx>"
        "<w:txbxContent><w:p><w:pPr><w:pStyle "
        "w:val=\"FrameContents\"/><w:rPr></w:rPr></w:pPr><w:r><w:rPr></w:rPr>"
        "<w:t>Mit freundlichen "
        "Grüßen</w:t><w:br/><w:t>{THERAPEUT}</w:t></w:r></w:p></w:txbxContent></wps:txbx>"
        "<wps:bodyPr "
        "anchor=\"t\"><x:noAutofit/></wps:bodyPr></wps:wsp></x:graphicData></x:graphic></wp:anchor>"
        "</w:drawing></mc:Choice><mc:Fallback><w:pict><v:rect stroked=\"f\" "
        "style=\"position:absolute;margin-left:0pt;"
        "margin-top:673.55pt;width:446.95pt;height:47.2pt\"><v:fill "
        "on=\"false\"/><v:textbox><w:txbxContent><w:p>"
        "<w:r><w:t>Mit freundlichen Grüßen</w:t></w:r></w:p></w:txbxContent></v:textbox></v:rect></w:pict>"
        "</mc:Fallback></mc:AlternateContent></w:r></w:p>"
        "<w:p><w:pPr><w:pStyle "
        "w:val=\"Normal\"/><w:rPr></w:rPr></w:pPr><w:r><w:rPr></w:rPr><w:t>{ARZT_NAME}</w:t>"
        "<w:br/><w:t>{ARZT_STRASSE}</w:t></w:r></w:p>");
    auto document =
        load(TestDocx()
                 .styles(QStringLiteral(
                     "<w:style w:type=\"paragraph\" w:styleId=\"Normal\"><w:name w:val=\"Normal\"/>"
                     "<w:rPr><w:rFonts w:ascii=\"Carlito\" w:hAnsi=\"Carlito\"/><w:sz w:val=\"22\"/>"
                     "</w:rPr></w:style><w:style w:type=\"paragraph\" w:styleId=\"FrameContents\">"
                     "<w:name w:val=\"Frame Contents\"/><w:basedOn w:val=\"Normal\"/></w:style>"))
                 .body(body)
                 .sectionExtras(QStringLiteral(
                     "<w:formProt w:val=\"false\"/><w:textDirection w:val=\"lrTb\"/>"
                     "<w:docGrid w:type=\"default\" w:linePitch=\"100\" w:charSpace=\"0\"/>")));
    ASSERT_EQ(document->body().shapes().size(), 1u);
    const auto& box = *document->body().shapes().front();
    ASSERT_TRUE(box.hasTextBox());
    EXPECT_EQ(box.textBox->plainText(),
              QStringLiteral("Mit freundlichen Grüßen") + QChar(0x2028) + QStringLiteral("{THERAPEUT}"));
    EXPECT_TRUE(box.behindText);
    EXPECT_EQ(box.border.style(), Qt::NoPen);
    EXPECT_EQ(document->body().plainText(),
              QStringLiteral("\n{ARZT_NAME}") + QChar(0x2028) + QStringLiteral("{ARZT_STRASSE}"));
    EXPECT_DOUBLE_EQ(formatOf(*box.textBox, QStringLiteral("Mit")).fontPointSize(), 11.0);
}

TEST(DocxImport, DeeplyNestedContentIsCutOffWithoutCrashing) {
    QString nested = textParagraph(QStringLiteral("ganz innen"));
    for (int i = 0; i < 3000; ++i)
        nested = QStringLiteral("<w:tbl><w:tr><w:tc>") + nested + QStringLiteral("</w:tc></w:tr></w:tbl>");
    auto document = load(TestDocx().body(textParagraph(QStringLiteral("Anfang")) + nested +
                                         textParagraph(QStringLiteral("Ende"))));
    EXPECT_TRUE(document->body().findFirst(QStringLiteral("ganz innen")).isNull());
    EXPECT_FALSE(document->body().findFirst(QStringLiteral("Anfang")).isNull());
    EXPECT_FALSE(document->body().findFirst(QStringLiteral("Ende")).isNull());
}

TEST(Document, UpdateBracketTellsOnceAtItsEnd) {
    TDocument document;
    int changes = 0;
    document.setChangedHandler([&] { ++changes; });
    document.beginUpdate();
    document.beginUpdate();
    document.loadOpenXml(TestDocx().body(textParagraph(QStringLiteral("Text"))).bytes());
    document.body().replaceAll(QStringLiteral("Text"), QStringLiteral("Brief"));
    document.endUpdate();
    EXPECT_EQ(changes, 0);
    EXPECT_TRUE(document.isUpdating());
    document.endUpdate();
    EXPECT_EQ(changes, 1);
    EXPECT_FALSE(document.isUpdating());
    document.endUpdate();
    EXPECT_EQ(changes, 1);
}
