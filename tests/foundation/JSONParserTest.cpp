#include "TJSONParser.h"
#include "TJSONVariantData.h"
#include "Variant.h"
#include "VariantJSON.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <limits>
#include <ostream>

using namespace norvik;
using namespace Qt::Literals::StringLiterals;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

QString codeUnits(std::initializer_list<char16_t> units) {
    return QString(reinterpret_cast<const QChar*>(units.begin()), qsizetype(units.size()));
}

TJSONParserKind parseKind(const QString& json, Variant& value) {
    TJSONParser parser(json);
    return parser.GetNextJSON(value);
}

TJSONParserKind parseKind(const QString& json) {
    Variant value;
    return parseKind(json, value);
}

struct ScalarCase {
    QString json;
    TJSONParserKind kind;
    VarType type;
};

void PrintTo(const ScalarCase& c, std::ostream* out) {
    *out << c.json.toStdString();
}

class JSONParserScalarTest : public ::testing::TestWithParam<ScalarCase> {};

} // namespace

TEST_P(JSONParserScalarTest, GivesKindAndVariantType) {
    Variant value;
    EXPECT_EQ(parseKind(GetParam().json, value), GetParam().kind);
    EXPECT_EQ(value.type(), GetParam().type);
}

INSTANTIATE_TEST_SUITE_P(
    Scalars, JSONParserScalarTest,
    ::testing::Values(
        ScalarCase{u"null"_s, kNull, VarType::Null}, ScalarCase{u"true"_s, kTrue, VarType::Boolean},
        ScalarCase{u"false"_s, kFalse, VarType::Boolean}, ScalarCase{u"\"x\""_s, kString, VarType::UString},
        ScalarCase{u"12"_s, kInteger, VarType::Int64}, ScalarCase{u"-0"_s, kInteger, VarType::Int64},
        ScalarCase{u"0123"_s, kInteger, VarType::Int64}, ScalarCase{u"1.5"_s, kFloat, VarType::Double},
        ScalarCase{u"1e3"_s, kFloat, VarType::Double}, ScalarCase{u"1E+2"_s, kFloat, VarType::Double},
        ScalarCase{u"1."_s, kFloat, VarType::Double},
        ScalarCase{u"12345678901234567890"_s, kFloat, VarType::Double},
        ScalarCase{u"1e-400"_s, kFloat, VarType::Double}, ScalarCase{u"{}"_s, kObject, VarType::JSON},
        ScalarCase{u"[]"_s, kArray, VarType::JSON},
        // failures leave nothing behind for a scalar
        ScalarCase{u""_s, kNone, VarType::Unassigned}, ScalarCase{u"   "_s, kNone, VarType::Unassigned},
        ScalarCase{u"nul"_s, kNone, VarType::Unassigned}, ScalarCase{u"nULL"_s, kNone, VarType::Unassigned},
        ScalarCase{u"tru"_s, kNone, VarType::Unassigned}, ScalarCase{u"fals"_s, kNone, VarType::Unassigned},
        ScalarCase{u"+1"_s, kNone, VarType::Unassigned}, ScalarCase{u"-"_s, kNone, VarType::Unassigned},
        ScalarCase{u"1-2"_s, kNone, VarType::Unassigned}, ScalarCase{u"1.5e"_s, kNone, VarType::Unassigned},
        ScalarCase{u"1e400"_s, kNone, VarType::Unassigned}, ScalarCase{u".5"_s, kNone, VarType::Unassigned},
        ScalarCase{u"\"abc"_s, kNone, VarType::Unassigned}, ScalarCase{u"x"_s, kNone, VarType::Unassigned}));

TEST(JSONParserTest, NumbersKeepTheirValue) {
    EXPECT_EQ(JSONVariant(u"-9223372036854775808"_s).toInt64(), std::numeric_limits<qint64>::min());
    EXPECT_EQ(JSONVariant(u"9223372036854775807"_s).toInt64(), std::numeric_limits<qint64>::max());
    EXPECT_DOUBLE_EQ(JSONVariant(u"9223372036854775808"_s).toDouble(), 9223372036854775808.0);
    EXPECT_EQ(JSONVariant(u"0123"_s).toInt64(), 123);
    EXPECT_DOUBLE_EQ(JSONVariant(u"-1.25E-2"_s).toDouble(), -0.0125);
    EXPECT_DOUBLE_EQ(JSONVariant(u"1.e2"_s).toDouble(), 100.0);
    EXPECT_EQ(JSONVariant(u"1e-400"_s).toDouble(), 0.0);
    EXPECT_EQ(JSONVariant(u"[1e3]"_s).json()->ValueAt(0), Variant(1000.0));
    EXPECT_EQ(JSONVariant(u"[12]"_s).json()->ValueAt(0), Variant(qint64(12)));
}

TEST(JSONParserTest, PlusSignCannotStartAValue) {
    Variant value;
    EXPECT_EQ(parseKind(u"[+1]"_s, value), kNone);
    ASSERT_TRUE(value.isJSON());
    EXPECT_EQ(value.json()->VCount, 0);
}

TEST(JSONParserTest, NumberRunEndsAtTheFirstOtherCharacter) {
    TJSONParser parser(u"12,5"_s);
    Variant value;
    EXPECT_EQ(parser.GetNextJSON(value), kInteger);
    EXPECT_EQ(parser.Index, 3);
}

TEST(JSONParserTest, FailedKeywordLeavesIndexBehindItsFirstCharacter) {
    TJSONParser parser(u"  nix"_s);
    Variant value;
    EXPECT_EQ(parser.GetNextJSON(value), kNone);
    EXPECT_EQ(parser.Index, 4);
}

TEST(JSONParserTest, ValueIsClearedBeforeReading) {
    Variant value(qint64(5));
    EXPECT_EQ(parseKind(u"?"_s, value), kNone);
    EXPECT_TRUE(value.isUnassigned());
}

TEST(JSONParserTest, EveryCharacterUpToSpaceIsWhiteSpace) {
    const Variant value = JSONVariant(u"\x01[\x1f"
                                      "1\t,\r\n2 ]"_s);
    ASSERT_TRUE(value.isJSON());
    EXPECT_EQ(value.toString(), u"[1,2]"_s);
}

struct StringCase {
    QString json;
    QString expected;
};

void PrintTo(const StringCase& c, std::ostream* out) {
    *out << c.json.toStdString();
}

class JSONParserStringTest : public ::testing::TestWithParam<StringCase> {};

TEST_P(JSONParserStringTest, ReadsEscapes) {
    Variant value;
    EXPECT_EQ(parseKind(GetParam().json, value), kString);
    EXPECT_EQ(value.toString(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Escapes, JSONParserStringTest,
    ::testing::Values(StringCase{uR"("plain")"_s, u"plain"_s}, StringCase{uR"("")"_s, u""_s},
                      StringCase{uR"("a\bb")"_s, u"a\bb"_s}, StringCase{uR"("\t\n\f\r")"_s, u"\t\n\f\r"_s},
                      StringCase{uR"("\"\\\/")"_s, u"\"\\/"_s}, StringCase{uR"("\q")"_s, u"q"_s},
                      StringCase{uR"("\u0041\u00e9\u00E9")"_s, u"Aéé"_s},
                      StringCase{uR"("\ud83d\ude00")"_s, codeUnits({0xD83D, 0xDE00})},
                      StringCase{uR"("\ude00\ud83d")"_s, codeUnits({0xDE00, 0xD83D})},
                      // a backslash makes the string lenient: its end needs no quote
                      StringCase{uR"("x\n)"_s, u"x\n"_s}, StringCase{uR"("x\)"_s, u"x"_s},
                      StringCase{uR"("ab\"c)"_s, u"ab\"c"_s},
                      // a broken code ends the string with what it had
                      StringCase{uR"("ab\u12")"_s, u"ab"_s}, StringCase{uR"("ab\u12G4cd")"_s, u"ab"_s},
                      StringCase{uR"("ab\u)"_s, u"ab"_s}, StringCase{u"\"ab\\\u0000cd\""_s, u"ab"_s},
                      StringCase{u"\"a\u0000b\""_s, codeUnits({u'a', 0, u'b'})}));

TEST(JSONParserTest, BrokenCodeLeavesTheDigitsToTheCaller) {
    TJSONParser parser(uR"("ab\u12G4cd")"_s);
    Variant value;
    EXPECT_EQ(parser.GetNextJSON(value), kString);
    EXPECT_EQ(parser.Index, 6);
}

struct PropNameCase {
    QString json;
    bool ok;
    QString name;
};

void PrintTo(const PropNameCase& c, std::ostream* out) {
    *out << c.json.toStdString();
}

class JSONParserPropNameTest : public ::testing::TestWithParam<PropNameCase> {};

TEST_P(JSONParserPropNameTest, AcceptsUnquotedKeys) {
    const Variant value = JSONVariant(GetParam().json);
    ASSERT_TRUE(value.isJSON());
    const TJSONVariantData* data = value.json();
    EXPECT_EQ(parseKind(GetParam().json), GetParam().ok ? kObject : kNone);
    if (GetParam().ok) {
        ASSERT_EQ(data->VCount, 1);
        EXPECT_EQ(data->NameAt(0), GetParam().name);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Keys, JSONParserPropNameTest,
    ::testing::Values(PropNameCase{u"{ key = \"x\" }"_s, true, u"key"_s},
                      PropNameCase{u"{a:1}"_s, true, u"a"_s}, PropNameCase{u"{_a1:1}"_s, true, u"_a1"_s},
                      PropNameCase{u"{$a:1}"_s, true, u"$a"_s}, PropNameCase{u"{Zz_9=1}"_s, true, u"Zz_9"_s},
                      PropNameCase{u"{a$:1}"_s, false, {}}, PropNameCase{u"{1a:1}"_s, false, {}},
                      PropNameCase{u"{a\t:1}"_s, true, u"a"_s}, PropNameCase{u"{\"a\"=1}"_s, false, {}},
                      PropNameCase{u"{\"a\" : 1}"_s, true, u"a"_s}, PropNameCase{u"{ä:1}"_s, false, {}},
                      PropNameCase{u"{a"_s, false, {}}, PropNameCase{u"{ab"_s, false, {}},
                      PropNameCase{u"{,}"_s, false, {}}));

TEST(JSONParserTest, PropNameNeedsTwoCharactersLeft) {
    TJSONParser parser(u"a"_s);
    QString name;
    EXPECT_FALSE(parser.GetNextAlphaPropName(name));
    TJSONParser enough(u"a:"_s);
    EXPECT_TRUE(enough.GetNextAlphaPropName(name));
    EXPECT_EQ(name, u"a"_s);
    EXPECT_EQ(enough.Index, 3);
}

TEST(JSONParserTest, EmptyContainersHaveTheirKind) {
    EXPECT_EQ(JSONVariantKindOf(JSONVariant(u" { } "_s)), jvObject);
    EXPECT_EQ(JSONVariantKindOf(JSONVariant(u"[ ]"_s)), jvArray);
    EXPECT_EQ(JSONVariant(u"{}"_s).toString(), u"{}"_s);
    EXPECT_EQ(JSONVariant(u"[]"_s).toString(), u"[]"_s);
}

TEST(JSONParserTest, TextBehindTheTopValueIsIgnored) {
    EXPECT_EQ(parseKind(u"{} x"_s), kObject);
    EXPECT_EQ(JSONVariant(u"{} x"_s).toString(), u"{}"_s);
    EXPECT_EQ(JSONVariant(u"12 13"_s).toInt64(), 12);
}

TEST(JSONParserTest, UnterminatedStringWithoutEscapeFails) {
    Variant value;
    EXPECT_EQ(parseKind(u"{\"a\":\"x"_s, value), kNone);
    ASSERT_TRUE(value.isJSON());
    EXPECT_EQ(value.json()->VCount, 0);
}

TEST(JSONParserTest, UnterminatedStringWithEscapeKeepsItsKey) {
    Variant value;
    EXPECT_EQ(parseKind(u"{\"a\":\"x\\n"_s, value), kNone);
    const TJSONVariantData* data = value.json();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->VKind, jvObject);
    ASSERT_EQ(data->VCount, 1);
    EXPECT_EQ(data->NameAt(0), u"a"_s);
    EXPECT_EQ(data->ValueAt(0).toString(), u"x\n"_s);
}

TEST(JSONParserTest, FailedArrayKeepsElementsAndSpareLength) {
    Variant value;
    EXPECT_EQ(parseKind(u"[1,2,"_s, value), kNone);
    const TJSONVariantData* data = value.json();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->VKind, jvArray);
    EXPECT_EQ(data->VCount, 2);
    EXPECT_EQ(data->Values->size(), 32);
    EXPECT_EQ(value.toString(), u"[1,2]"_s);
}

TEST(JSONParserTest, FailedNestedValueIsNotAdded) {
    const Variant value = JSONVariant(u"[1,[2,3"_s);
    EXPECT_EQ(value.toString(), u"[1]"_s);
    const Variant object = JSONVariant(u"{\"a\":1,\"b\":{\"c\":2,"_s);
    EXPECT_EQ(object.toString(), u"{\"a\":1}"_s);
}

TEST(JSONParserTest, TrailingCommaFails) {
    EXPECT_EQ(parseKind(u"[1,]"_s), kNone);
    EXPECT_EQ(parseKind(u"{\"a\":1,}"_s), kNone);
    EXPECT_EQ(JSONVariant(u"{\"a\":1,}"_s).toString(), u"{\"a\":1}"_s);
}

TEST(JSONParserTest, MissingSeparatorFails) {
    EXPECT_EQ(parseKind(u"[1 2]"_s), kNone);
    EXPECT_EQ(parseKind(u"{\"a\" 1}"_s), kNone);
    EXPECT_EQ(parseKind(u"{\"a\":1 \"b\":2}"_s), kNone);
}

TEST(JSONParserTest, SuccessfulParseCutsArraysToCount) {
    const Variant value = JSONVariant(u"{\"a\":[1,2,3],\"b\":{}}"_s);
    const TJSONVariantData* data = value.json();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->Values->size(), 2);
    EXPECT_EQ(data->Names->size(), 2);
    EXPECT_EQ(data->ValueAt(0).json()->Values->size(), 3);
}

TEST(JSONParserTest, DuplicateKeysParseAndTheFirstIsRead) {
    const Variant value = JSONVariant(u"{\"a\":1,\"a\":2}"_s);
    EXPECT_EQ(value[u"a"_s].toInt64(), 1);
    EXPECT_EQ(value.toString(), u"{\"a\":1,\"a\":2}"_s);
}

TEST(JSONParserTest, DeepNestingWithinLimitParses) {
    const int depth = 500;
    const QString json = QString(depth, u'[') + QString(depth, u']');
    EXPECT_EQ(parseKind(json), kArray);
}

TEST(JSONParserTest, NestingBeyondLimitFailsWithoutCrash) {
    const int depth = 100000;
    Variant value;
    EXPECT_EQ(parseKind(QString(depth, u'['), value), kNone);
    EXPECT_EQ(parseKind(QString(depth, u'{').replace(u"{"_s, u"{a:"_s)), kNone);
    EXPECT_TRUE(value.isJSON());
}

TEST(JSONParserTest, ParsesNestedDocument) {
    const QString json = uR"({"patient":{"firstname":"Anna","born":"1970-01-02","tags":["a","b"]},
                             "count":3, "ok":true, "none":null, "ratio":0.5})"_s;
    const Variant doc = JSONVariant(json);
    EXPECT_EQ(doc[u"patient"_s][u"firstname"_s].toString(), u"Anna"_s);
    EXPECT_EQ(JSONVariantCount(doc[u"patient"_s][u"tags"_s]), 2);
    EXPECT_EQ(doc[u"count"_s].toInt64(), 3);
    EXPECT_TRUE(doc[u"ok"_s].toBool());
    EXPECT_TRUE(doc[u"none"_s].isNull());
    EXPECT_DOUBLE_EQ(doc[u"ratio"_s].toDouble(), 0.5);
    EXPECT_EQ(
        doc.toString(),
        uR"({"patient":{"firstname":"Anna","born":"1970-01-02","tags":["a","b"]},"count":3,"ok":true,"none":null,"ratio":0.5})"_s);
}

TEST(JSONParserTest, ObjectsWithEqualKeysStayIndependent) {
    Variant list = JSONVariant(u"[{\"a\":1},{\"a\":2},{\"b\":3}]"_s);
    TJSONVariantData* data = list.json();
    TJSONVariantData* first = data->ValueAt(0).json();
    TJSONVariantData* second = data->ValueAt(1).json();
    first->AddNameValue(u"c"_s, qint64(4));
    first->SetValue(u"a"_s, qint64(5));
    EXPECT_EQ(list.toString(), u"[{\"a\":5,\"c\":4},{\"a\":2},{\"b\":3}]"_s);
    EXPECT_EQ(second->NameAt(0), u"a"_s);
}
