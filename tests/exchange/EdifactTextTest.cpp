#include "TnvEdifactText.h"

#include <gtest/gtest.h>
#include <ostream>

using norvik::TnvEdifactText;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

struct ReleaseCase {
    const char16_t* input;
    const char16_t* expected;
};

class ReleaseAndTrimTest : public testing::TestWithParam<ReleaseCase> {};

// n characters "x"
QString Letters(int count, QChar letter = u'x') {
    return QString(count, letter);
}

} // namespace

TEST_P(ReleaseAndTrimTest, ReleasesEachSyntaxCharacterOnceAndTrimsAfterwards) {
    EXPECT_EQ(TnvEdifactText::ReleaseAndTrim(QString::fromUtf16(GetParam().input)),
              QString::fromUtf16(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Values, ReleaseAndTrimTest,
    testing::Values(ReleaseCase{u"O'Neil + Söhne", u"O?'Neil ?+ Söhne"},
                    ReleaseCase{u"Dr.med.", u"Dr?.med?."}, ReleaseCase{u"?:", u"???:"},
                    ReleaseCase{u":.+'?", u"?:?.?+?'??"}, ReleaseCase{u"Muster ", u"Muster"},
                    ReleaseCase{u"Muster?", u"Muster??"}, ReleaseCase{u" \t\r\nWien\x01 ", u"Wien"},
                    ReleaseCase{u"  ", u""}, ReleaseCase{u"", u""},
                    // the release character stays, the blank before it goes
                    ReleaseCase{u" ?", u"??"}, ReleaseCase{u"Hauptstraße 1", u"Hauptstraße 1"},
                    // a non-breaking blank is no blank to the trim
                    ReleaseCase{u"\u00a0a\u00a0", u"\u00a0a\u00a0"}));

TEST(EdifactTextTest, ReleaseDoesNotTrim) {
    EXPECT_EQ(TnvEdifactText::Release(QStringLiteral(" a:b ")), QStringLiteral(" a?:b "));
}

TEST(EdifactTextTest, TextOfBlanksGivesNoSegment) {
    int counter = 4;
    EXPECT_EQ(TnvEdifactText::FTXSegments(QStringLiteral("FTX+BFD++"), QStringLiteral("   \r\n "), counter),
              QString());
    EXPECT_EQ(counter, 4);
}

TEST(EdifactTextTest, ShortTextIsOneSegmentOfOneComponent) {
    int counter = 4;
    EXPECT_EQ(
        TnvEdifactText::FTXSegments(QStringLiteral("FTX+BFD++"), QStringLiteral(" gut: weiter "), counter),
        QStringLiteral("FTX+BFD++gut?: weiter'"));
    EXPECT_EQ(counter, 5);
}

TEST(EdifactTextTest, TextOf351CharactersGivesFiveComponentsAndOneMore) {
    const QString text = Letters(70, u'a') + Letters(70, u'b') + Letters(70, u'c') + Letters(70, u'd') +
                         Letters(70, u'e') + QStringLiteral("f");
    int counter = 4;
    const QString segments = TnvEdifactText::FTXSegments(QStringLiteral("FTX+ERG++"), text, counter);
    EXPECT_EQ(segments, QStringLiteral("FTX+ERG++") + Letters(70, u'a') + u':' + Letters(70, u'b') + u':' +
                            Letters(70, u'c') + u':' + Letters(70, u'd') + u':' + Letters(70, u'e') +
                            QStringLiteral("'FTX+ERG++f'"));
    EXPECT_EQ(counter, 6);
}

TEST(EdifactTextTest, ExactlyFiveComponentsFillOneSegment) {
    int counter = 0;
    const QString segments = TnvEdifactText::FTXSegments(QStringLiteral("P"), Letters(350), counter);
    EXPECT_EQ(counter, 1);
    EXPECT_EQ(segments.count(u':'), 4);
}

TEST(EdifactTextTest, ComponentsAreTrimmedAndEmptyOnesLeaveNoSeparator) {
    // the second 70 characters are blanks only, the third starts and ends with blanks
    const QString text =
        Letters(70) + QString(70, u' ') + QStringLiteral("  y") + QString(67, u' ') + QStringLiteral("z");
    int counter = 0;
    EXPECT_EQ(TnvEdifactText::FTXSegments(QStringLiteral("P"), text, counter),
              QStringLiteral("P") + Letters(70) + QStringLiteral(":y:z'"));
}

TEST(EdifactTextTest, CutMayFallBetweenReleaseCharacterAndReleasedCharacter) {
    // 69 letters and a colon become 71 characters once released
    int counter = 0;
    EXPECT_EQ(TnvEdifactText::FTXSegments(QStringLiteral("P"), Letters(69) + u':', counter),
              QStringLiteral("P") + Letters(69) + QStringLiteral("?::'"));
}

TEST(EdifactTextTest, RemainderAfterFiveComponentsStartsTheNextSegmentUntrimmed) {
    // the 351st character is a blank followed by a letter: the next segment keeps only the letter
    int counter = 0;
    EXPECT_EQ(TnvEdifactText::FTXSegments(QStringLiteral("P"), Letters(350) + QStringLiteral(" q"), counter)
                  .section(u'\'', 1),
              QStringLiteral("Pq'"));
    EXPECT_EQ(counter, 2);
}
