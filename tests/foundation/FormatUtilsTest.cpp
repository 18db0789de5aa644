#include "FormatUtils.h"

#include "FixedClock.h"
#include "TDateTimeUtils.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

struct TruthCase {
    const char16_t* text;
    bool expected;
};

class IsTrueTextReads : public ::testing::TestWithParam<TruthCase> {};

TEST_P(IsTrueTextReads, TheTruthList) {
    EXPECT_EQ(IsTrueText(QString::fromUtf16(GetParam().text)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, IsTrueTextReads,
    ::testing::Values(TruthCase{u"J", true}, TruthCase{u"ja", true}, TruthCase{u"X", true},
                      TruthCase{u"-1", true}, TruthCase{u"wahr", true}, TruthCase{u"y", true},
                      TruthCase{u"Yes", true}, TruthCase{u"1", true}, TruthCase{u"t", true},
                      TruthCase{u"TRUE", true}, TruthCase{u"W", true}, TruthCase{u"e", true},
                      TruthCase{u"Ein", true}, TruthCase{u"N", false}, TruthCase{u"", false},
                      TruthCase{u"0", false}, TruthCase{u"Nein", false}, TruthCase{u" J", false},
                      TruthCase{u"false", false}, TruthCase{u"2", false}));

struct FloatCase {
    const char16_t* text;
    int result;
    double value;
};

void PrintTo(const FloatCase& c, std::ostream* os) {
    *os << '"' << QString::fromUtf16(c.text).toStdString() << '"';
}

class TryTextToFloatReads : public ::testing::TestWithParam<FloatCase> {};

TEST_P(TryTextToFloatReads, AsPeopleTypeNumbers) {
    double value = -99;
    EXPECT_EQ(TryTextToFloat(QString::fromUtf16(GetParam().text), value), GetParam().result);
    EXPECT_DOUBLE_EQ(value, GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, TryTextToFloatReads,
    ::testing::Values(FloatCase{u"1.234,56", 1, 1234.56}, FloatCase{u"12,5 kg", 1, 12.5},
                      FloatCase{u"42", 1, 42}, FloatCase{u"  42  ", 1, 42}, FloatCase{u"-12,5", 1, -12.5},
                      FloatCase{u"-,5", 1, -0.5}, FloatCase{u",5", 1, 0.5}, FloatCase{u"1.000.000", 1, 1e6},
                      FloatCase{u"12,", 1, 12}, FloatCase{u"3e5", 1, 3}, FloatCase{u"7%", 1, 7},
                      FloatCase{u"-0", 1, 0},
                      // thousands dots go before the scan, so a leading one only vanishes
                      FloatCase{u".5", 1, 5},
                      // failures and empty texts give 0
                      FloatCase{u"abc", 0, 0}, FloatCase{u"-", 0, 0}, FloatCase{u",", 0, 0},
                      FloatCase{u"-a", 0, 0}, FloatCase{u"-,a", 0, 0}, FloatCase{u"-.5", 0, 0},
                      FloatCase{u"1,2,3", 0, 0}, FloatCase{u"12:30", 0, 0}, FloatCase{u"+5", 0, 0},
                      FloatCase{u"=1,5*2", 0, 0}, FloatCase{u"  ", 2, 0}, FloatCase{u"", 2, 0},
                      FloatCase{u"\t\n", 2, 0}));

// Multiplies "a*b" or reads a plain number; anything else does not reckon.
bool multiplyingEvaluator(const QString& expression, double& result) {
    const QStringList factors = expression.split(QLatin1Char('*'));
    result = 1;
    for (const QString& factor : factors) {
        bool ok = false;
        result *= factor.toDouble(&ok);
        if (!ok)
            return false;
    }
    return true;
}

class WithEvaluator : public ::testing::Test {
protected:
    void SetUp() override { RegisterTextEvaluator(multiplyingEvaluator); }
    void TearDown() override { RegisterTextEvaluator({}); }
};

TEST_F(WithEvaluator, ReckonsTextsBeginningWithEquals) {
    double value = 0;
    EXPECT_EQ(TryTextToFloat(QStringLiteral("=1,5*2"), value), 1);
    EXPECT_DOUBLE_EQ(value, 3);
    EXPECT_EQ(TryTextToFloat(QStringLiteral(" =1.000*2 "), value), 1);
    EXPECT_DOUBLE_EQ(value, 2000);
    EXPECT_EQ(TryTextToFloat(QStringLiteral("=x"), value), 0);
    EXPECT_EQ(value, 0);
    // without "=" the evaluator is not asked
    EXPECT_EQ(TryTextToFloat(QStringLiteral("2*3"), value), 1);
    EXPECT_DOUBLE_EQ(value, 2);
}

TEST_F(WithEvaluator, AnEvaluatorThatRaisesGivesNoNumber) {
    RegisterTextEvaluator([](const QString&, double&) -> bool { throw std::runtime_error("bad"); });
    double value = -1;
    EXPECT_EQ(TryTextToFloat(QStringLiteral("=1+"), value), 0);
    EXPECT_EQ(value, 0);
}

TEST(TryTextToCurrency, ReadsAmountsToFourDecimals) {
    Currency value{};
    EXPECT_EQ(TryTextToCurrency(QStringLiteral("1.234,5678 EUR"), value), 1);
    EXPECT_EQ(value.scaled, 12345678);
    EXPECT_EQ(TryTextToCurrency(QStringLiteral("abc"), value), 0);
    EXPECT_EQ(value.scaled, 0);
    EXPECT_EQ(TryTextToCurrency(QStringLiteral(" "), value), 2);
    // far beyond what an amount holds
    EXPECT_EQ(TryTextToCurrency(QStringLiteral("9").repeated(30), value), 0);
    EXPECT_EQ(value.scaled, 0);
}

TEST(PlainEntries, GiveZeroOnFailure) {
    const testsupport::FixedClock clock("2026-03-18 10:30:00");
    EXPECT_DOUBLE_EQ(TextToFloat(QStringLiteral("1.234,56")), 1234.56);
    EXPECT_EQ(TextToFloat(QStringLiteral("abc")), 0);
    EXPECT_EQ(TextToDate(QStringLiteral("3.1.26")), TDateTimeUtils::EncodeDate(2026, 1, 3));
    EXPECT_EQ(TextToDate(QStringLiteral("Feber")), TDateTimeUtils::EncodeDate(2026, 2, 18));
    EXPECT_EQ(TextToDate(QStringLiteral("gestern")), 0);
}

TEST(VarToDoubleDef, NumbersAndDatesOnly) {
    EXPECT_EQ(VarToDoubleDef(Variant(qint32(7)), -1), 7);
    EXPECT_EQ(VarToDoubleDef(Variant(qint64(1) << 40), -1), double(qint64(1) << 40));
    EXPECT_EQ(VarToDoubleDef(Variant(2.5), -1), 2.5);
    EXPECT_EQ(VarToDoubleDef(Variant(Currency::fromDouble(1.25)), -1), 1.25);
    EXPECT_EQ(VarToDoubleDef(Variant::fromDate(46099.5), -1), 46099.5);
    EXPECT_EQ(VarToDoubleDef(Variant(), -1), -1);
    EXPECT_EQ(VarToDoubleDef(Variant::null(), -1), -1);
    EXPECT_EQ(VarToDoubleDef(Variant(QStringLiteral("12")), -1), -1);
    EXPECT_EQ(VarToDoubleDef(Variant(true), -1), -1);
}

struct KindCase {
    int kind;
    Variant value;
    const char16_t* expected;
};

void PrintTo(const KindCase& c, std::ostream* os) {
    *os << "kind " << c.kind;
}

class FormatTextValueWrites : public ::testing::TestWithParam<KindCase> {};

TEST_P(FormatTextValueWrites, ByKind) {
    EXPECT_EQ(FormatTextValue(QStringLiteral("<%s>"), GetParam().kind, GetParam().value),
              QString::fromUtf16(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, FormatTextValueWrites,
    ::testing::Values(KindCase{FormatKind::UpperCase, QStringLiteral("Jänner"), u"JÄNNER"},
                      KindCase{FormatKind::LowerCase, QStringLiteral("Jänner"), u"jänner"},
                      KindCase{FormatKind::YesNoLetter, QStringLiteral("x"), u"J"},
                      KindCase{FormatKind::YesNoLetter, QStringLiteral("nein"), u"N"},
                      KindCase{FormatKind::YesNoWord, QStringLiteral("wahr"), u"Ja"},
                      KindCase{FormatKind::YesNoWord, QString(), u"Nein"},
                      KindCase{FormatKind::CallersFormat, QStringLiteral("abc"), u"<abc>"},
                      KindCase{FormatKind::WholeNumber, QStringLiteral("abc"), u"abc"}));

class FormatNumberValueWrites : public ::testing::TestWithParam<KindCase> {};

TEST_P(FormatNumberValueWrites, ByKind) {
    EXPECT_EQ(FormatNumberValue(QStringLiteral("%.1f"), GetParam().kind, GetParam().value, 3),
              QString::fromUtf16(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, FormatNumberValueWrites,
    ::testing::Values(KindCase{FormatKind::WholeNumber, 1234567.89, u"1.234.568"},
                      KindCase{FormatKind::WholeNumber, qint32(-1234), u"-1.234"},
                      KindCase{FormatKind::Decimals, 1234567.89, u"1.234.567,890"},
                      KindCase{FormatKind::DecimalsAlso, 0.5, u"0,500"},
                      KindCase{FormatKind::Int64Digits, 1234567.5, u"1234568"},
                      KindCase{FormatKind::Int64DigitsAlso, qint64(9007199254740993), u"9007199254740993"},
                      KindCase{FormatKind::Scientific, 1234.5, u"1,23450000000000E+003"},
                      KindCase{FormatKind::CallersFormat, 1234.56, u"1234,6"},
                      KindCase{FormatKind::UpperCase, 1234.5, u"1234,5"},
                      KindCase{FormatKind::WholeNumber, QStringLiteral("abc"), u"#Fehler#"}));

TEST(FormatNumberValue, NegativeDecimalsCountAsNone) {
    EXPECT_EQ(FormatNumberValue(QString(), FormatKind::Decimals, 1234.5, -2), QStringLiteral("1.235"));
}

class FormatDateValueWrites : public ::testing::TestWithParam<KindCase> {};

TEST_P(FormatDateValueWrites, ByKindInFullMode) {
    EXPECT_EQ(FormatDateValue(QStringLiteral("yyyy-mm-dd hh:nn"), GetParam().kind, GetParam().value, false),
              QString::fromUtf16(GetParam().expected));
}

const TDateTime JanuaryThird = TDateTimeUtils::EncodeDate(2026, 1, 3);
const TDateTime JanuaryThirdAfternoon = JanuaryThird + 14.5 / 24;

INSTANTIATE_TEST_SUITE_P(
    Kinds, FormatDateValueWrites,
    ::testing::Values(
        KindCase{FormatKind::Date, Variant::fromDate(JanuaryThirdAfternoon), u"03.01.2026"},
        KindCase{FormatKind::DateMonthName, Variant::fromDate(JanuaryThird), u"03. Jän 2026"},
        KindCase{FormatKind::DateAlso, Variant::fromDate(JanuaryThird), u"03.01.2026"},
        KindCase{FormatKind::SystemShortDate, Variant::fromDate(JanuaryThird), u"03.01.2026"},
        KindCase{FormatKind::SystemLongDate, Variant::fromDate(JanuaryThird), u"Samstag, 3. Jänner 2026"},
        KindCase{FormatKind::DateTime, Variant::fromDate(JanuaryThirdAfternoon), u"03.01.2026 14:30:00"},
        KindCase{FormatKind::DateTime, Variant::fromDate(JanuaryThird), u"03.01.2026"},
        KindCase{FormatKind::DateTimeText, Variant::fromDate(JanuaryThirdAfternoon), u"03.01.2026 14:30:00"},
        KindCase{FormatKind::CallersFormat, Variant::fromDate(JanuaryThirdAfternoon), u"2026-01-03 14:30"},
        KindCase{FormatKind::UpperCase, Variant::fromDate(JanuaryThird), u"03.01.2026"},
        KindCase{99, JanuaryThird, u"03.01.2026"},
        KindCase{FormatKind::Date, QStringLiteral("3.1.2026"), u"03.01.2026"},
        // empty, zero and below give nothing
        KindCase{FormatKind::Date, Variant(), u""}, KindCase{FormatKind::Date, Variant::null(), u""},
        KindCase{FormatKind::Date, QString(), u""}, KindCase{FormatKind::Date, 0.0, u""},
        KindCase{FormatKind::Date, Variant::fromDate(-5), u""},
        KindCase{FormatKind::Date, QStringLiteral("kein Datum"), u"#Fehler#"},
        KindCase{FormatKind::Date, 1e300, u"#Fehler#"},
        KindCase{FormatKind::DateTimeText, 1e300, u"#Fehler#"}));

TEST(FormatDateValue, ShortModeKeepsMonthNameOut) {
    EXPECT_EQ(FormatDateValue(QString(), FormatKind::DateMonthName, Variant::fromDate(JanuaryThird), true),
              QStringLiteral("03.01.2026"));
}

class FormatValueWrites : public ::testing::TestWithParam<KindCase> {};

TEST_P(FormatValueWrites, ByTheValuesKind) {
    EXPECT_EQ(FormatValue(QStringLiteral("[%s]"), GetParam().kind, GetParam().value, 1, false),
              QString::fromUtf16(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Values, FormatValueWrites,
    ::testing::Values(KindCase{FormatKind::WholeNumber, qint32(12345), u"12.345"},
                      KindCase{FormatKind::Decimals, qint64(12345), u"12.345,0"},
                      KindCase{FormatKind::Decimals, 2.25, u"2,3"},
                      KindCase{FormatKind::Decimals, Currency::fromDouble(2.25), u"2,3"},
                      KindCase{FormatKind::DateTimeText, JanuaryThirdAfternoon, u"03.01.2026 14:30:00"},
                      KindCase{FormatKind::UpperCase, QStringLiteral("abc"), u"ABC"},
                      KindCase{FormatKind::CallersFormat, QStringLiteral("abc"), u"[abc]"},
                      KindCase{FormatKind::YesNoWord, Variant::fromAnsiString(QStringLiteral("J")), u"Ja"},
                      KindCase{FormatKind::UpperCase, true, u"True"},
                      KindCase{FormatKind::UpperCase, false, u"False"},
                      KindCase{FormatKind::DateMonthName, Variant::fromDate(JanuaryThird), u"03. Jän 2026"},
                      KindCase{FormatKind::Date, Variant::fromDate(0), u"Unbekannter Wert"},
                      KindCase{FormatKind::Date, Variant(), u"Unbekannter Wert"},
                      KindCase{FormatKind::Date, Variant::null(), u"Unbekannter Wert"},
                      KindCase{FormatKind::Date, QByteArray("x"), u"Unbekannter Wert"}));

} // namespace
