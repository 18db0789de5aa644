#include "JSONWriter.h"

#include "ScopedTimeZone.h"
#include "TDateTimeUtils.h"
#include "TJSONVariantData.h"
#include "Variant.h"
#include "VariantJSON.h"

#include <gtest/gtest.h>
#include <ostream>

using namespace norvik;
using namespace Qt::Literals::StringLiterals;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

TDateTime dateTime(int year, int month, int day, int hour, int minute, int second, int msec) {
    TDateTime time = 0;
    TDateTimeUtils::TryEncodeTime(hour, minute, second, msec, time);
    return TDateTimeUtils::EncodeDate(year, month, day) + time;
}

struct TextCase {
    Variant value;
    QString expected;
};

void PrintTo(const TextCase& c, std::ostream* out) {
    *out << c.expected.toStdString();
}

class JSONWriterValueTest : public ::testing::TestWithParam<TextCase> {};

} // namespace

TEST_P(JSONWriterValueTest, WritesValueText) {
    EXPECT_EQ(JSONWriter::valueText(GetParam().value), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Scalars, JSONWriterValueTest,
    ::testing::Values(TextCase{Variant(), u"null"_s}, TextCase{Variant::null(), u"null"_s},
                      TextCase{Variant(true), u"true"_s}, TextCase{Variant(false), u"false"_s},
                      TextCase{Variant(qint32(-7)), u"-7"_s},
                      TextCase{Variant(qint64(9223372036854775807LL)), u"9223372036854775807"_s},
                      TextCase{Variant(1.5), u"1.5"_s}, TextCase{Variant(-2.25), u"-2.25"_s},
                      TextCase{Variant(100.0), u"100"_s}, TextCase{Variant(0.0), u"0"_s},
                      TextCase{Variant(1e20), u"1E20"_s}, TextCase{Variant(-1.5e-7), u"-1.5E-7"_s},
                      TextCase{Variant(0.00001), u"0.00001"_s}, TextCase{Variant(0.1 + 0.2), u"0.3"_s},
                      TextCase{Variant(1.0 / 3.0), u"0.333333333333333"_s},
                      TextCase{Variant(123456789012345678.0), u"1.23456789012346E17"_s},
                      TextCase{Variant(123456789012345.0), u"123456789012345"_s},
                      TextCase{Variant(Currency{12345}), u"1.2345"_s},
                      TextCase{Variant(u"text"_s), u"\"text\""_s},
                      TextCase{Variant::fromAnsiString(u"narrow"_s), u"\"narrow\""_s},
                      TextCase{Variant::fromDate(0), u"\"\""_s},
                      TextCase{Variant::fromDate(45000), u"\"2023-03-15\""_s}));

TEST(JSONWriterTest, QuotesOnlyWhatMustBeEscaped) {
    EXPECT_EQ(JSONWriter::quoted(u"a/b é € \x7f"_s), u"\"a/b é € \x7f\""_s);
    EXPECT_EQ(JSONWriter::quoted(u"\b\t\n\f\r"_s), u"\"\\b\\t\\n\\f\\r\""_s);
    EXPECT_EQ(JSONWriter::quoted(u"say \"hi\" \\ there"_s), u"\"say \\\"hi\\\" \\\\ there\""_s);
    EXPECT_EQ(JSONWriter::quoted(QString(QChar(31))), u"\"\\u001F\""_s);
    EXPECT_EQ(JSONWriter::quoted(QString(QChar(0))), u"\"\\u0000\""_s);
    EXPECT_EQ(JSONWriter::quoted(QString(QChar(11)) + u"x"_s), u"\"\\u000Bx\""_s);
    EXPECT_EQ(JSONWriter::quoted(QString()), u"\"\""_s);
}

TEST(JSONWriterTest, UnassignedValueOfAKeyIsNull) {
    Variant object = JSONVariantObject();
    JSONVariantSet(object, u"a"_s, Variant());
    EXPECT_EQ(object.toString(), u"{\"a\":null}"_s);
}

TEST(JSONWriterTest, EmptyAndUndefinedRecords) {
    TJSONVariantData undefined;
    EXPECT_EQ(JSONWriter::write(undefined), u"null"_s);
    EXPECT_EQ(JSONVariantObject().toString(), u"{}"_s);
    EXPECT_EQ(JSONVariantArray().toString(), u"[]"_s);
}

TEST(JSONWriterTest, WritesNestedContainersWithoutWhiteSpace) {
    Variant doc = JSONVariantObject();
    Variant list = JSONVariantArray();
    JSONVariantAdd(list, qint64(1));
    JSONVariantAdd(list, JSONVariantObject());
    JSONVariantAdd(list, u"x"_s);
    JSONVariantSet(doc, u"list"_s, list);
    JSONVariantSet(doc, u"key with \"quote\""_s, 0.5);
    EXPECT_EQ(doc.toString(), u"{\"list\":[1,{},\"x\"],\"key with \\\"quote\\\"\":0.5}"_s);
}

TEST(JSONWriterTest, ReferenceIsWrittenAsWhatItPointsTo) {
    Variant target(u"x"_s);
    EXPECT_EQ(JSONWriter::valueText(Variant::byRef(&target)), u"\"x\""_s);
}

TEST(JSONWriterTest, ByteArrayRaisesLikeItsConversionToText) {
    EXPECT_THROW(JSONWriter::valueText(Variant(QByteArray("ab"))), EVariantTypeCastError);
}

TEST(JSONWriterTest, WrittenTextParsesBackToTheSameText) {
    const QString json =
        uR"({"a":[1,-2.5,1E20,"x\ny\u001F",true,false,null,{}],"b":{"c":"\"q\"\\"},"":[]})"_s;
    const Variant doc = JSONVariant(json);
    EXPECT_EQ(doc.toString(), json);
    EXPECT_EQ(JSONVariant(doc.toString()).toString(), json);
}

TEST(JSONWriterDateTest, DateWithTimeCarriesTheLocalOffset) {
    const testsupport::ScopedTimeZone zone("Europe/Vienna");
    EXPECT_EQ(JSONWriter::dateText(dateTime(2023, 3, 15, 10, 30, 5, 250)),
              u"2023-03-15T10:30:05.250+01:00"_s);
    EXPECT_EQ(JSONWriter::dateText(dateTime(2023, 7, 1, 8, 0, 0, 1)), u"2023-07-01T08:00:00.001+02:00"_s);
    EXPECT_EQ(JSONWriter::dateText(dateTime(2023, 7, 1, 0, 0, 0, 0)), u"2023-07-01"_s);
    EXPECT_EQ(JSONWriter::dateText(0), u""_s);
}

TEST(JSONWriterDateTest, NegativeOffsetHasItsSign) {
    const testsupport::ScopedTimeZone zone("America/New_York");
    EXPECT_EQ(JSONWriter::dateText(dateTime(2023, 1, 10, 12, 0, 0, 0)), u"2023-01-10T12:00:00.000-05:00"_s);
}

TEST(JSONWriterDateTest, ZeroOffsetKeepsZ) {
    const testsupport::ScopedTimeZone zone("UTC");
    EXPECT_EQ(JSONWriter::dateText(dateTime(2023, 1, 10, 12, 0, 0, 0)), u"2023-01-10T12:00:00.000Z"_s);
    const testsupport::ScopedTimeZone india("Asia/Kolkata");
    EXPECT_EQ(JSONWriter::dateText(dateTime(2023, 1, 10, 12, 0, 0, 0)), u"2023-01-10T12:00:00.000+05:30"_s);
}

TEST(JSONWriterDateTest, DateInsideAnObjectIsAString) {
    const testsupport::ScopedTimeZone zone("Europe/Vienna");
    Variant doc = JSONVariantObject();
    JSONVariantSet(doc, u"d"_s, Variant::fromDate(dateTime(2024, 2, 29, 23, 59, 59, 999)));
    EXPECT_EQ(doc.toString(), u"{\"d\":\"2024-02-29T23:59:59.999+01:00\"}"_s);
}
