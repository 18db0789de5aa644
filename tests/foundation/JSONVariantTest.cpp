#include "EJSONException.h"
#include "TJSONVariantData.h"
#include "Variant.h"
#include "VariantJSON.h"

#include <functional>
#include <gtest/gtest.h>
#include <ostream>

using namespace norvik;
using namespace Qt::Literals::StringLiterals;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

// the message of the EJSONException that the call raises, or "" when it raises none
QString jsonError(const std::function<void()>& call) {
    try {
        call();
    } catch (const EJSONException& e) {
        return e.message();
    }
    return {};
}

} // namespace

TEST(JSONVariantTest, KeysAreReadExactInLetterCase) {
    const Variant v = JSONVariant(u"{\"a\":1}"_s);
    EXPECT_EQ(v[u"a"_s].type(), VarType::Int64);
    EXPECT_EQ(v[u"a"_s].toInt64(), 1);
    EXPECT_EQ(v.value(u"A"_s).type(), VarType::String);
    EXPECT_EQ(v[u"A"_s].toString(), u""_s);
    EXPECT_EQ(v[u"b"_s].type(), VarType::String);
}

TEST(JSONVariantTest, AbsentKeyIsNoNumberAndNoObject) {
    const Variant v = JSONVariant(u"{\"a\":1}"_s);
    const Variant absent = v[u"b"_s];
    EXPECT_FALSE(absent.isNull());
    EXPECT_FALSE(absent.isUnassigned());
    EXPECT_THROW(absent.toInt(), EVariantTypeCastError);
    // a key of an absent key fails in the variant layer
    EXPECT_THROW(absent[u"c"_s], EVariantError);
}

TEST(JSONVariantTest, TopLevelScalarsGiveTheirVariant) {
    EXPECT_EQ(JSONVariant(u"12"_s), Variant(qint64(12)));
    EXPECT_TRUE(JSONVariant(u"null"_s).isNull());
    EXPECT_TRUE(JSONVariant(u"bad"_s).isUnassigned());
    EXPECT_EQ(JSONVariant(u"\"x\""_s), Variant(u"x"_s));
}

TEST(JSONVariantTest, ObjectAndArrayConstructorsAreEmptyAndTyped) {
    Variant object = JSONVariantObject();
    Variant array = JSONVariantArray();
    EXPECT_EQ(JSONVariantKindOf(object), jvObject);
    EXPECT_EQ(JSONVariantKindOf(array), jvArray);
    EXPECT_EQ(jsonError([&] { JSONVariantAdd(object, qint64(1)); }), u"AddValue() over object"_s);
    EXPECT_EQ(jsonError([&] { JSONVariantSet(array, u"k"_s, qint64(1)); }), u"AddNameValue(k) over array"_s);
}

TEST(JSONVariantTest, MisuseOfANonJSONVariantRaises) {
    Variant number(qint64(5));
    const QString message = u"JSONVariantData.Data(4<>JSONVariant)"_s;
    EXPECT_EQ(jsonError([&] { JSONVariantDataOf(number); }), message);
    EXPECT_EQ(jsonError([&] { JSONVariantKindOf(number); }), message);
    EXPECT_EQ(jsonError([&] { JSONVariantHasName(number, u"a"_s); }), message);
    EXPECT_EQ(jsonError([&] { JSONVariantCount(number); }), message);
    EXPECT_EQ(jsonError([&] { JSONVariantItem(number, 0); }), message);
    EXPECT_EQ(jsonError([&] { JSONVariantAdd(number, qint64(1)); }), message);
    EXPECT_EQ(jsonError([&] { JSONVariantSet(number, u"a"_s, qint64(1)); }), message);
    EXPECT_EQ(jsonError([] { JSONVariantDataOf(Variant(u"x"_s)); }),
              u"JSONVariantData.Data(9<>JSONVariant)"_s);
}

TEST(JSONVariantTest, DataOfFollowsReferences) {
    Variant doc = JSONVariant(u"[1]"_s);
    Variant reference = Variant::byRef(&doc);
    EXPECT_EQ(JSONVariantDataOf(reference), doc.json());
    JSONVariantAdd(reference, qint64(2));
    EXPECT_EQ(doc.toString(), u"[1,2]"_s);
}

TEST(JSONVariantTest, DataSafeGivesOneSharedEmptyRecord) {
    const Variant object = JSONVariant(u"{\"a\":1}"_s);
    const TJSONVariantData* empty = JSONVariantDataSafe(Variant(qint64(1)));
    EXPECT_EQ(empty->VKind, jvUndefined);
    EXPECT_EQ(empty->VCount, 0);
    EXPECT_EQ(empty->NameIndex(u"a"_s), -1);
    EXPECT_EQ(JSONVariantDataSafe(object, jvArray), empty);
    EXPECT_EQ(JSONVariantDataSafe(Variant()), empty);
    EXPECT_EQ(JSONVariantDataSafe(object), object.json());
    EXPECT_EQ(JSONVariantDataSafe(object, jvObject), object.json());
}

TEST(JSONVariantTest, CountAndItemsOfArraysOnly) {
    const Variant array = JSONVariant(u"[1,\"b\"]"_s);
    const Variant object = JSONVariant(u"{\"a\":1}"_s);
    EXPECT_EQ(JSONVariantCount(array), 2);
    EXPECT_EQ(JSONVariantCount(object), 0);
    EXPECT_EQ(JSONVariantItem(array, 1), Variant(u"b"_s));
    EXPECT_TRUE(JSONVariantItem(array, 2).isUnassigned());
    EXPECT_TRUE(JSONVariantItem(array, -1).isUnassigned());
    EXPECT_TRUE(JSONVariantItem(object, 0).isNull());
}

TEST(JSONVariantTest, HasNameIsExact) {
    const Variant object = JSONVariant(u"{\"Name\":null}"_s);
    EXPECT_TRUE(JSONVariantHasName(object, u"Name"_s));
    EXPECT_FALSE(JSONVariantHasName(object, u"name"_s));
    EXPECT_FALSE(JSONVariantHasName(JSONVariant(u"[1]"_s), u"0"_s));
}

TEST(JSONVariantTest, SetReplacesPresentKeyAndAppendsNewOne) {
    Variant object = JSONVariantObject();
    JSONVariantSet(object, u"a"_s, qint64(1));
    JSONVariantSet(object, u"b"_s, u"x"_s);
    JSONVariantSet(object, u"a"_s, true);
    EXPECT_EQ(object.toString(), u"{\"a\":true,\"b\":\"x\"}"_s);
    EXPECT_EQ(jsonError([&] { JSONVariantSet(object, QString(), qint64(1)); }), u"Unexpected Value['']"_s);
}

TEST(JSONVariantTest, CopySharesElementsUntilOneGrows) {
    Variant original = JSONVariant(u"{\"x\":1,\"y\":2}"_s);
    Variant copy = original;
    copy.setValue(u"x"_s, qint64(5));
    EXPECT_EQ(original[u"x"_s].toInt64(), 5);

    copy.setValue(u"z"_s, qint64(3));
    EXPECT_EQ(original.toString(), u"{\"x\":5,\"y\":2}"_s);
    EXPECT_EQ(copy.toString(), u"{\"x\":5,\"y\":2,\"z\":3}"_s);

    copy.setValue(u"x"_s, qint64(7));
    EXPECT_EQ(original[u"x"_s].toInt64(), 5);
}

TEST(JSONVariantTest, AppendToACopyWithinSpareLengthIsNotSeenByTheOriginal) {
    Variant original = JSONVariantArray();
    JSONVariantAdd(original, qint64(1));
    Variant copy = original;
    JSONVariantAdd(copy, qint64(2));
    EXPECT_EQ(original.toString(), u"[1]"_s);
    EXPECT_EQ(copy.toString(), u"[1,2]"_s);
}

TEST(JSONVariantTest, ReadingAKeyGivesACopyThatSharesNestedElements) {
    Variant doc = JSONVariant(u"{\"a\":{\"b\":1}}"_s);
    Variant nested = doc[u"a"_s];
    nested.setValue(u"b"_s, qint64(2));
    nested.setValue(u"c"_s, qint64(3));
    EXPECT_EQ(doc.toString(), u"{\"a\":{\"b\":2}}"_s);
}

TEST(JSONVariantTest, ReferenceChainWritesIntoNestedObject) {
    Variant doc = JSONVariant(u"{\"a\":{\"b\":{\"c\":1}}}"_s);
    doc.valueRef(u"a"_s).valueRef(u"b"_s).setValue(u"c"_s, u"x"_s);
    doc.valueRef(u"a"_s).setValue(u"d"_s, qint64(4));
    EXPECT_EQ(doc.toString(), u"{\"a\":{\"b\":{\"c\":\"x\"},\"d\":4}}"_s);
    EXPECT_EQ(doc.valueRef(u"missing"_s).type(), VarType::String);
    EXPECT_EQ(doc.valueRef(u"a"_s).type(), VarType::ByRef);
}

TEST(JSONVariantTest, RecordInitFromText) {
    TJSONVariantData data;
    data.Init(u"null"_s);
    EXPECT_EQ(data.VKind, jvObject);
    EXPECT_EQ(data.ToJSON(), u"{}"_s);
    data.Init(u"12"_s);
    EXPECT_EQ(data.VKind, jvUndefined);
    EXPECT_EQ(data.ToJSON(), u"null"_s);
    data.Init(u"[1,2]"_s);
    EXPECT_EQ(data.VKind, jvArray);
    EXPECT_EQ(data.VCount, 2);
    data.Init(u"{\"a\":1,"_s);
    EXPECT_EQ(data.ToJSON(), u"{\"a\":1}"_s);
}

TEST(JSONVariantTest, FromJSONTellsWhetherTheTopValueIsAContainer) {
    TJSONVariantData data;
    EXPECT_TRUE(data.FromJSON(u"{\"a\":1}"_s));
    EXPECT_TRUE(data.FromJSON(u"[]"_s));
    EXPECT_FALSE(data.FromJSON(u"12"_s));
    EXPECT_EQ(data.VKind, jvUndefined);
    EXPECT_FALSE(data.FromJSON(u"[1,"_s));
    EXPECT_EQ(data.VCount, 1);
}

TEST(JSONVariantTest, InitFromMakesAnArray) {
    TJSONVariantData data;
    data.InitFrom({Variant(qint64(1)), Variant(u"a"_s), Variant::null()});
    EXPECT_EQ(data.VKind, jvArray);
    EXPECT_EQ(data.VCount, 3);
    EXPECT_EQ(data.ToJSON(), u"[1,\"a\",null]"_s);
}

TEST(JSONVariantTest, AppendingGrowsByAnEighthPlus32) {
    TJSONVariantData data;
    data.AddValue(qint64(0));
    EXPECT_EQ(data.Values->size(), 32);
    EXPECT_EQ(data._Align, 1);
    for (int i = 1; i < 33; ++i)
        data.AddValue(qint64(i));
    EXPECT_EQ(data.VCount, 33);
    EXPECT_EQ(data.Values->size(), 32 + 4 + 32);
    data.CutToCount();
    EXPECT_EQ(data.Values->size(), 33);
}

TEST(JSONVariantTest, AddNameValueGrowsBothArrays) {
    TJSONVariantData data;
    data.AddNameValue(u"a"_s, qint64(1));
    EXPECT_EQ(data.VKind, jvObject);
    EXPECT_EQ(data.Names->size(), 32);
    EXPECT_EQ(data.Values->size(), 32);
    data.AddNameValue(u"a"_s, qint64(2));
    EXPECT_EQ(data.ToJSON(), u"{\"a\":1,\"a\":2}"_s);
    EXPECT_EQ(data.NameIndex(u"a"_s), 0);
}

TEST(JSONVariantTest, NameIndexOfNoObjectIsMinusOne) {
    TJSONVariantData empty;
    EXPECT_EQ(empty.NameIndex(u"a"_s), -1);
    TJSONVariantData array;
    array.AddValue(qint64(1));
    EXPECT_EQ(array.NameIndex(u"a"_s), -1);
}

TEST(JSONVariantTest, DataGivesNestedRecordsOnly) {
    Variant doc = JSONVariant(u"{\"o\":{\"x\":1},\"a\":[1],\"s\":\"t\"}"_s);
    TJSONVariantData* data = doc.json();
    ASSERT_NE(data->Data(u"o"_s), nullptr);
    EXPECT_EQ(data->Data(u"o"_s)->ToJSON(), u"{\"x\":1}"_s);
    EXPECT_EQ(data->Data(u"a"_s)->VKind, jvArray);
    EXPECT_EQ(data->Data(u"s"_s), nullptr);
    EXPECT_EQ(data->Data(u"missing"_s), nullptr);
}

TEST(JSONVariantTest, EnsureDataCreatesThePathOnTheWay) {
    TJSONVariantData data;
    TJSONVariantData* leaf = data.EnsureData(u"a.b.c"_s);
    ASSERT_NE(leaf, nullptr);
    EXPECT_EQ(leaf->VKind, jvUndefined);
    EXPECT_EQ(data.ToJSON(), u"{\"a\":{\"b\":{\"c\":null}}}"_s);
    leaf->SetValue(u"d"_s, qint64(1));
    EXPECT_EQ(data.ToJSON(), u"{\"a\":{\"b\":{\"c\":{\"d\":1}}}}"_s);
    EXPECT_EQ(data.EnsureData(u"a.b"_s), data.Data(u"a"_s)->Data(u"b"_s));
}

TEST(JSONVariantTest, EnsureDataReplacesAScalarOnThePath) {
    TJSONVariantData data;
    data.Init(u"{\"a\":5,\"b\":[1]}"_s);
    data.EnsureData(u"a"_s)->SetValue(u"x"_s, qint64(1));
    EXPECT_EQ(data.EnsureData(u"b"_s)->VKind, jvArray);
    EXPECT_EQ(data.ToJSON(), u"{\"a\":{\"x\":1},\"b\":[1]}"_s);
}

TEST(JSONVariantTest, SetPathSetsTopLevelAndNestedKeys) {
    TJSONVariantData data;
    data.SetPath(u"name"_s, u"Anna"_s);
    data.SetPath(u"address.city"_s, u"Wien"_s);
    data.SetPath(u"address.zip"_s, qint64(1010));
    data.SetPath(u"address.city"_s, u"Graz"_s);
    EXPECT_EQ(data.ToJSON(), u"{\"name\":\"Anna\",\"address\":{\"city\":\"Graz\",\"zip\":1010}}"_s);
    EXPECT_EQ(jsonError([&] { data.SetPath(u"address."_s, qint64(1)); }), u"Unexpected Value['']"_s);
}

TEST(JSONVariantTest, EnsureDataOverAnArrayRaises) {
    TJSONVariantData data;
    data.Init(u"[1]"_s);
    EXPECT_EQ(jsonError([&] { data.EnsureData(u"a"_s); }), u"AddNameValue(a) over array"_s);
}

TEST(JSONVariantTest, AddItemAppendsAnEmptyRecordToFill) {
    TJSONVariantData data;
    data.AddItem()->SetValue(u"n"_s, qint64(1));
    data.AddItem()->AddValue(qint64(2));
    data.AddItem();
    EXPECT_EQ(data.ToJSON(), u"[{\"n\":1},[2],null]"_s);
}

TEST(JSONVariantTest, ClearEmptiesTheRecord) {
    TJSONVariantData data;
    data.Init(u"{\"a\":1}"_s);
    data.Clear();
    EXPECT_EQ(data.VKind, jvUndefined);
    EXPECT_EQ(data.VCount, 0);
    data.AddValue(qint64(1));
    EXPECT_EQ(data.VKind, jvArray);
}
