#include "THtmlLabelText.h"
#include "TWelcomeForm.h"

#include <QTextBlock>
#include <QTextDocument>
#include <gtest/gtest.h>

namespace {

// each run of text of the rich text with the point size it is drawn in
QList<QPair<QString, double>> Runs(const QString& ARichText, const QFont& ABase) {
    QTextDocument document;
    document.setDefaultFont(ABase);
    document.setHtml(ARichText);
    QList<QPair<QString, double>> runs;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment fragment = it.fragment();
            runs.append({fragment.text(), fragment.charFormat().font().pointSizeF()});
        }
    }
    return runs;
}

QFont PointFont(double APoints) {
    QFont font;
    font.setPointSizeF(APoints);
    return font;
}

struct TileCase {
    const char* Name;
    QString Html;
    const char* Heading;
    const char* Text;
};

class TileTextTest : public ::testing::TestWithParam<TileCase> {};

// The words stay exactly as written: the heading at 160 %, the line break, the text at 100 %.
TEST_P(TileTextTest, ShowsTheWordsAtTheirPercentOfTheFont) {
    const auto runs = Runs(THtmlLabelText::ToQtRichText(GetParam().Html, PointFont(10)), PointFont(10));
    ASSERT_EQ(runs.size(), 3);
    EXPECT_EQ(runs[0].first, QString::fromUtf8(GetParam().Heading));
    EXPECT_DOUBLE_EQ(runs[0].second, 16.0);
    EXPECT_EQ(runs[1].first, QString(QChar::LineSeparator));
    EXPECT_DOUBLE_EQ(runs[1].second, 13.0);
    EXPECT_EQ(runs[2].first, QString::fromUtf8(GetParam().Text));
    EXPECT_DOUBLE_EQ(runs[2].second, 10.0);
}

INSTANTIATE_TEST_SUITE_P(
    Tiles, TileTextTest,
    ::testing::Values(TileCase{"NewFeedback", TWelcomeForm::NewFeedbackHtml, "Neue Rückmeldung",
                               "Füllen Sie einen neuen Rückmeldebogen aus und senden diesen per DaMe oder "
                               "MedicalNet an den Überweiser."},
                      TileCase{"FindFeedback", TWelcomeForm::FindFeedbackHtml, "Rückmeldung suchen",
                               "Suchen Sie in den bereits erstellten und versandten Rückmeldebögen und "
                               "öffnen diesen."},
                      TileCase{
                          "FindPatient", TWelcomeForm::FindPatientHtml, "Patient suchen",
                          "Suchen Sie in den bereits gespeicherten Patienten und öffnen das Stammblatt."}),
    [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST(HtmlLabelTextTest, TheTileTextsStandAsTheyWereWritten) {
    EXPECT_EQ(TWelcomeForm::NewFeedbackHtml,
              QStringLiteral("<P align=\"center\"><FONT size=\"160%\">Neue Rückmeldung</FONT><FONT "
                             "size=\"130%\"><br></FONT><FONT size=\"100%\">Füllen Sie einen neuen "
                             "Rückmeldebogen aus und senden diesen per DaMe oder MedicalNet an den "
                             "Überweiser.</FONT></P>"));
}

TEST(HtmlLabelTextTest, CentresTheParagraph) {
    QTextDocument document;
    document.setHtml(THtmlLabelText::ToQtRichText(TWelcomeForm::FindPatientHtml, PointFont(9)));
    EXPECT_EQ(document.begin().blockFormat().alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
}

struct ConversionCase {
    const char* Name;
    const char* Html;
    const char* Expected;
};

class HtmlConversionTest : public ::testing::TestWithParam<ConversionCase> {};

// Only FONT tags with a size in percent become spans, each with its own closing tag.
TEST_P(HtmlConversionTest, TurnsPercentFontsIntoSpans) {
    EXPECT_EQ(THtmlLabelText::ToQtRichText(QString::fromUtf8(GetParam().Html), PointFont(9)),
              QString::fromUtf8(GetParam().Expected));
}

INSTANTIATE_TEST_SUITE_P(
    Texts, HtmlConversionTest,
    ::testing::Values(ConversionCase{"Percent", "<FONT size=\"150%\">a</FONT>b",
                                     "<span style=\"font-size:13.5pt\">a</span>b"},
                      ConversionCase{"LowerCase", "<font size=\"200%\">a</font>",
                                     "<span style=\"font-size:18.0pt\">a</span>"},
                      ConversionCase{"StepSizeStays", "<FONT size=\"3\">a</FONT>",
                                     "<FONT size=\"3\">a</FONT>"},
                      ConversionCase{"Nested", "<FONT color=\"red\">a<FONT size=\"100%\">b</FONT>c</FONT>",
                                     "<FONT color=\"red\">a<span style=\"font-size:9.0pt\">b</span>c</FONT>"},
                      ConversionCase{"UnmatchedClose", "a</FONT>", "a</FONT>"},
                      ConversionCase{"NoFont", "<P>plain</P>", "<P>plain</P>"}),
    [](const auto& AInfo) { return std::string(AInfo.param.Name); });

TEST(HtmlLabelTextTest, AFontSetInPixelsGivesPixels) {
    QFont font;
    font.setPixelSize(12);
    EXPECT_EQ(THtmlLabelText::FontSize(160, font), u"19px");
}

} // namespace
