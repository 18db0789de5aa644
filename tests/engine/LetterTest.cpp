#include "DocUnits.h"
#include "EDocumentError.h"
#include "FilledLetter.h"
#include "PdfProbe.h"
#include "TDateTimeUtils.h"
#include "TFeedbackDocument.h"
#include "TFeedbackWizardState.h"
#include "TPdfExporter.h"
#include "TestDocx.h"
#include "TestEnvironment.h"

#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace {

using docx::textParagraph;

// a catalogue small enough to check line by line
const QString kSmallCatalogue = QStringLiteral(
    R"({"questions":[{"name":"q1","description":"Ergebnis","subcategories":[)"
    R"({"name":"q1.1","description":"Schmerz","items":[{"code":"01","caption":"weniger"},{"code":"02","caption":"keiner"}]},)"
    R"({"name":"q1.2","description":"Kraft","items":[{"code":"01","caption":"gleich"},{"code":"02","caption":"mehr"}]}]},)"
    R"({"name":"q2","description":"Weiter","items":[{"code":"01","caption":"nein"},{"code":"02","caption":"ja"}]}]})");

class LetterFixture : public ::testing::Test {
protected:
    // builds the letter from a template file written into the test's folder
    engine::TDocument& build(const TestDocx& docx) {
        const QString path = folder.writeFile(QStringLiteral("vorlage.docx"), docx.bytes());
        letter.BuildDocument(path, QString());
        return letter.Document();
    }

    testsupport::TempDir folder;
    TFeedbackWizardState state;
    TFeedbackDocument letter{state};
};

} // namespace

TEST_F(LetterFixture, BuiltInTemplateGivesTheWholeLetterOnOnePage) {
    FillInFeedback(state);
    letter.BuildDocument(QString(), QString());
    const PdfProbe probe(engine::TPdfExporter::toPdf(letter.Document()));
    EXPECT_EQ(probe.pageCount(), 1);

    const QString text = probe.text().simplified();
    const QStringList inOrder = {
        QStringLiteral("Maria Huber Physiotherapeutin"),
        QStringLiteral("Dr. Eva Muster Hauptplatz 3 A-8010 Graz"),
        QStringLiteral("Physiotherapeutischer Bericht"),
        QStringLiteral("Danke für die Überweisung Ihrer Patientin Anna Beispiel (1237010180)."),
        QStringLiteral("Behandlungszeitraum: 02.03.2026 bis 27.04.2026."),
        QStringLiteral("Diagnose: Lumbalgie"),
        QStringLiteral("Therapeut / Therapeutin: Maria Huber"),
        QStringLiteral("Behandlungsergebnis"),
        QStringLiteral("Compliance"),
        QStringLiteral("Physiotherapeutische Fortsetzung"),
        QStringLiteral("Procedere"),
        QStringLiteral("Heimübungsprogramm wurde mitgegeben."),
        QStringLiteral("Mit freundlichen Grüßen Maria Huber"),
    };
    qsizetype at = 0;
    for (const QString& piece : inOrder) {
        const qsizetype found = text.indexOf(piece, at);
        EXPECT_GE(found, 0) << piece.toStdString() << " in " << text.toStdString();
        at = found < 0 ? at : found + piece.size();
    }
    EXPECT_FALSE(text.contains(u'{')) << text.toStdString();

    // the closing stands in its text box near the foot of the page, the therapist in the header
    const auto closing = probe.word(QStringLiteral("Grüßen"));
    EXPECT_GT(closing.box.top(), closing.pageSize.height() * 0.85);
    const auto header = probe.word(QStringLiteral("Physiotherapeutin"));
    EXPECT_LT(header.box.bottom(), 1417 / 20.0);
    const QStringList images = probe.images();
    ASSERT_EQ(images.size(), 1);
    EXPECT_TRUE(images.front().trimmed().startsWith(u'1'));
    EXPECT_FALSE(images.front().contains(QStringLiteral("jpeg")));
}

TEST_F(LetterFixture, ContentBlockFollowsTheCatalogueWithTabsSizesAndLineBreaks) {
    FillInFeedback(state, kSmallCatalogue);
    engine::TDocument& document = build(
        TestDocx().body(textParagraph(QStringLiteral("{INHALT}"), QStringLiteral("<w:sz w:val=\"28\"/>"))));
    const QChar lineBreak(0x2028);
    EXPECT_EQ(document.body().plainText(), QStringLiteral("Ergebnis") + lineBreak +
                                               QStringLiteral("\t\tSchmerz: \tkeiner") + lineBreak +
                                               QStringLiteral("\t\tKraft: \tmehr\nWeiter") + lineBreak +
                                               QStringLiteral("\tWeiter: \tja\n") +
                                               QStringLiteral("Heimübungsprogramm wurde mitgegeben."));

    const QTextCursor heading = document.body().findFirst(QStringLiteral("Ergebnis"));
    QTextCursor probe(heading.document());
    probe.setPosition(heading.selectionStart() + 1);
    EXPECT_FLOAT_EQ(float(probe.charFormat().fontPointSize()), float(14.0 * 1.2));
    probe.setPosition(document.body().findFirst(QStringLiteral("keiner")).selectionStart() + 1);
    EXPECT_DOUBLE_EQ(probe.charFormat().fontPointSize(), 14.0);

    const QTextBlockFormat format = heading.blockFormat();
    EXPECT_EQ(format.leftMargin(), 0);
    EXPECT_EQ(format.textIndent(), 0);
    const auto tabs = format.tabPositions();
    ASSERT_EQ(tabs.size(), 3);
    const double stops[] = {80, 160, 900};
    for (int i = 0; i < 3; ++i)
        EXPECT_NEAR(tabs[i].position, engine::units::toFormat(engine::units::fromDocumentUnits(stops[i])),
                    1e-9);
}

TEST_F(LetterFixture, PlaceholdersAreReplacedInHeaderFooterTableCellAndTextBox) {
    FillInFeedback(state);
    const QString textBox =
        QStringLiteral(
            "<w:p><w:r><w:drawing><wp:anchor behindDoc=\"0\" simplePos=\"0\"><wp:simplePos x=\"0\" y=\"0\"/>"
            "<wp:positionH relativeFrom=\"margin\"><wp:posOffset>0</wp:posOffset></wp:positionH>"
            "<wp:positionV relativeFrom=\"page\"><wp:posOffset>5400000</wp:posOffset></wp:positionV>"
            "<wp:extent cx=\"3600000\" cy=\"720000\"/><wp:wrapNone/><wp:docPr id=\"1\" name=\"Feld\"/>"
            "<a:graphic><a:graphicData><wps:wsp><wps:txbx><w:txbxContent>%1</w:txbxContent></wps:txbx></"
            "wps:wsp>"
            "</a:graphicData></a:graphic></wp:anchor></w:drawing></w:r></w:p>")
            .arg(textParagraph(QStringLiteral("Box: {DIAGNOSE}")));
    const QString table =
        QStringLiteral(
            "<w:tbl><w:tblGrid><w:gridCol w:w=\"4000\"/></w:tblGrid><w:tr><w:tc>%1</w:tc></w:tr></w:tbl>")
            .arg(textParagraph(QStringLiteral("Zelle: {arzt_name}")));
    engine::TDocument& document =
        build(TestDocx()
                  .body(textBox + table + textParagraph(QStringLiteral("Text: {Patient}")))
                  .header(textParagraph(QStringLiteral("Kopf: {THERAPEUT}")))
                  .footer(textParagraph(QStringLiteral("Fuss: {BERUFSBEZEICHNUNG}"))));
    const QString text = PdfProbe(engine::TPdfExporter::toPdf(document)).text().simplified();
    for (const char* expected :
         {"Box: Lumbalgie", "Zelle: Dr. Eva Muster", "Text: Anna Beispiel (1237010180)", "Kopf: Maria Huber",
          "Fuss: Physiotherapeutin"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(expected))) << expected << " in " << text.toStdString();
    EXPECT_FALSE(text.contains(u'{')) << text.toStdString();
}

TEST_F(LetterFixture, TwoContentPlaceholdersBothGetTheWholeBlock) {
    FillInFeedback(state, kSmallCatalogue);
    engine::TDocument& document = build(TestDocx().body(textParagraph(QStringLiteral("{INHALT}")) +
                                                        textParagraph(QStringLiteral("Mitte")) +
                                                        textParagraph(QStringLiteral("{inhalt}"))));
    const QString text = document.body().plainText();
    EXPECT_EQ(text.count(QStringLiteral("Schmerz: \tkeiner")), 2);
    EXPECT_EQ(text.count(QStringLiteral("Heimübungsprogramm")), 2);
    EXPECT_LT(text.indexOf(QStringLiteral("Weiter: \tja")), text.indexOf(QStringLiteral("Mitte")));
}

TEST_F(LetterFixture, TemplateWithoutContentPlaceholderShowsNoAnswers) {
    FillInFeedback(state, kSmallCatalogue);
    engine::TDocument& document = build(TestDocx().body(textParagraph(QStringLiteral("Nur {PATIENT}"))));
    EXPECT_EQ(document.body().plainText(), QStringLiteral("Nur Anna Beispiel (1237010180)"));
}

TEST_F(LetterFixture, EmptyCatalogueAndBlankMemoLeaveTheParagraphWithItsTabStops) {
    FillInFeedback(state, QStringLiteral(R"({"questions":[]})"));
    state.memContent = QStringLiteral("   ");
    engine::TDocument& document = build(TestDocx().body(textParagraph(QStringLiteral("Vor{INHALT}Nach"))));
    EXPECT_EQ(document.body().plainText(), QStringLiteral("VorNach"));
    EXPECT_EQ(document.body().findFirst(QStringLiteral("VorNach")).blockFormat().tabPositions().size(), 3);
}

TEST_F(LetterFixture, MergeValueHoldingTheContentPlaceholderIsExpandedToo) {
    FillInFeedback(state, kSmallCatalogue);
    state.edtTHPDiagnosis = QStringLiteral("{INHALT}");
    engine::TDocument& document = build(TestDocx().body(textParagraph(QStringLiteral("{DIAGNOSE}"))));
    EXPECT_TRUE(document.body().plainText().startsWith(QStringLiteral("Ergebnis")));
}

TEST_F(LetterFixture, TemplateLadderFallsThroughToTheBuiltInTemplate) {
    const QString configured =
        folder.writeFile(QStringLiteral("praxis.docx"),
                         TestDocx().body(textParagraph(QStringLiteral("Praxisvorlage"))).bytes());
    const QString missing = folder.filePath(QStringLiteral("fehlt.docx"));
    EXPECT_EQ(TFeedbackDocument::TemplatePath(missing, configured), configured);
    EXPECT_EQ(TFeedbackDocument::TemplatePath(configured, missing), configured);
    EXPECT_EQ(TFeedbackDocument::TemplatePath(missing, missing), QString());

    FillInFeedback(state);
    letter.BuildDocument(missing, QString());
    EXPECT_TRUE(
        letter.Document().body().plainText().contains(QStringLiteral("Physiotherapeutischer Bericht")));
    letter.BuildDocument(missing, configured);
    EXPECT_EQ(letter.Document().body().plainText(), QStringLiteral("Praxisvorlage"));
}

TEST_F(LetterFixture, UnreadableTemplateRaisesAndTheUpdateBracketCloses) {
    const QString broken = folder.writeFile(QStringLiteral("kaputt.docx"), QByteArray("kein zip"));
    EXPECT_THROW(letter.BuildDocument(broken, QString()), engine::EDocumentError);
    EXPECT_FALSE(letter.Document().isUpdating());
}

TEST_F(LetterFixture, BaseSizeComesFromThePlaceholderItsStyleOrElevenPoints) {
    const QString styles =
        QStringLiteral("<w:style w:type=\"character\" w:styleId=\"Klein\"><w:rPr><w:sz w:val=\"18\"/>"
                       "</w:rPr></w:style>");
    const auto run = [](const QString& text, const QString& properties) {
        return QStringLiteral("<w:r><w:rPr>%2</w:rPr><w:t>%1</w:t></w:r>").arg(text, properties);
    };
    const struct {
        const char* title;
        QString paragraph;
        double base;
    } cases[] = {
        {"one size", run(QStringLiteral("{INHALT}"), QStringLiteral("<w:sz w:val=\"24\"/>")), 12.0},
        {"mixed sizes, style with a size",
         run(QStringLiteral("{INH"), QStringLiteral("<w:rStyle w:val=\"Klein\"/><w:sz w:val=\"24\"/>")) +
             run(QStringLiteral("ALT}"), QStringLiteral("<w:rStyle w:val=\"Klein\"/><w:sz w:val=\"32\"/>")),
         9.0},
        {"mixed sizes, no style",
         run(QStringLiteral("{INH"), QStringLiteral("<w:sz w:val=\"24\"/>")) +
             run(QStringLiteral("ALT}"), QStringLiteral("<w:sz w:val=\"32\"/>")),
         11.0},
    };
    FillInFeedback(state, kSmallCatalogue);
    for (const auto& expected : cases) {
        engine::TDocument& document = build(TestDocx().styles(styles).body(
            QStringLiteral("<w:p>") + expected.paragraph + QStringLiteral("</w:p>")));
        QTextCursor probe(&document.body().text());
        probe.setPosition(document.body().findFirst(QStringLiteral("Ergebnis")).selectionStart() + 1);
        EXPECT_FLOAT_EQ(float(probe.charFormat().fontPointSize()), float(expected.base * 1.2))
            << expected.title;
        probe.setPosition(document.body().findFirst(QStringLiteral("keiner")).selectionStart() + 1);
        EXPECT_DOUBLE_EQ(probe.charFormat().fontPointSize(), expected.base) << expected.title;
    }
}
