#include "Variant.h"

#include "TDateTimeUtils.h"

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>

using namespace norvik;
using namespace Qt::Literals::StringLiterals;

namespace {

// a narrow string, as the database driver and old files deliver text
Variant ansi(const QString& text) {
    return Variant::fromAnsiString(text);
}

template <class Error> bool raises(const std::function<void()>& conversion) {
    try {
        conversion();
    } catch (const Error&) {
        return true;
    }
    return false;
}

} // namespace

TEST(VariantTest, UnassignedReadsAsZeroAndEmptyText) {
    const Variant v;
    EXPECT_EQ(v.type(), VarType::Unassigned);
    EXPECT_EQ(v.toInt(), 0);
    EXPECT_EQ(v.toString(), QString());
    EXPECT_FALSE(v.toBool());
}

TEST(VariantTest, UnassignedGivesEveryTypesZero) {
    const Variant v;
    EXPECT_TRUE(v.isUnassigned());
    EXPECT_TRUE(v.isEmpty());
    EXPECT_FALSE(v.isNull());
    EXPECT_EQ(v.toInt64(), 0);
    EXPECT_EQ(v.toDouble(), 0.0);
    EXPECT_EQ(v.toCurrency(), Currency{});
    EXPECT_EQ(v.toDate(), 0.0);
    EXPECT_TRUE(v.toBytes().isEmpty());
}

TEST(VariantTest, NullConvertsToNothing) {
    const Variant v = Variant::null();
    EXPECT_TRUE(v.isNull());
    EXPECT_TRUE(v.isEmpty());
    EXPECT_FALSE(v.isUnassigned());
    const std::vector<std::pair<const char*, std::function<void()>>> conversions = {
        {"toBool", [&] { v.toBool(); }},         {"toInt", [&] { v.toInt(); }},
        {"toInt64", [&] { v.toInt64(); }},       {"toDouble", [&] { v.toDouble(); }},
        {"toCurrency", [&] { v.toCurrency(); }}, {"toDate", [&] { v.toDate(); }},
        {"toString", [&] { v.toString(); }},     {"toBytes", [&] { v.toBytes(); }},
    };
    for (const auto& [name, conversion] : conversions) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(raises<EVariantTypeCastError>(conversion));
    }
}

TEST(VariantTest, KindsOfTheConstructors) {
    const struct {
        Variant value;
        VarType type;
    } cases[] = {
        {Variant(true), VarType::Boolean},
        {Variant(qint32(1)), VarType::Integer},
        {Variant(qint64(1)), VarType::Int64},
        {Variant(1.0), VarType::Double},
        {Variant(Currency{1}), VarType::Currency},
        {Variant::fromDate(1.0), VarType::Date},
        {ansi(u"x"_s), VarType::String},
        {Variant(u"x"_s), VarType::UString},
        {Variant(u"x"), VarType::UString},
        {Variant(QByteArray("x")), VarType::Bytes},
        {Variant(TJSONVariantData{}), VarType::JSON},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(Variant::typeName(c.type).toStdString());
        EXPECT_EQ(c.value.type(), c.type);
    }
}

TEST(VariantTest, TextToNumberUsesTheDecimalComma) {
    const struct {
        QString text;
        double number;
    } cases[] = {
        {u"1,5"_s, 1.5},   {u"-1,5"_s, -1.5},     {u"+2"_s, 2.0},    {u" 12 "_s, 12.0},
        {u"1E20"_s, 1e20}, {u"1,5e-3"_s, 0.0015}, {u",5"_s, 0.5},    {u"7,"_s, 7.0},
        {u"0"_s, 0.0},     {u"True"_s, -1.0},     {u"false"_s, 0.0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        EXPECT_DOUBLE_EQ(Variant(c.text).toDouble(), c.number);
        EXPECT_DOUBLE_EQ(ansi(c.text).toDouble(), c.number);
    }
}

TEST(VariantTest, TextThatIsNoNumberRaisesTheCastError) {
    // the point is no decimal separator here, and thousands separators are not read
    const QString cases[] = {u"1.5"_s, u"abc"_s, u""_s,  u"  "_s,    u"1.000,5"_s, u"1,5,5"_s,
                             u"1E"_s,  u"E5"_s,  u"-"_s, u"12abc"_s, u"1 5"_s};
    for (const QString& text : cases) {
        SCOPED_TRACE(text.toStdString());
        EXPECT_TRUE(raises<EVariantTypeCastError>([&] { Variant(text).toDouble(); }));
        EXPECT_TRUE(raises<EVariantTypeCastError>([&] { Variant(text).toInt(); }));
        EXPECT_TRUE(raises<EVariantTypeCastError>([&] { ansi(text).toInt64(); }));
        EXPECT_TRUE(raises<EVariantTypeCastError>([&] { Variant(text).toCurrency(); }));
    }
}

TEST(VariantTest, CastErrorNamesBothKinds) {
    try {
        Variant(u"abc"_s).toInt();
        FAIL() << "no error raised";
    } catch (const EVariantTypeCastError& error) {
        EXPECT_EQ(error.message(),
                  u"Could not convert variant of type (UnicodeString) into type (Integer)"_s);
    }
    try {
        ansi(u"abc"_s).toDouble();
        FAIL() << "no error raised";
    } catch (const EVariantTypeCastError& error) {
        EXPECT_EQ(error.message(), u"Could not convert variant of type (String) into type (Double)"_s);
    }
}

TEST(VariantTest, TextToWholeNumber) {
    const struct {
        QString text;
        qint64 number;
    } cases[] = {
        {u"42"_s, 42},
        {u"  -42"_s, -42},
        {u"$FF"_s, 255},
        {u"0x10"_s, 16},
        {u"-$10"_s, -16},
        {u"9223372036854775807"_s, std::numeric_limits<qint64>::max()},
        {u"-9223372036854775808"_s, std::numeric_limits<qint64>::min()},
        // a fraction is rounded as a double would be
        {u"2,5"_s, 2},
        {u"3,5"_s, 4},
        {u"True"_s, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        EXPECT_EQ(Variant(c.text).toInt64(), c.number);
    }
}

TEST(VariantTest, BooleanFromText) {
    const struct {
        QString text;
        bool truth;
    } cases[] = {
        {u"True"_s, true},   {u"TRUE"_s, true},   {u"true"_s, true}, {u" True "_s, true},
        {u"False"_s, false}, {u"false"_s, false}, {u"0"_s, false},   {u"1"_s, true},
        {u"-1"_s, true},     {u"0,0"_s, false},   {u"2,5"_s, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        EXPECT_EQ(Variant(c.text).toBool(), c.truth);
        EXPECT_EQ(ansi(c.text).toBool(), c.truth);
    }
    for (const QString& text : {u"Yes"_s, u"J"_s, u""_s, u"1.5"_s}) {
        SCOPED_TRACE(text.toStdString());
        EXPECT_TRUE(raises<EVariantTypeCastError>([&] { Variant(text).toBool(); }));
    }
}

TEST(VariantTest, BooleanAsNumberIsMinusOne) {
    EXPECT_EQ(Variant(true).toInt(), -1);
    EXPECT_EQ(Variant(true).toInt64(), -1);
    EXPECT_EQ(Variant(true).toDouble(), -1.0);
    EXPECT_EQ(Variant(true).toCurrency(), Currency{-10000});
    EXPECT_EQ(Variant(false).toInt(), 0);
    EXPECT_EQ(Variant(true).toString(), u"True"_s);
    EXPECT_EQ(Variant(false).toString(), u"False"_s);
}

TEST(VariantTest, NumbersAsBoolean) {
    EXPECT_TRUE(Variant(qint32(-3)).toBool());
    EXPECT_FALSE(Variant(qint64(0)).toBool());
    EXPECT_TRUE(Variant(0.1).toBool());
    EXPECT_FALSE(Variant(Currency{}).toBool());
    EXPECT_TRUE(Variant(Currency{1}).toBool());
}

TEST(VariantTest, DoubleToWholeNumberRoundsHalfToEven) {
    const struct {
        double value;
        qint64 rounded;
    } cases[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {3.5, 4},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {2.4999, 2},
        {2.5001, 3},
        {-2.5001, -3},
        {1e15 + 0.5, qint64(1e15)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value);
        EXPECT_EQ(Variant(c.value).toInt64(), c.rounded);
        EXPECT_EQ(Variant::fromDate(c.value).toInt64(), c.rounded);
        if (std::fabs(c.value) < 2e9) {
            EXPECT_EQ(Variant(c.value).toInt(), c.rounded);
        }
    }
}

TEST(VariantTest, CurrencyToWholeNumberRoundsHalfToEven) {
    EXPECT_EQ(Variant(Currency{25000}).toInt(), 2);
    EXPECT_EQ(Variant(Currency{35000}).toInt(), 4);
    EXPECT_EQ(Variant(Currency{-25000}).toInt64(), -2);
    EXPECT_EQ(Variant(Currency{25001}).toInt(), 3);
}

TEST(VariantTest, NumbersOutOfRangeOverflow) {
    const std::vector<std::pair<const char*, std::function<void()>>> conversions = {
        {"2^31 as double to Integer", [] { Variant(2147483648.0).toInt(); }},
        {"-2^31-1 as double to Integer", [] { Variant(-2147483649.0).toInt(); }},
        {"2^40 to Integer", [] { Variant(qint64(1) << 40).toInt(); }},
        {"text 2^31 to Integer", [] { Variant(u"2147483648"_s).toInt(); }},
        {"1e19 to Int64", [] { Variant(1e19).toInt64(); }},
        {"-1e19 to Int64", [] { Variant(-1e19).toInt64(); }},
        {"text 2^63 to Int64", [] { Variant(u"9223372036854775808"_s).toInt64(); }},
        {"1e16 to Currency", [] { Variant(1e16).toCurrency(); }},
        {"2^60 to Currency", [] { Variant(qint64(1) << 60).toCurrency(); }},
        {"-2^60 to Currency", [] { Variant(-(qint64(1) << 60)).toCurrency(); }},
        {"infinity to Int64", [] { Variant(std::numeric_limits<double>::infinity()).toInt64(); }},
    };
    for (const auto& [name, conversion] : conversions) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(raises<EVariantOverflowError>(conversion));
    }
    EXPECT_EQ(Variant(2147483647.0).toInt(), std::numeric_limits<qint32>::max());
    EXPECT_EQ(Variant(-2147483648.0).toInt(), std::numeric_limits<qint32>::min());
    EXPECT_EQ(Variant(qint64(922337203685477)).toCurrency().scaled, 9223372036854770000);
    EXPECT_EQ(Variant(qint64(-922337203685477)).toCurrency().scaled, -9223372036854770000);
}

TEST(VariantTest, NaNIsNoWholeNumber) {
    EXPECT_TRUE(raises<EVariantError>([] { Variant(std::nan("")).toInt64(); }));
}

TEST(VariantTest, CurrencyKeepsFourDecimals) {
    const struct {
        Variant value;
        qint64 scaled;
    } cases[] = {
        {Variant(1.23456), 12346},     {Variant(1.23454), 12345},
        {Variant(-1.23456), -12346},   {Variant(qint32(3)), 30000},
        {Variant(qint64(-7)), -70000}, {Variant(u"1,5"_s), 15000},
        {ansi(u"0,0001"_s), 1},        {Variant(0.00004), 0},
        {Variant(Currency{42}), 42},   {Variant(u"-12,3456"_s), -123456},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value.toString().toStdString());
        EXPECT_EQ(c.value.toCurrency().scaled, c.scaled);
    }
    EXPECT_EQ(Currency::fromDouble(2.5).toDouble(), 2.5);
}

TEST(VariantTest, CurrencyAsText) {
    const struct {
        qint64 scaled;
        QString text;
    } cases[] = {
        {12345, u"1,2345"_s},
        {10001, u"1,0001"_s},
        {-5, u"-0,0005"_s},
        {10000, u"1"_s},
        {15000, u"1,5"_s},
        {0, u"0"_s},
        {123456789012340000, u"12345678901234"_s},
        {std::numeric_limits<qint64>::max(), u"922337203685477,5807"_s},
        {std::numeric_limits<qint64>::min(), u"-922337203685477,5808"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.scaled);
        EXPECT_EQ(Variant(Currency{c.scaled}).toString(), c.text);
    }
}

TEST(VariantTest, FloatTextInGeneralFormat) {
    const struct {
        double value;
        QString text;
    } cases[] = {
        {0.5, u"0,5"_s},
        {-1.5, u"-1,5"_s},
        {100.0, u"100"_s},
        {0.0, u"0"_s},
        {-0.0, u"0"_s},
        {1e20, u"1E20"_s},
        {1e-7, u"1E-7"_s},
        {1.5e-7, u"1,5E-7"_s},
        {-2.5e20, u"-2,5E20"_s},
        {0.0001, u"0,0001"_s},
        {1.0 / 3.0, u"0,333333333333333"_s},
        {2.0 / 3.0, u"0,666666666666667"_s},
        {0.1 + 0.2, u"0,3"_s},
        {123456789012345.0, u"123456789012345"_s},
        {1e14, u"100000000000000"_s},
        {1e15, u"1E15"_s},
        {1234567890123456.0, u"1,23456789012346E15"_s},
        {44190.5, u"44190,5"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        EXPECT_EQ(Variant(c.value).toString(), c.text);
    }
    EXPECT_EQ(FloatToTextGeneral(0.5, 15, QLatin1Char('.')), u"0.5"_s);
    EXPECT_EQ(Variant(std::numeric_limits<double>::infinity()).toString(), u"INF"_s);
    EXPECT_EQ(Variant(-std::numeric_limits<double>::infinity()).toString(), u"-INF"_s);
    EXPECT_EQ(Variant(std::nan("")).toString(), u"NAN"_s);
}

TEST(VariantTest, FloatTextReadsBackToTheSameNumber) {
    for (const double value : {0.5, -1.25, 1e20, 1e-7, 1.0 / 3.0, 123456.789, 44190.75}) {
        SCOPED_TRACE(value);
        EXPECT_NEAR(Variant(Variant(value).toString()).toDouble(), value, std::fabs(value) * 1e-14);
    }
}

TEST(VariantTest, WholeNumbersAsText) {
    EXPECT_EQ(Variant(qint32(-42)).toString(), u"-42"_s);
    EXPECT_EQ(Variant(std::numeric_limits<qint64>::min()).toString(), u"-9223372036854775808"_s);
    EXPECT_EQ(Variant(qint64(1234567890123)).toString(), u"1234567890123"_s);
}

TEST(VariantTest, DateAsText) {
    const TDateTime christmas = TDateTimeUtils::EncodeDate(2020, 12, 24);
    const struct {
        TDateTime value;
        QString text;
    } cases[] = {
        {christmas, u"24.12.2020"_s},
        {christmas + 0.5, u"24.12.2020 12:00:00"_s},
        {christmas + (13 * 3600 + 45 * 60 + 7) / 86400.0, u"24.12.2020 13:45:07"_s},
        {0.0, u"30.12.1899"_s},
        {1.0, u"31.12.1899"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        EXPECT_EQ(Variant::fromDate(c.value).toString(), c.text);
    }
}

TEST(VariantTest, DateFromText) {
    const TDateTime christmas = TDateTimeUtils::EncodeDate(2020, 12, 24);
    EXPECT_EQ(Variant(u"24.12.2020"_s).toDate(), christmas);
    EXPECT_EQ(ansi(u"24.12.2020"_s).toDate(), christmas);
    EXPECT_DOUBLE_EQ(Variant(u"24.12.2020 12:00"_s).toDate(), christmas + 0.5);
    EXPECT_DOUBLE_EQ(Variant(u"24.12.2020 18:00:00"_s).toDate(), christmas + 0.75);
    for (const QString& text : {u"31.02.2020"_s, u"abc"_s, u"2020-12-24"_s, u"24.12.2020 25:00"_s}) {
        SCOPED_TRACE(text.toStdString());
        EXPECT_TRUE(raises<EVariantTypeCastError>([&] { Variant(text).toDate(); }));
    }
}

TEST(VariantTest, DateIsADayCount) {
    const TDateTime christmas = TDateTimeUtils::EncodeDate(2020, 12, 24);
    EXPECT_EQ(christmas, 44189.0);
    EXPECT_EQ(Variant::fromDate(christmas + 0.25).toDouble(), christmas + 0.25);
    EXPECT_EQ(Variant(christmas).toDate(), christmas);
    EXPECT_EQ(Variant(qint32(2)).toDate(), 2.0);
    // and reading text as a double never looks for a date
    EXPECT_TRUE(raises<EVariantTypeCastError>([] { Variant(u"24.12.2020"_s).toDouble(); }));
}

TEST(VariantTest, BytesOnlyAsBytes) {
    const Variant bytes(QByteArray("\x00\x01\xff", 3));
    EXPECT_EQ(bytes.toBytes(), QByteArray("\x00\x01\xff", 3));
    EXPECT_TRUE(raises<EVariantTypeCastError>([&] { bytes.toString(); }));
    EXPECT_TRUE(raises<EVariantTypeCastError>([&] { bytes.toInt(); }));
    EXPECT_TRUE(raises<EVariantTypeCastError>([] { Variant(u"abc"_s).toBytes(); }));
    EXPECT_TRUE(raises<EVariantTypeCastError>([] { Variant(qint32(1)).toBytes(); }));
}

TEST(VariantTest, ReferenceReadsItsTarget) {
    Variant target(qint32(5));
    const Variant reference = Variant::byRef(&target);
    EXPECT_EQ(reference.type(), VarType::ByRef);
    EXPECT_EQ(reference.valueType(), VarType::Integer);
    EXPECT_EQ(reference.refTarget(), &target);
    EXPECT_EQ(reference.toInt(), 5);
    EXPECT_EQ(reference.toString(), u"5"_s);
    target = Variant(u"1,5"_s);
    EXPECT_EQ(reference.toDouble(), 1.5);
    EXPECT_TRUE(reference.isString());
}

TEST(VariantTest, ReferenceToAReference) {
    Variant target(true);
    Variant inner = Variant::byRef(&target);
    const Variant outer = Variant::byRef(&inner);
    EXPECT_EQ(outer.valueType(), VarType::Boolean);
    EXPECT_EQ(outer.toInt(), -1);
    EXPECT_EQ(&outer.deref(), &target);
}

TEST(VariantTest, StrippedReferenceIsACopy) {
    Variant target(qint32(5));
    const Variant copy = Variant::byRef(&target).stripped();
    target = Variant(qint32(6));
    EXPECT_EQ(copy.type(), VarType::Integer);
    EXPECT_EQ(copy.toInt(), 5);
}

TEST(VariantTest, EmptyReferenceConvertsToNothing) {
    const Variant reference = Variant::byRef(nullptr);
    EXPECT_EQ(reference.valueType(), VarType::ByRef);
    EXPECT_TRUE(raises<EVariantTypeCastError>([&] { reference.toInt(); }));
    EXPECT_TRUE(raises<EVariantTypeCastError>([&] { reference.toString(); }));
}

TEST(VariantTest, WritingThroughAReference) {
    Variant target(qint32(1));
    Variant reference = Variant::byRef(&target);
    reference.deref() = Variant(u"changed"_s);
    EXPECT_EQ(target.toString(), u"changed"_s);
}

TEST(VariantTest, JSONCopiesShareTheirElements) {
    Variant original(TJSONVariantData{});
    original.setValue(u"a"_s, Variant(qint32(1)));
    const Variant copy = original;
    original.setValue(u"a"_s, Variant(qint32(2)));
    EXPECT_EQ(copy.value(u"a"_s).toInt(), 2);
    EXPECT_EQ(copy.toString(), u"{\"a\":2}"_s);
}

TEST(VariantTest, JSONKeyAccess) {
    Variant object(TJSONVariantData{});
    object.setValue(u"Name"_s, Variant(u"x"_s));
    EXPECT_TRUE(object.isJSON());
    EXPECT_EQ(object[u"Name"_s].toString(), u"x"_s);
    // keys are exact in letter case; an absent key reads as empty narrow text
    const Variant absent = object[u"name"_s];
    EXPECT_EQ(absent.type(), VarType::String);
    EXPECT_EQ(absent.toString(), QString());
    EXPECT_FALSE(absent.isEmpty());
    EXPECT_TRUE(raises<EVariantError>([] { Variant(qint32(1)).value(u"a"_s); }));
    EXPECT_TRUE(raises<EVariantError>([] { Variant(qint32(1)).setValue(u"a"_s, Variant()); }));
    EXPECT_EQ(Variant(qint32(1)).json(), nullptr);
}

TEST(VariantTest, JSONThroughAReference) {
    Variant object(TJSONVariantData{});
    const Variant reference = Variant::byRef(&object);
    object.setValue(u"k"_s, Variant(true));
    EXPECT_TRUE(reference.isJSON());
    EXPECT_TRUE(reference[u"k"_s].toBool());
}

TEST(VariantTest, EqualityComparesKindAndValue) {
    EXPECT_EQ(Variant(qint32(1)), Variant(qint32(1)));
    EXPECT_FALSE(Variant(qint32(1)) == Variant(qint64(1)));
    EXPECT_FALSE(Variant(u"x"_s) == ansi(u"x"_s));
    EXPECT_EQ(Variant::null(), Variant::null());
    EXPECT_FALSE(Variant::null() == Variant());
    Variant left(TJSONVariantData{});
    Variant right(TJSONVariantData{});
    left.setValue(u"a"_s, Variant(qint32(1)));
    right.setValue(u"a"_s, Variant(qint32(1)));
    EXPECT_EQ(left, right);
}

TEST(VariantTest, KindQueries) {
    EXPECT_TRUE(ansi(u"x"_s).isString());
    EXPECT_TRUE(Variant(u"x"_s).isString());
    EXPECT_TRUE(Variant(true).isOrdinal());
    EXPECT_TRUE(Variant(qint64(1)).isOrdinal());
    EXPECT_FALSE(Variant(1.0).isOrdinal());
    EXPECT_TRUE(Variant(Currency{}).isFloat());
    EXPECT_FALSE(Variant::fromDate(1).isFloat());
}
