#include "FixedClock.h"
#include "TDateTimeUtils.h"
#include "TSVNr.h"

#include <gtest/gtest.h>

namespace {

struct FormatCase {
    const char16_t* text;
    bool valid;
    bool validWithZeroSerial;
};

class SVNrFormatTest : public testing::TestWithParam<FormatCase> {};

struct BirthDateCase {
    const char16_t* text;
    int year;
    int month;
    int day;
};

class SVNrBirthDateTest : public testing::TestWithParam<BirthDateCase> {};

} // namespace

TEST_P(SVNrFormatTest, ChecksLengthBirthDatePartAndCheckDigit) {
    const QString text = QString::fromUtf16(GetParam().text);
    EXPECT_EQ(TSVNr::IsSVNrFormatValid(text, false), GetParam().valid);
    EXPECT_EQ(TSVNr::IsSVNrFormatValid(text, true), GetParam().validWithZeroSerial);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, SVNrFormatTest,
    testing::Values(
        // an empty or four-character text passes before any other test
        FormatCase{u"", true, true}, FormatCase{u"1234", true, true}, FormatCase{u"abcd", true, true},
        FormatCase{u"123", false, false}, FormatCase{u"123456789", false, false},
        FormatCase{u"1237010180 ", false, false},
        // check digit 7 fits the weights 3 7 9
        FormatCase{u"1237010180", true, true}, FormatCase{u"1238010180", false, false},
        // the weights 3 7 9 give 10, so the walk goes on to 3 8 0 ...
        FormatCase{u"1060150580", true, true}, FormatCase{u"1061150580", false, false},
        // ... and, when 3 8 0 gives 10 again, to 3 8 1
        FormatCase{u"1498150580", true, true},
        // the serial 0000 has no check digit: the caller's permission decides
        FormatCase{u"0000150580", false, true}, FormatCase{u"0000011399", false, true},
        FormatCase{u"0000320180", false, false},
        // a serial starting 000 checks normally, but can never pass when its sum leaves 10
        FormatCase{u"0007010180", true, true}, FormatCase{u"0009120190", false, false},
        FormatCase{u"0000120190", false, true},
        // no calendar behind the date part: day 31 of month 2, and months up to 15
        FormatCase{u"4564310280", true, true}, FormatCase{u"4567011390", true, true},
        FormatCase{u"4563311580", true, true}, FormatCase{u"0000011680", false, false},
        FormatCase{u"0000001180", false, false}, FormatCase{u"0000010080", false, false},
        // letters in the date part read as day 0, month 0 or year -1
        FormatCase{u"abcdefghij", false, false}, FormatCase{u"12370101ab", false, false},
        FormatCase{u"0000ab0180", false, false},
        // a number may start with a blank, but not end with one
        FormatCase{u"0000 10180", false, true}, FormatCase{u"00001 0180", false, false},
        FormatCase{u"0000\t10180", false, false},
        // a letter in the serial fails the check digit test
        FormatCase{u"123A010180", false, false}));

TEST_P(SVNrBirthDateTest, TwoDigitYearFallsIntoTheLastHundredYears) {
    testsupport::FixedClock clock{"2026-06-01 10:00:00"};
    const norvik::TDateTime expected =
        GetParam().year == 0
            ? 0
            : norvik::TDateTimeUtils::EncodeDate(GetParam().year, GetParam().month, GetParam().day);
    EXPECT_EQ(TSVNr::BirthDateOf(QString::fromUtf16(GetParam().text)), expected);
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, SVNrBirthDateTest,
    testing::Values(BirthDateCase{u"1234150580", 1980, 5, 15}, BirthDateCase{u"1234010130", 1930, 1, 1},
                    BirthDateCase{u"1234010127", 1927, 1, 1}, BirthDateCase{u"1234010126", 2026, 1, 1},
                    BirthDateCase{u"1234010125", 2025, 1, 1}, BirthDateCase{u"0000290200", 2000, 2, 29},
                    // a year of letters reads as 00
                    BirthDateCase{u"12340101ab", 2000, 1, 1}, BirthDateCase{u"123415058", 0, 0, 0},
                    BirthDateCase{u"12341505800", 0, 0, 0}, BirthDateCase{u"", 0, 0, 0},
                    // valid in the number, but no date
                    BirthDateCase{u"1234011390", 0, 0, 0}, BirthDateCase{u"1234310280", 0, 0, 0},
                    BirthDateCase{u"1234ab0180", 0, 0, 0}, BirthDateCase{u"1234 1 180", 1980, 1, 1}));
