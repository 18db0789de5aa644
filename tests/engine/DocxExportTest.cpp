#include "DocUnits.h"
#include "FilledLetter.h"
#include "PdfProbe.h"
#include "TDocument.h"
#include "TDocxExporter.h"
#include "TDocxPackage.h"
#include "TPdfExporter.h"
#include "TestDocx.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>
#include <cmath>
#include <gtest/gtest.h>

using engine::TDocSection;
using engine::TDocument;
using engine::TDocxExporter;
using engine::TSubDocument;

namespace {

using docx::load;
using docx::paragraph;
using docx::run;

std::unique_ptr<TDocument> roundTrip(const TDocument& original) {
    return load(TDocxExporter::toDocx(original));
}

// Compares two flows paragraph by paragraph: text, paragraph format and the format of every
// piece of text. Gives the first difference, or nothing.
QString differenceBetween(const TSubDocument& expected, const TSubDocument& actual) {
    if (expected.text().blockCount() != actual.text().blockCount())
        return QStringLiteral("paragraph count %1 against %2")
            .arg(expected.text().blockCount())
            .arg(actual.text().blockCount());
    for (QTextBlock a = expected.text().begin(), b = actual.text().begin(); a.isValid();
         a = a.next(), b = b.next()) {
        const QString where = QStringLiteral("paragraph \"%1\": ").arg(a.text());
        if (a.text() != b.text())
            return where + QStringLiteral("text \"%1\"").arg(b.text());
        const QTextBlockFormat x = a.blockFormat();
        const QTextBlockFormat y = b.blockFormat();
        const auto near = [](double p, double q) { return std::abs(p - q) < 0.05; };
        if (x.alignment() != y.alignment())
            return where + QStringLiteral("alignment");
        if (!near(x.leftMargin(), y.leftMargin()) || !near(x.rightMargin(), y.rightMargin()) ||
            !near(x.textIndent(), y.textIndent()))
            return where + QStringLiteral("indents");
        if (!near(x.topMargin(), y.topMargin()) || !near(x.bottomMargin(), y.bottomMargin()))
            return where + QStringLiteral("spacing");
        if (x.lineHeightType() != y.lineHeightType() || !near(x.lineHeight(), y.lineHeight()))
            return where + QStringLiteral("line spacing");
        if (x.tabPositions().size() != y.tabPositions().size())
            return where + QStringLiteral("tab count");
        for (int i = 0; i < x.tabPositions().size(); ++i)
            if (!near(x.tabPositions()[i].position, y.tabPositions()[i].position) ||
                x.tabPositions()[i].type != y.tabPositions()[i].type)
                return where + QStringLiteral("tab stop %1").arg(i);
        for (auto i = a.begin(), j = b.begin(); !i.atEnd() && !j.atEnd(); ++i, ++j) {
            const QTextCharFormat c = i.fragment().charFormat();
            const QTextCharFormat d = j.fragment().charFormat();
            if (i.fragment().text() != j.fragment().text())
                return where + QStringLiteral("run \"%1\"").arg(j.fragment().text());
            if (c.fontFamilies() != d.fontFamilies() || c.fontPointSize() != d.fontPointSize() ||
                c.fontWeight() != d.fontWeight() || c.fontItalic() != d.fontItalic() ||
                c.fontUnderline() != d.fontUnderline() || c.foreground() != d.foreground())
                return where + QStringLiteral("font of \"%1\"").arg(i.fragment().text());
        }
    }
    return QString();
}

const QString kStyles = QStringLiteral(
    "<w:docDefaults><w:rPrDefault><w:rPr><w:rFonts w:ascii=\"Carlito\" w:hAnsi=\"Carlito\"/>"
    "<w:sz w:val=\"22\"/></w:rPr></w:rPrDefault><w:pPrDefault><w:pPr><w:spacing w:after=\"160\" "
    "w:line=\"259\" w:lineRule=\"auto\"/></w:pPr></w:pPrDefault></w:docDefaults>"
    "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Standard\"><w:name "
    "w:val=\"Normal\"/></w:style>"
    "<w:style w:type=\"paragraph\" w:styleId=\"Titel\"><w:basedOn w:val=\"Standard\"/><w:pPr><w:jc "
    "w:val=\"center\"/></w:pPr><w:rPr><w:b/><w:sz w:val=\"32\"/></w:rPr></w:style>");

// one paragraph per case: each sets other properties, so that a lost one shows where
const QStringList kParagraphCases = {
    paragraph(run(QStringLiteral("Links, wie der Standard"))),
    paragraph(run(QStringLiteral("Zentriert durch die Formatvorlage")),
              QStringLiteral("<w:pStyle w:val=\"Titel\"/>")),
    paragraph(run(QStringLiteral("Rechtsbündig mit Abständen")),
              QStringLiteral("<w:spacing w:before=\"240\" w:after=\"120\"/><w:jc w:val=\"right\"/>")),
    paragraph(
        run(QStringLiteral("Blocksatz mit Einzügen")),
        QStringLiteral("<w:ind w:left=\"720\" w:right=\"360\" w:firstLine=\"284\"/><w:jc w:val=\"both\"/>")),
    paragraph(run(QStringLiteral("Hängend")), QStringLiteral("<w:ind w:left=\"1134\" w:hanging=\"567\"/>")),
    paragraph(run(QStringLiteral("Anderthalbzeilig")),
              QStringLiteral("<w:spacing w:line=\"360\" w:lineRule=\"auto\"/>")),
    paragraph(run(QStringLiteral("Genau 14 Punkt")),
              QStringLiteral("<w:spacing w:line=\"280\" w:lineRule=\"exact\"/>")),
    paragraph(run(QStringLiteral("Mindestens 20 Punkt")),
              QStringLiteral("<w:spacing w:line=\"400\" w:lineRule=\"atLeast\"/>")),
    paragraph(
        run(QStringLiteral("Name:\tWert\tRechts\tMitte")),
        QStringLiteral("<w:tabs><w:tab w:val=\"left\" w:pos=\"1200\"/><w:tab w:val=\"right\" w:pos=\"6000\"/>"
                       "<w:tab w:val=\"center\" w:pos=\"8000\"/></w:tabs>")),
    paragraph(run(QStringLiteral("Fett"), QStringLiteral("<w:b/>")) +
              run(QStringLiteral(" kursiv"), QStringLiteral("<w:i/>")) +
              run(QStringLiteral(" unterstrichen"), QStringLiteral("<w:u w:val=\"single\"/>")) +
              run(QStringLiteral(" rot"), QStringLiteral("<w:color w:val=\"C00000\"/>")) +
              run(QStringLiteral(" Arial 9"),
                  QStringLiteral("<w:rFonts w:ascii=\"Arial\" w:hAnsi=\"Arial\"/><w:sz w:val=\"18\"/>"))),
    paragraph(run(QStringLiteral("Zeile eins")) + QStringLiteral("<w:r><w:br/><w:t>Zeile zwei</w:t></w:r>")),
    paragraph(QString()),
    paragraph(run(QStringLiteral("Neue Seite")), QStringLiteral("<w:pageBreakBefore/>")),
};

TEST(DocxExport, ParagraphsKeepTextAndFormatThroughExportAndImport) {
    auto original = load(TestDocx().styles(kStyles).body(kParagraphCases.join(QString())).bytes());
    auto copy = roundTrip(*original);
    EXPECT_EQ(differenceBetween(original->body(), copy->body()).toStdString(), "");
    EXPECT_EQ(copy->body().plainText(), original->body().plainText());
}

TEST(DocxExport, SectionGeometryHeadersAndFootersSurvive) {
    auto original =
        load(TestDocx()
                 .body(paragraph(run(QStringLiteral("Querformat"))))
                 .header(paragraph(run(QStringLiteral("Kopf"))))
                 .header(paragraph(run(QStringLiteral("Erste Seite"))), QStringLiteral("first"))
                 .footer(paragraph(run(QStringLiteral("Fuß"))))
                 .sectionExtras(QStringLiteral(
                     "<w:pgSz w:w=\"16838\" w:h=\"11906\" w:orient=\"landscape\"/><w:pgMar w:top=\"1417\" "
                     "w:right=\"1000\" w:bottom=\"1134\" w:left=\"1417\" w:header=\"600\" w:footer=\"500\" "
                     "w:gutter=\"0\"/><w:titlePg/>"))
                 .bytes());
    auto copy = roundTrip(*original);
    ASSERT_EQ(copy->sections().size(), original->sections().size());
    const TDocSection& a = original->sections().front();
    const TDocSection& b = copy->sections().front();
    EXPECT_NEAR(b.pageWidthInDocumentUnits(), a.pageWidthInDocumentUnits(), 0.01);
    EXPECT_NEAR(b.pageHeightInDocumentUnits(), a.pageHeightInDocumentUnits(), 0.01);
    EXPECT_NEAR(b.pageSize.width(), engine::units::fromTwips(16838), 0.5);
    for (double side : {b.margins.left() - a.margins.left(), b.margins.top() - a.margins.top(),
                        b.margins.right() - a.margins.right(), b.margins.bottom() - a.margins.bottom()})
        EXPECT_NEAR(side, 0.0, 0.5);
    EXPECT_NEAR(b.headerDistance, engine::units::fromTwips(600), 0.5);
    EXPECT_NEAR(b.footerDistance, engine::units::fromTwips(500), 0.5);
    EXPECT_TRUE(b.differentFirstPage);
    ASSERT_TRUE(b.hasHeader(TDocSection::Primary) && b.hasHeader(TDocSection::First));
    EXPECT_EQ(b.header(TDocSection::Primary)->plainText(), QStringLiteral("Kopf"));
    EXPECT_EQ(b.header(TDocSection::First)->plainText(), QStringLiteral("Erste Seite"));
    EXPECT_FALSE(b.hasHeader(TDocSection::Even));
    ASSERT_TRUE(b.hasFooter(TDocSection::Primary));
    EXPECT_EQ(b.footer(TDocSection::Primary)->plainText(), QStringLiteral("Fuß"));
}

TEST(DocxExport, TwoSectionsKeepTheirOwnPageSizes) {
    const QString firstSection = QStringLiteral(
        "<w:p><w:pPr><w:sectPr><w:pgSz w:w=\"11906\" w:h=\"16838\"/><w:pgMar w:top=\"1417\" w:right=\"1417\" "
        "w:bottom=\"1134\" w:left=\"1417\" w:header=\"708\" w:footer=\"708\" "
        "w:gutter=\"0\"/></w:sectPr></w:pPr>"
        "<w:r><w:t>Hochformat</w:t></w:r></w:p>");
    auto original = load(TestDocx()
                             .body(firstSection + paragraph(run(QStringLiteral("Quer"))))
                             .sectionExtras(QStringLiteral("<w:pgSz w:w=\"16838\" w:h=\"11906\"/>"))
                             .bytes());
    ASSERT_EQ(original->sections().size(), 2u);
    auto copy = roundTrip(*original);
    ASSERT_EQ(copy->sections().size(), 2u);
    EXPECT_NEAR(copy->sections()[0].pageSize.width(), engine::units::fromTwips(11906), 0.5);
    EXPECT_NEAR(copy->sections()[1].pageSize.width(), engine::units::fromTwips(16838), 0.5);
    EXPECT_EQ(copy->body().plainText(), original->body().plainText());
}

TEST(DocxExport, PicturesGoToTheMediaFolderAndKeepTheirSize) {
    const QString inlinePicture = QStringLiteral(
        "<w:r><w:drawing><wp:inline><wp:extent cx=\"914400\" cy=\"457200\"/><wp:docPr id=\"1\" "
        "name=\"Logo\"/>"
        "<a:graphic><a:graphicData uri=\"http://schemas.openxmlformats.org/drawingml/2006/picture\"><pic:pic>"
        "<pic:blipFill><a:blip r:embed=\"rIdImage\"/></pic:blipFill></pic:pic></a:graphicData></a:graphic>"
        "</wp:inline></w:drawing></w:r>");
    auto original = load(TestDocx()
                             .body(paragraph(run(QStringLiteral("Vor dem Bild ")) + inlinePicture))
                             .header(paragraph(inlinePicture))
                             .picture(TestDocx::samplePng(40, 20))
                             .bytes());
    const QByteArray docx = TDocxExporter::toDocx(*original);
    const engine::TDocxPackage package(docx);
    EXPECT_TRUE(package.contains(QStringLiteral("word/media/image1.png")));
    auto copy = load(docx);
    for (const TSubDocument* flow :
         {&copy->body(), copy->sections().front().header(TDocSection::Primary).get()}) {
        ASSERT_NE(flow, nullptr);
        QTextCursor cursor = flow->findFirst(QString(QChar::ObjectReplacementCharacter));
        ASSERT_FALSE(cursor.isNull());
        cursor.setPosition(cursor.selectionEnd());
        const QTextImageFormat image = cursor.charFormat().toImageFormat();
        ASSERT_TRUE(image.isValid());
        EXPECT_NEAR(engine::units::fromFormat(image.width()), engine::units::kLayoutDpi, 0.5);
        EXPECT_NEAR(engine::units::fromFormat(image.height()), engine::units::kLayoutDpi / 2, 0.5);
        const QImage picture =
            flow->text().resource(QTextDocument::ImageResource, QUrl(image.name())).value<QImage>();
        EXPECT_EQ(picture.size(), QSize(40, 20));
    }
}

TEST(DocxExport, AnchoredTextBoxKeepsPlaceSizeAndText) {
    const QString drawing =
        QStringLiteral(
            "<w:r><w:drawing><wp:anchor behindDoc=\"1\" simplePos=\"0\"><wp:simplePos x=\"0\" y=\"0\"/>"
            "<wp:positionH relativeFrom=\"page\"><wp:posOffset>914400</wp:posOffset></wp:positionH>"
            "<wp:positionV relativeFrom=\"paragraph\"><wp:posOffset>8554085</wp:posOffset></wp:positionV>"
            "<wp:extent cx=\"5676900\" cy=\"600075\"/><wp:wrapNone/><wp:docPr id=\"1\" "
            "name=\"Feld\"/><a:graphic>"
            "<a:graphicData "
            "uri=\"http://schemas.microsoft.com/office/word/2010/wordprocessingShape\"><wps:wsp>"
            "<wps:spPr><a:ln><a:noFill/></a:ln></wps:spPr><wps:txbx><w:txbxContent>%1</w:txbxContent></"
            "wps:txbx>"
            "<wps:bodyPr lIns=\"0\" tIns=\"0\" rIns=\"0\" bIns=\"0\"/></wps:wsp></a:graphicData></a:graphic>"
            "</wp:anchor></w:drawing></w:r>")
            .arg(paragraph(run(QStringLiteral("Mit freundlichen Grüßen")) +
                           QStringLiteral("<w:r><w:br/><w:t>Maria Huber</w:t></w:r>")));
    auto original =
        load(TestDocx().body(paragraph(drawing) + paragraph(run(QStringLiteral("Text")))).bytes());
    auto copy = roundTrip(*original);
    ASSERT_EQ(copy->body().shapes().size(), 1u);
    const auto& a = *original->body().shapes().front();
    const auto& b = *copy->body().shapes().front();
    ASSERT_TRUE(b.hasTextBox());
    EXPECT_EQ(b.textBox->plainText(), a.textBox->plainText());
    EXPECT_EQ(b.horizontal.relative, a.horizontal.relative);
    EXPECT_EQ(b.vertical.relative, a.vertical.relative);
    EXPECT_NEAR(b.horizontal.offset, a.horizontal.offset, 0.5);
    EXPECT_NEAR(b.vertical.offset, a.vertical.offset, 0.5);
    EXPECT_NEAR(b.size.width(), a.size.width(), 0.5);
    EXPECT_NEAR(b.size.height(), a.size.height(), 0.5);
    EXPECT_TRUE(b.behindText);
    EXPECT_EQ(b.border.style(), Qt::NoPen);
    EXPECT_EQ(b.anchor.blockNumber(), 0);
}

TEST(DocxExport, TablesKeepCellsSpansAndBorders) {
    const QString cell =
        QStringLiteral("<w:tc><w:tcPr><w:tcW w:w=\"2000\" w:type=\"dxa\"/>%1</w:tcPr>%2</w:tc>");
    auto original =
        load(TestDocx()
                 .body(QStringLiteral("<w:tbl><w:tblPr><w:tblBorders><w:top w:val=\"single\"/>"
                                      "</w:tblBorders></w:tblPr><w:tblGrid><w:gridCol w:w=\"2000\"/>"
                                      "<w:gridCol w:w=\"3000\"/></w:tblGrid><w:tr>") +
                       cell.arg(QString(), paragraph(run(QStringLiteral("Name")))) +
                       cell.arg(QString(), paragraph(run(QStringLiteral("Wert")))) +
                       QStringLiteral("</w:tr><w:tr>") +
                       cell.arg(QStringLiteral("<w:gridSpan w:val=\"2\"/>"),
                                paragraph(run(QStringLiteral("Ganze Zeile")))) +
                       QStringLiteral("</w:tr></w:tbl>") + paragraph(run(QStringLiteral("Danach"))))
                 .bytes());
    auto copy = roundTrip(*original);
    QTextTable* table = copy->body().findFirst(QStringLiteral("Name")).currentTable();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rows(), 2);
    EXPECT_EQ(table->columns(), 2);
    EXPECT_EQ(table->cellAt(1, 0).columnSpan(), 2);
    EXPECT_GT(table->format().border(), 0);
    const auto widths = table->format().columnWidthConstraints();
    ASSERT_EQ(widths.size(), 2);
    EXPECT_NEAR(engine::units::fromFormat(widths[1].rawValue()), engine::units::fromTwips(3000), 0.5);
    EXPECT_EQ(copy->body().plainText(), original->body().plainText());
    EXPECT_FALSE(copy->body().findFirst(QStringLiteral("Danach")).currentTable());
}

TEST(DocxExport, BuiltInLetterReadsTheSameInPdfAfterExportAndImport) {
    FilledLetter letter;
    auto copy = roundTrip(letter.document());
    const PdfProbe expected(engine::TPdfExporter::toPdf(letter.document()));
    const PdfProbe actual(engine::TPdfExporter::toPdf(*copy));
    EXPECT_EQ(actual.pageCount(), expected.pageCount());
    EXPECT_EQ(actual.text(), expected.text());
    EXPECT_EQ(actual.images().size(), expected.images().size());
    EXPECT_TRUE(actual.text().contains(QStringLiteral("Mit freundlichen Grüßen")));
}

TEST(DocxExport, WritesAFileAndRefusesAFolderItCannotWriteTo) {
    auto document = load(TestDocx().body(paragraph(run(QStringLiteral("Text")))).bytes());
    EXPECT_FALSE(TDocxExporter::toFile(*document, QStringLiteral("/nonexistent/folder/brief.docx")));
}

} // namespace
