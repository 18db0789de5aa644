#include "DateUtils.h"

#include "FixedClock.h"
#include "TDateTimeUtils.h"

#include <cmath>
#include <gtest/gtest.h>

using namespace norvik;

namespace {

// a Wednesday in the first quarter and in ISO week 12
constexpr const char* Now = "2026-03-18 10:30:00";

TDateTime date(int year, int month, int day) {
    return TDateTimeUtils::EncodeDate(year, month, day);
}

TDateTime dateTime(int year, int month, int day, int hour, int minute, int second = 0, int msec = 0) {
    TDateTime time = 0;
    TDateTimeUtils::TryEncodeTime(hour, minute, second, msec, time);
    return date(year, month, day) + time;
}

TDateTime timeOfDay(int hour, int minute) {
    TDateTime time = 0;
    TDateTimeUtils::TryEncodeTime(hour, minute, 0, 0, time);
    return time;
}

struct DateCase {
    const char16_t* text;
    TDateTime expected;
};

void PrintTo(const DateCase& c, std::ostream* os) {
    *os << QString::fromUtf16(c.text).toStdString();
}

class TryTextToDateParses : public ::testing::TestWithParam<DateCase> {};

TEST_P(TryTextToDateParses, WithTodayFillingIn) {
    const testsupport::FixedClock clock(Now);
    TDateTime value = -1;
    ASSERT_EQ(TryTextToDate(QString::fromUtf16(GetParam().text), value, false), 1);
    EXPECT_DOUBLE_EQ(value, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    FreeText, TryTextToDateParses,
    ::testing::Values(
        DateCase{u"3. Jänner 2026", date(2026, 1, 3)}, DateCase{u"3.1.26", date(2026, 1, 3)},
        DateCase{u"3.1.2026", date(2026, 1, 3)}, DateCase{u"  3.   JÄNNER  2026 ", date(2026, 1, 3)},
        DateCase{u"3. Januar 2026", date(2026, 1, 3)}, DateCase{u"3 January 2026", date(2026, 1, 3)},
        DateCase{u"1. Feber 2026", date(2026, 2, 1)}, DateCase{u"1. märz 2025", date(2025, 3, 1)},
        DateCase{u"Montag, 16. März 2026", date(2026, 3, 16)},
        DateCase{u"Freitag 03012025", date(2025, 1, 3)},
        // a month word first: the day is today's
        DateCase{u"Mai 2025", date(2025, 5, 18)}, DateCase{u"Dezember", date(2026, 12, 18)},
        // compact dates
        DateCase{u"03012026", date(2026, 1, 3)}, DateCase{u"030126", date(2026, 1, 3)},
        DateCase{u"0301", date(2026, 1, 3)}, DateCase{u"0301 2025", date(2025, 1, 3)},
        // missing parts are today's
        DateCase{u"3", date(2026, 3, 3)}, DateCase{u"3.1", date(2026, 1, 3)},
        // the two-digit year window ends 50 years ahead of 2026
        DateCase{u"1.1.99", date(1999, 1, 1)}, DateCase{u"1.1.26", date(2026, 1, 1)},
        DateCase{u"1.1.75", date(2075, 1, 1)}, DateCase{u"1.1.76", date(1976, 1, 1)},
        DateCase{u"1.1.00", date(2000, 1, 1)}, DateCase{u"1.1.999", date(1999, 1, 1)},
        DateCase{u"1.1.900", date(1900, 1, 1)}, DateCase{u"1.1.1850", date(1850, 1, 1)},
        // time of day
        DateCase{u"18.03.2026 14:30", dateTime(2026, 3, 18, 14, 30)},
        DateCase{u"18.03.2026 14:30:15", dateTime(2026, 3, 18, 14, 30, 15)},
        DateCase{u"18.3. 14:30", dateTime(2026, 3, 18, 14, 30)},
        DateCase{u"18.03.2026 10:30 PM", dateTime(2026, 3, 18, 22, 30)},
        DateCase{u"18.03.2026 10:30pm", dateTime(2026, 3, 18, 22, 30)},
        DateCase{u"18.03.2026 12:15 PM", dateTime(2026, 3, 18, 12, 15)},
        DateCase{u"1.1.1850 06:00", date(1850, 1, 1) - 0.25},
        // a time alone is the time of day without a date
        DateCase{u"10:30", timeOfDay(10, 30)}, DateCase{u"10:30 PM", timeOfDay(22, 30)},
        // calendar weeks: Monday of the ISO week
        DateCase{u"kw1226", date(2026, 3, 16)}, DateCase{u"KW 12", date(2026, 3, 16)},
        DateCase{u"kw122027", date(2027, 3, 22)}, DateCase{u"Kw0126", date(2025, 12, 29)},
        DateCase{u"kw532026", date(2026, 12, 28)},
        // date words
        DateCase{u"heute", date(2026, 3, 18)}, DateCase{u"Heute", date(2026, 3, 18)},
        DateCase{u"HEUTE", date(2026, 3, 18)}, DateCase{u"date", date(2026, 3, 18)},
        DateCase{u"jetzt", dateTime(2026, 3, 18, 10, 30)}, DateCase{u"NOW", dateTime(2026, 3, 18, 10, 30)},
        DateCase{u"StartOfYear", date(2026, 1, 1)}, DateCase{u"EndOfYear", date(2026, 12, 31)},
        DateCase{u"StartOfMonth", date(2026, 3, 1)}, DateCase{u"endofmonth", date(2026, 3, 31)},
        DateCase{u"StartOfWeek", date(2026, 3, 16)}, DateCase{u"EndOfWeek", date(2026, 3, 22)},
        DateCase{u"StartOfQuarter", date(2026, 1, 1)}, DateCase{u"EndOfQuarter", date(2026, 3, 31)},
        DateCase{u"EndOfMonth(01.02.2026)", date(2026, 2, 28)},
        DateCase{u"EndOfMonth (01.02.2024)", date(2024, 2, 29)},
        DateCase{u"StartOfYear(3.5.2025)", date(2025, 1, 1)},
        DateCase{u"EndOfWeek(1.1.2026)", date(2026, 1, 4)},
        DateCase{u"StartOfQuarter(15.11.2025)", date(2025, 10, 1)},
        DateCase{u"EndOfQuarter(15.8.2025)", date(2025, 9, 30)},
        DateCase{u"EndOfMonth(StartOfQuarter(EndOfYear(heute)))", date(2026, 10, 31)},
        DateCase{u"StartOfWeek(kw0126)", date(2025, 12, 29)}));

class TryTextToDateFails : public ::testing::TestWithParam<const char16_t*> {};

TEST_P(TryTextToDateFails, WithResultZeroAndNoValue) {
    const testsupport::FixedClock clock(Now);
    TDateTime value = -1;
    EXPECT_EQ(TryTextToDate(QString::fromUtf16(GetParam()), value, false), 0);
    EXPECT_EQ(value, 0);
}

INSTANTIATE_TEST_SUITE_P(BadText, TryTextToDateFails,
                         ::testing::Values(u"", u"   ", u"PM", u"-", u"...", u"gestern", u"31.02.2026",
                                           u"1.13.2026", u"18.03.2026 24:00", u"2026-02-30",
                                           u"18.03.2026 10:60", u"12 Uhr", u"12 abc", u"Montag", u"3.1.10000",
                                           u"99999999999999999999.1.2026", u"1030", u"kw", u"kw1", u"kw123",
                                           u"kw5426", u"kw0026", u"kw532027", u"EndOfMonth(gestern)",
                                           u"EndOfMonth(01.02.2026", u"EndOfMonth()",
                                           u"EndOfMonth(31.02.2026)", u"StartOfDecade"));

TEST(TryTextToDate, UnsetDayIsNotFilledInWhenAsked) {
    const testsupport::FixedClock clock(Now);
    TDateTime value = 0;
    EXPECT_EQ(TryTextToDate(QStringLiteral("Jänner 2026"), value, true), 0);
    ASSERT_EQ(TryTextToDate(QStringLiteral("3.1."), value, true), 1);
    EXPECT_EQ(value, date(2026, 1, 3));
    ASSERT_EQ(TryTextToDate(QStringLiteral("10:30"), value, true), 1);
    EXPECT_DOUBLE_EQ(value, timeOfDay(10, 30));
}

TEST(TryTextToDate, FollowsTheClock) {
    const testsupport::FixedClock clock("2031-07-01 08:00:00");
    TDateTime value = 0;
    ASSERT_EQ(TryTextToDate(QStringLiteral("heute"), value, false), 1);
    EXPECT_EQ(value, date(2031, 7, 1));
    // the window now ends in 2081
    ASSERT_EQ(TryTextToDate(QStringLiteral("1.1.80"), value, false), 1);
    EXPECT_EQ(value, date(2080, 1, 1));
    ASSERT_EQ(TryTextToDate(QStringLiteral("1.1.81"), value, false), 1);
    EXPECT_EQ(value, date(1981, 1, 1));
}

TEST(TryTextToDate, NestingOfBasesIsBounded) {
    const testsupport::FixedClock clock(Now);
    const auto nested = [](int depth) -> QString {
        return QString(QStringLiteral("EndOfMonth(")).repeated(depth) + QStringLiteral("heute") +
               QString(QLatin1Char(')')).repeated(depth);
    };
    TDateTime value = 0;
    ASSERT_EQ(TryTextToDate(nested(10), value, false), 1);
    EXPECT_EQ(value, date(2026, 3, 31));
    EXPECT_EQ(TryTextToDate(nested(100000), value, false), 0);
    EXPECT_EQ(TryTextToDate(QString(QLatin1Char('(')).repeated(100000), value, false), 0);
}

TEST(DateWordValue, KnowsOnlyTheDateWords) {
    const testsupport::FixedClock clock(Now);
    TDateTime value = -1;
    ASSERT_EQ(DateWordValue(QStringLiteral("EndOfMonth(1.2.2026)"), value, false), 1);
    EXPECT_EQ(value, date(2026, 2, 28));
    EXPECT_EQ(DateWordValue(QStringLiteral("Morgen"), value, false), 0);
    EXPECT_EQ(DateWordValue(QString(), value, false), 0);
}

TEST(DayMonthWords, MonthsInGermanAndEnglishWeekdaysWithoutMonth) {
    ASSERT_NE(FindDayMonthWord(QStringLiteral("JÄNNER")), nullptr);
    EXPECT_EQ(FindDayMonthWord(QStringLiteral("JÄNNER"))->Month, 1);
    EXPECT_EQ(FindDayMonthWord(QStringLiteral("feber"))->Month, 2);
    EXPECT_EQ(FindDayMonthWord(QStringLiteral("October"))->Month, 10);
    ASSERT_NE(FindDayMonthWord(QStringLiteral("sonntag")), nullptr);
    EXPECT_EQ(FindDayMonthWord(QStringLiteral("sonntag"))->Month, 0);
    EXPECT_EQ(FindDayMonthWord(QStringLiteral("sonntag"))->Value, 7);
    EXPECT_EQ(FindDayMonthWord(QStringLiteral("Jan")), nullptr);
}

struct IsoCase {
    const char* text;
    bool utc;
    TDateTime expected;
};

void PrintTo(const IsoCase& c, std::ostream* os) {
    *os << c.text << (c.utc ? " as UTC" : "");
}

class ISO8601Reads : public ::testing::TestWithParam<IsoCase> {};

TEST_P(ISO8601Reads, DateTimeAndZone) {
    EXPECT_DOUBLE_EQ(ISO8601TextToDate(QString::fromLatin1(GetParam().text), GetParam().utc, -1),
                     GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Standard, ISO8601Reads,
    ::testing::Values(
        IsoCase{"2026-03-18", false, date(2026, 3, 18)}, IsoCase{"20260318", false, date(2026, 3, 18)},
        IsoCase{"2026-03", false, date(2026, 3, 1)}, IsoCase{"2026", false, date(2026, 1, 1)},
        IsoCase{"2026-W12-3", false, date(2026, 3, 18)}, IsoCase{"2026W123", false, date(2026, 3, 18)},
        IsoCase{"2026-W12", false, date(2026, 3, 16)}, IsoCase{"2026-077", false, date(2026, 3, 18)},
        IsoCase{"2026077", false, date(2026, 3, 18)},
        IsoCase{"2026-03-18T14:30", false, dateTime(2026, 3, 18, 14, 30)},
        IsoCase{"2026-03-18T14", false, dateTime(2026, 3, 18, 14, 0)},
        IsoCase{"2026-03-18T14:30:15.250", false, dateTime(2026, 3, 18, 14, 30, 15, 250)},
        IsoCase{"2026-03-18T14:30:15,5", false, dateTime(2026, 3, 18, 14, 30, 15, 500)},
        IsoCase{"2026-03-18T14:30.5", false, dateTime(2026, 3, 18, 14, 30, 30)},
        IsoCase{"20260318T143015", false, dateTime(2026, 3, 18, 14, 30, 15)},
        IsoCase{"2026-03-18 14:30", false, dateTime(2026, 3, 18, 14, 30)},
        IsoCase{" 2026-03-18T14:30:00 ", false, dateTime(2026, 3, 18, 14, 30)},
        // roll-over into the next day and hour
        IsoCase{"2026-03-18T24:00:00", false, date(2026, 3, 19)},
        IsoCase{"2026-03-18T23:60", false, date(2026, 3, 19)},
        IsoCase{"2026-12-31T24:00", false, date(2027, 1, 1)},
        IsoCase{"2026-03-18T10:60:00", false, dateTime(2026, 3, 18, 11, 0)},
        // the zone counts only when UTC is asked for
        IsoCase{"2026-03-18T10:00:00+01:00", false, dateTime(2026, 3, 18, 10, 0)},
        IsoCase{"2026-03-18T10:00:00+01:00", true, dateTime(2026, 3, 18, 9, 0)},
        IsoCase{"2026-03-18T00:30:00+0200", true, dateTime(2026, 3, 17, 22, 30)},
        IsoCase{"2026-03-18T10:00:00+02", true, dateTime(2026, 3, 18, 8, 0)},
        IsoCase{"2026-03-18T10:00:00Z", true, dateTime(2026, 3, 18, 10, 0)},
        IsoCase{"2026-03-18T20:00:00-05:00", true, dateTime(2026, 3, 19, 1, 0)},
        IsoCase{"2026-03-18T20:00", true, dateTime(2026, 3, 18, 20, 0)},
        // failures give the default
        IsoCase{"", false, -1}, IsoCase{"26", false, -1}, IsoCase{"abcd", false, -1},
        IsoCase{"2026-02-30", true, -1}, IsoCase{"2026-13-01", false, -1}, IsoCase{"2026-00-10", false, -1},
        IsoCase{"2026-366", false, -1}, IsoCase{"2026-W54", false, -1}, IsoCase{"2026-W12-8", false, -1},
        IsoCase{"2026-03-18T25:00", false, -1}, IsoCase{"2026-03-18T10:61", false, -1},
        IsoCase{"2026-03-18T10:00+24:00", true, -1}, IsoCase{"2026-03-18x", false, -1},
        IsoCase{"2026-03-18T", false, -1}, IsoCase{"2026-03-18T10:00:00.", false, -1},
        IsoCase{"18.03.2026", false, -1}, IsoCase{"0000-01-01", false, -1}, IsoCase{"2026-0318", false, -1},
        IsoCase{"202603", false, -1}));

TEST(ISO8601ToDate, RaisesForShortText) {
    try {
        ISO8601ToDate(QStringLiteral("26"), false);
        FAIL() << "no exception";
    } catch (const EConvertError& error) {
        EXPECT_EQ(error.message(), QStringLiteral("Ungültiger Datums-String: 26"));
    }
    EXPECT_THROW(ISO8601ToDate(QStringLiteral("2026-02-30"), true), EConvertError);
}

struct FormatCase {
    const char16_t* format;
    const char16_t* expected;
};

class FormatDateTimeTextWrites : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatDateTimeTextWrites, ByFormatLetters) {
    const TDateTime value = dateTime(2026, 1, 3, 14, 5, 9, 7);
    EXPECT_EQ(FormatDateTimeText(QString::fromUtf16(GetParam().format), value),
              QString::fromUtf16(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Letters, FormatDateTimeTextWrites,
    ::testing::Values(FormatCase{u"dd. mmm yyyy", u"03. Jän 2026"}, FormatCase{u"d.m.yy", u"3.1.26"},
                      FormatCase{u"dd/mm/yyyy", u"03.01.2026"}, FormatCase{u"ddd dddd", u"Sa Samstag"},
                      FormatCase{u"mmmm", u"Jänner"}, FormatCase{u"ddddd", u"03.01.2026"},
                      FormatCase{u"dddddd", u"Samstag, 3. Jänner 2026"}, FormatCase{u"hh:mm:ss", u"14:05:09"},
                      FormatCase{u"h:m:s.zzz", u"14:5:9.007"}, FormatCase{u"hh:nn", u"14:05"},
                      FormatCase{u"t", u"14:05"}, FormatCase{u"tt", u"14:05:09"},
                      FormatCase{u"h am/pm", u"2 pm"}, FormatCase{u"hh A/P", u"02 P"},
                      FormatCase{u"c", u"03.01.2026 14:05:09"}, FormatCase{u"hh\"h\" 'mm'", u"14h mm"},
                      FormatCase{u"yyyymmdd", u"20260103"}));

TEST(FormatDateTimeText, DateAloneLeavesTheTimeOut) {
    EXPECT_EQ(FormatDateTimeText(QStringLiteral("c"), date(2026, 3, 18)), QStringLiteral("18.03.2026"));
    EXPECT_EQ(FormatDateTimeText(QStringLiteral("mmm"), date(2026, 3, 18)), QStringLiteral("Mär"));
}

TEST(FormatDateTimeText, RaisesBeyondTheCalendar) {
    EXPECT_THROW(FormatDateTimeText(QStringLiteral("dddd"), 1e300), EConvertError);
    EXPECT_THROW(FormatDateTimeText(QStringLiteral("dddd"), std::nan("")), EConvertError);
    EXPECT_EQ(FormatDateTimeText(QStringLiteral("dd.mm.yyyy"), date(9999, 12, 31)),
              QStringLiteral("31.12.9999"));
    EXPECT_EQ(FormatDateTimeText(QStringLiteral("dd.mm.yyyy"), date(1, 1, 1)), QStringLiteral("01.01.0001"));
}

} // namespace
