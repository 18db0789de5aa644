#include "DocUnits.h"
#include "PdfProbe.h"
#include "TDocument.h"
#include "TDocxExporter.h"
#include "TDocxPackage.h"
#include "TParagraphSpacing.h"
#include "TPdfExporter.h"
#include "TestDocx.h"

#include <QAbstractTextDocumentLayout>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <gtest/gtest.h>

using engine::TDocument;
using engine::TDocxExporter;
using engine::TSubDocument;
namespace units = engine::units;

namespace {

using docx::load;
using docx::paragraph;

// Carlito's ascent and descent, 1950 and 550 of 2048 units: Word's single line
constexpr double kCarlitoLine = 2500.0 / 2048.0;

// a run in Carlito, whose metrics the expectations are made of
QString run(const QString& text, const QString& properties = QString()) {
    return docx::run(text,
                     QStringLiteral("<w:rFonts w:ascii=\"Carlito\" w:hAnsi=\"Carlito\"/>") + properties);
}

std::unique_ptr<TDocument> load(const QString& body) {
    return docx::load(TestDocx().body(body));
}

// the top of a paragraph's first line in the body, in points
double topOf(const TSubDocument& flow, int blockNumber) {
    const QTextBlock block = flow.text().findBlockByNumber(blockNumber);
    const QRectF rect = flow.text().documentLayout()->blockBoundingRect(block);
    return units::toPoints(rect.top() - block.layout()->boundingRect().top() + block.layout()->lineAt(0).y());
}

// where the character at the index of the paragraph stands, in points from the body's left edge
double xOf(const TSubDocument& flow, int blockNumber, int index) {
    const QTextBlock block = flow.text().findBlockByNumber(blockNumber);
    const QTextLine line = block.layout()->lineForTextPosition(index);
    const QRectF rect = flow.text().documentLayout()->blockBoundingRect(block);
    return units::toPoints(rect.left() + line.cursorToX(index));
}

double twipsToPoints(double twips) {
    return twips / 20.0;
}

} // namespace

TEST(LayoutFidelity, LinesAtAutoSpacingStandAsFarApartAsInWord) {
    const struct {
        int line;
        int halfPoints;
    } cases[] = {{240, 22}, {360, 22}, {259, 28}, {240, 16}};
    for (const auto& c : cases) {
        const QString spacing =
            QStringLiteral("<w:spacing w:before=\"0\" w:after=\"0\" w:line=\"%1\" w:lineRule=\"auto\"/>")
                .arg(c.line);
        const QString size = QStringLiteral("<w:sz w:val=\"%1\"/>").arg(c.halfPoints);
        auto document = load(paragraph(run(QStringLiteral("Erste"), size), spacing) +
                             paragraph(run(QStringLiteral("Zweite"), size), spacing));
        const double expected = c.line / 240.0 * c.halfPoints / 2.0 * kCarlitoLine;
        EXPECT_NEAR(topOf(document->body(), 1) - topOf(document->body(), 0), expected, 0.05)
            << "line " << c.line << ", size " << c.halfPoints / 2.0;
    }
}

TEST(LayoutFidelity, PictureLineKeepsThePictureHeightAndStretchesOnlyTheFontLine) {
    // a picture of 1 by 0.5 inch, 36 points high, in a paragraph of 11 points at Word 2013's 1.08
    const QString spacing =
        QStringLiteral("<w:spacing w:before=\"0\" w:after=\"0\" w:line=\"259\" w:lineRule=\"auto\"/>"
                       "<w:rPr><w:rFonts w:ascii=\"Carlito\"/><w:sz w:val=\"22\"/></w:rPr>");
    const QString picture = QStringLiteral(
        "<w:r><w:drawing><wp:inline><wp:extent cx=\"914400\" cy=\"457200\"/><a:graphic><a:graphicData>"
        "<pic:pic><pic:blipFill><a:blip r:embed=\"rIdImage\"/></pic:blipFill></pic:pic></a:graphicData>"
        "</a:graphic></wp:inline></w:drawing></w:r>");
    auto document =
        load(TestDocx()
                 .picture(TestDocx::samplePng(96, 48))
                 .body(paragraph(picture, spacing) + paragraph(run(QStringLiteral("Danach")), spacing))
                 .bytes());
    const double expected = 36.0 + (259 / 240.0 - 1.0) * 11.0 * kCarlitoLine;
    EXPECT_NEAR(topOf(document->body(), 1) - topOf(document->body(), 0), expected, 0.05);
}

TEST(LayoutFidelity, SpaceBetweenParagraphsIsTheLargerOfAfterAndBeforeUnlessTheStyleLeavesItOut) {
    const QString styles = QStringLiteral(
        "<w:style w:type=\"paragraph\" w:default=\"1\" w:styleId=\"Standard\"><w:name "
        "w:val=\"Normal\"/></w:style>"
        "<w:style w:type=\"paragraph\" w:styleId=\"Liste\"><w:name w:val=\"List\"/></w:style>");
    const struct {
        const char* name;
        QString first;
        QString second;
        double gapTwips;
    } cases[] = {
        {"after larger", QStringLiteral("<w:spacing w:after=\"240\"/>"),
         QStringLiteral("<w:spacing w:before=\"120\"/>"), 240},
        {"before larger", QStringLiteral("<w:spacing w:after=\"120\"/>"),
         QStringLiteral("<w:spacing w:before=\"360\"/>"), 360},
        {"same style, contextual",
         QStringLiteral("<w:pStyle w:val=\"Liste\"/><w:spacing w:after=\"240\"/><w:contextualSpacing/>"),
         QStringLiteral("<w:pStyle w:val=\"Liste\"/><w:spacing w:before=\"120\"/><w:contextualSpacing/>"), 0},
        {"other style, contextual",
         QStringLiteral("<w:pStyle w:val=\"Liste\"/><w:spacing w:after=\"240\"/><w:contextualSpacing/>"),
         QStringLiteral("<w:spacing w:before=\"120\"/><w:contextualSpacing/>"), 240},
        {"only the first contextual",
         QStringLiteral("<w:pStyle w:val=\"Liste\"/><w:spacing w:after=\"240\"/><w:contextualSpacing/>"),
         QStringLiteral("<w:pStyle w:val=\"Liste\"/><w:spacing w:before=\"120\"/>"), 120},
    };
    auto plain =
        load(TestDocx()
                 .styles(styles)
                 .body(paragraph(run(QStringLiteral("Eins"))) + paragraph(run(QStringLiteral("Zwei"))))
                 .bytes());
    const double pitch = topOf(plain->body(), 1) - topOf(plain->body(), 0);
    for (const auto& c : cases) {
        auto document = load(TestDocx()
                                 .styles(styles)
                                 .body(paragraph(run(QStringLiteral("Eins")), c.first) +
                                       paragraph(run(QStringLiteral("Zwei")), c.second))
                                 .bytes());
        EXPECT_NEAR(topOf(document->body(), 1) - topOf(document->body(), 0) - pitch,
                    twipsToPoints(c.gapTwips), 0.05)
            << c.name;
    }
}

TEST(LayoutFidelity, FirstParagraphKeepsItsSpaceBefore) {
    auto document =
        load(paragraph(run(QStringLiteral("Oben")), QStringLiteral("<w:spacing w:before=\"480\"/>")));
    EXPECT_NEAR(topOf(document->body(), 0), twipsToPoints(480), 0.05);
}

TEST(LayoutFidelity, IndentsAndTabStopsAreMeasuredFromTheMarginAsInWord) {
    const QString longText =
        QStringLiteral("Bitte verordnen Sie bei Bedarf eine Folgeserie, denn der Verlauf "
                       "spricht für eine Fortsetzung der Therapie in größeren Abständen.");
    auto document = load(
        paragraph(run(QStringLiteral("Name\tWert")),
                  QStringLiteral(
                      "<w:tabs><w:tab w:val=\"left\" w:pos=\"3402\"/></w:tabs><w:ind w:left=\"567\"/>")) +
        paragraph(run(QStringLiteral("Hinweis:\t") + longText),
                  QStringLiteral("<w:ind w:left=\"1418\" w:hanging=\"1418\"/>")));
    const TSubDocument& body = document->body();
    EXPECT_NEAR(xOf(body, 0, 0), twipsToPoints(567), 0.05);
    EXPECT_NEAR(xOf(body, 0, 5), twipsToPoints(3402), 0.05);
    // the hanging indent is a stop of its own, and the lines behind the first start there
    EXPECT_NEAR(xOf(body, 1, 0), 0.0, 0.05);
    EXPECT_NEAR(xOf(body, 1, 9), twipsToPoints(1418), 0.05);
    const QTextLayout* hanging = body.text().findBlockByNumber(1).layout();
    ASSERT_GE(hanging->lineCount(), 2);
    EXPECT_NEAR(xOf(body, 1, hanging->lineAt(1).textStart()), twipsToPoints(1418), 0.05);
}

TEST(LayoutFidelity, RightTabOnALineOfABrokenParagraphEndsAtTheStopAndTheParagraphStaysOne) {
    const QString text =
        QStringLiteral("<w:r><w:t>Dr. Hans Huber</w:t><w:tab/><w:t>Graz, am 27.02.2026</w:t>"
                       "<w:br/><w:t>Ringstraße 2 mit einer langen Zeile dahinter</w:t></w:r>");
    auto document =
        load(paragraph(text, QStringLiteral("<w:tabs><w:tab w:val=\"right\" w:pos=\"9072\"/></w:tabs>")) +
             paragraph(run(QStringLiteral("Danach")),
                       QStringLiteral("<w:spacing w:before=\"0\" w:after=\"0\"/>")));
    const TSubDocument& body = document->body();
    const QString firstLine = QStringLiteral("Dr. Hans Huber\tGraz, am 27.02.2026");
    EXPECT_NEAR(xOf(body, 0, int(firstLine.size())), twipsToPoints(9072), 0.1);
    EXPECT_EQ(body.plainText(), firstLine + QChar(QChar::LineSeparator) +
                                    QStringLiteral("Ringstraße 2 mit einer langen Zeile dahinter\nDanach"));

    const QByteArray docx = TDocxExporter::toDocx(*document);
    const QString part =
        QString::fromUtf8(engine::TDocxPackage(docx).part(QStringLiteral("word/document.xml")));
    EXPECT_EQ(part.count(QStringLiteral("<w:p>")), 2);
    EXPECT_EQ(part.count(QStringLiteral("<w:br/>")), 1);
    EXPECT_EQ(load(docx)->body().plainText(), body.plainText());
}

TEST(LayoutFidelity, TabLeadersAreDrawnAndWrittenBack) {
    auto document = load(paragraph(
        run(QStringLiteral("Diagnose\tLumbalgie")),
        QStringLiteral("<w:tabs><w:tab w:val=\"left\" w:leader=\"dot\" w:pos=\"3402\"/></w:tabs>")));
    const QString text = PdfProbe(engine::TPdfExporter::toPdf(*document)).text();
    EXPECT_TRUE(text.contains(QStringLiteral("Diagnose")) && text.contains(QStringLiteral("Lumbalgie")) &&
                text.contains(QRegularExpression(QStringLiteral("\\.{20,}"))))
        << text.toStdString();

    const QString part = QString::fromUtf8(
        engine::TDocxPackage(TDocxExporter::toDocx(*document)).part(QStringLiteral("word/document.xml")));
    EXPECT_TRUE(part.contains(QStringLiteral("w:leader=\"dot\""))) << part.toStdString();
    EXPECT_TRUE(part.contains(QStringLiteral("w:pos=\"3402\""))) << part.toStdString();
}

TEST(LayoutFidelity, DefaultTabStopAndWordVersionTravelWithTheDocument) {
    auto document = load(paragraph(run(QStringLiteral("a\tb"))));
    document->defaultTabStop = units::fromTwips(567);
    const QByteArray docx = TDocxExporter::toDocx(*document);
    const QString settings =
        QString::fromUtf8(engine::TDocxPackage(docx).part(QStringLiteral("word/settings.xml")));
    EXPECT_TRUE(settings.contains(QStringLiteral("<w:defaultTabStop w:val=\"567\"/>")))
        << settings.toStdString();
    EXPECT_TRUE(settings.contains(QStringLiteral("w:name=\"compatibilityMode\""))) << settings.toStdString();

    auto reloaded = load(docx);
    EXPECT_NEAR(reloaded->defaultTabStop, units::fromTwips(567), 1e-9);
    EXPECT_NEAR(xOf(reloaded->body(), 0, 2), twipsToPoints(567), 0.05);
}

TEST(LayoutFidelity, DerivedFormatsGoBackWithTheEditThatCausedThem) {
    auto document =
        load(paragraph(run(QStringLiteral("Eins")), QStringLiteral("<w:spacing w:after=\"240\"/>")) +
             paragraph(run(QStringLiteral("Zwei"))));
    QTextDocument& text = document->body().text();
    text.clearUndoRedoStacks();
    QTextCursor cursor(&text);
    cursor.movePosition(QTextCursor::End);
    QTextBlockFormat spaced = cursor.blockFormat();
    engine::TParagraphSpacing::setSpaceBefore(spaced, units::fromTwips(480));
    cursor.beginEditBlock();
    cursor.insertBlock(spaced);
    cursor.insertText(QStringLiteral("Drei"));
    cursor.endEditBlock();
    document->prepareLayout();

    EXPECT_NEAR(topOf(document->body(), 2) - topOf(document->body(), 1),
                topOf(document->body(), 1) - topOf(document->body(), 0) + twipsToPoints(480 - 240), 0.05);
    text.undo();
    EXPECT_EQ(document->body().plainText(), QStringLiteral("Eins\nZwei"));
    document->prepareLayout();
    EXPECT_FALSE(text.isUndoAvailable());
    EXPECT_TRUE(text.isRedoAvailable());
}
