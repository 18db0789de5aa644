#include "JSONWriter.h"
#include "ScopedTimeZone.h"
#include "TDateTimeUtils.h"
#include "TJSONBase64.h"
#include "TJSONClassRegistry.h"
#include "TJSONObjectMapper.h"
#include "TJSONVariantData.h"
#include "Variant.h"
#include "VariantJSON.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>
#include <QVariant>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>

using namespace norvik;
using namespace Qt::Literals::StringLiterals;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

class TestAddress : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString street MEMBER street)
    Q_PROPERTY(int zip MEMBER zip)

public:
    QString street;
    int zip = 0;
};

class TestPerson : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(int age MEMBER age)
    Q_PROPERTY(double weight MEMBER weight)
    Q_PROPERTY(bool active MEMBER active)
    Q_PROPERTY(qint64 id MEMBER id)
    Q_PROPERTY(Colour colour MEMBER colour)
    Q_PROPERTY(QDateTime born MEMBER born)
    Q_PROPERTY(QDate since MEMBER since)
    Q_PROPERTY(QByteArray photo MEMBER photo)
    Q_PROPERTY(QVariant extra MEMBER extra)
    Q_PROPERTY(QStringList tags MEMBER tags)
    Q_PROPERTY(TestAddress* address MEMBER address)
    Q_PROPERTY(TestAddress* home READ home CONSTANT)
    Q_PROPERTY(QString fixed READ fixed CONSTANT)

public:
    enum Colour { Red, Green, Blue };
    Q_ENUM(Colour)

    TestPerson()
        : m_home(new TestAddress) {
        m_home->setParent(this);
    }
    TestAddress* home() const { return m_home; }
    QString fixed() const { return u"fixed"_s; }

    QString name;
    int age = 0;
    double weight = 0;
    bool active = false;
    qint64 id = 0;
    Colour colour = Red;
    QDateTime born;
    QDate since;
    QByteArray photo;
    QVariant extra;
    QStringList tags;
    TestAddress* address = nullptr;

private:
    TestAddress* m_home;
};

class TestPersonList : public QObject {
    Q_OBJECT
    Q_CLASSINFO("JSONItemClass", "TestPerson")
};

namespace {

class JSONObjectMapperTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        TJSONClassRegistry::Register<TestPerson>();
        TJSONClassRegistry::Register<TestAddress>();
    }

    static bool fill(const QString& json, QObject* instance) {
        const Variant value = JSONVariant(json);
        return JSONVariantDataSafe(value)->ToObject(instance);
    }

    TestPerson person;
};

struct DecodeCase {
    QString base64;
    bool ok;
    QByteArray bytes;
};

void PrintTo(const DecodeCase& c, std::ostream* out) {
    *out << c.base64.toStdString();
}

class JSONBase64DecodeTest : public ::testing::TestWithParam<DecodeCase> {};

} // namespace

TEST_F(JSONObjectMapperTest, FillsScalarProperties) {
    ASSERT_TRUE(fill(uR"({"name":"Anna","age":42,"weight":61.5,"active":true,"id":9007199254740993,
                         "colour":2,"unknown":"ignored","ClassName":"TestPerson"})"_s,
                     &person));
    EXPECT_EQ(person.name, u"Anna"_s);
    EXPECT_EQ(person.age, 42);
    EXPECT_DOUBLE_EQ(person.weight, 61.5);
    EXPECT_TRUE(person.active);
    EXPECT_EQ(person.id, 9007199254740993LL);
    EXPECT_EQ(person.colour, TestPerson::Blue);
}

TEST_F(JSONObjectMapperTest, PropertyNamesAreFoundInAnyLetterCase) {
    ASSERT_TRUE(fill(u"{\"NAME\":\"Bert\",\"Age\":\"7\"}"_s, &person));
    EXPECT_EQ(person.name, u"Bert"_s);
    EXPECT_EQ(person.age, 7);
}

TEST_F(JSONObjectMapperTest, NullGivesTheZeroOfTheProperty) {
    person.name = u"x"_s;
    person.age = 3;
    ASSERT_TRUE(fill(u"{\"name\":null,\"age\":null}"_s, &person));
    EXPECT_EQ(person.name, QString());
    EXPECT_EQ(person.age, 0);
}

TEST_F(JSONObjectMapperTest, ValueThatDoesNotFitFails) {
    EXPECT_FALSE(fill(u"{\"age\":\"abc\"}"_s, &person));
    EXPECT_FALSE(fill(u"{\"tags\":\"no list\"}"_s, &person));
    EXPECT_FALSE(fill(u"{\"fixed\":\"read only\"}"_s, &person));
    EXPECT_FALSE(fill(u"{\"address\":5}"_s, &person));
}

TEST_F(JSONObjectMapperTest, NumbersAndBooleansAreWrittenIntoStrings) {
    ASSERT_TRUE(fill(u"{\"name\":12}"_s, &person));
    EXPECT_EQ(person.name, u"12"_s);
    ASSERT_TRUE(fill(u"{\"name\":true}"_s, &person));
    EXPECT_EQ(person.name, u"True"_s);
}

TEST_F(JSONObjectMapperTest, DatesComeFromISO8601Text) {
    const testsupport::ScopedTimeZone zone("Europe/Vienna");
    ASSERT_TRUE(fill(u"{\"born\":\"1970-05-17T08:15:30.500+01:00\",\"since\":\"2020-01-31\"}"_s, &person));
    EXPECT_EQ(person.born, QDateTime(QDate(1970, 5, 17), QTime(8, 15, 30, 500)));
    EXPECT_EQ(person.since, QDate(2020, 1, 31));
}

TEST_F(JSONObjectMapperTest, WrittenDateReadsBackTheSame) {
    const testsupport::ScopedTimeZone zone("America/New_York");
    const QDateTime born(QDate(1999, 12, 31), QTime(23, 59, 58, 125));
    Variant doc = JSONVariantObject();
    JSONVariantSet(doc, u"born"_s, Variant::fromDate(TDateTimeUtils::fromQDateTime(born)));
    ASSERT_TRUE(fill(doc.toString(), &person));
    EXPECT_EQ(person.born, born);
}

TEST_F(JSONObjectMapperTest, UnreadableDateGivesNoDate) {
    person.born = QDateTime(QDate(2000, 1, 1), QTime(1, 0));
    person.since = QDate(2000, 1, 1);
    ASSERT_TRUE(fill(u"{\"born\":\"gestern\",\"since\":\"2020-02-30\"}"_s, &person));
    EXPECT_FALSE(person.born.isValid());
    EXPECT_FALSE(person.since.isValid());
}

TEST_F(JSONObjectMapperTest, ByteArrayComesFromMarkedBase64) {
    ASSERT_TRUE(fill(u"{\"photo\":\"\uFFF0QUJD\"}"_s, &person));
    EXPECT_EQ(person.photo, QByteArray("ABC"));
    ASSERT_TRUE(fill(u"{\"photo\":\"QUJD\"}"_s, &person));
    EXPECT_TRUE(person.photo.isEmpty());
    person.photo = "x";
    ASSERT_TRUE(fill(u"{\"photo\":\"\uFFF0QUJ\"}"_s, &person));
    EXPECT_TRUE(person.photo.isEmpty());
}

TEST_F(JSONObjectMapperTest, VariantPropertyTakesTheValueAsItStands) {
    ASSERT_TRUE(fill(u"{\"extra\":12}"_s, &person));
    EXPECT_EQ(person.extra, QVariant(qint64(12)));
    ASSERT_TRUE(fill(u"{\"extra\":{\"a\":[1,\"b\"]}}"_s, &person));
    const QVariantMap map = person.extra.toMap();
    EXPECT_EQ(map.value(u"a"_s).toList(), (QVariantList{qint64(1), u"b"_s}));
}

TEST_F(JSONObjectMapperTest, StringListTakesOneLinePerElement) {
    ASSERT_TRUE(fill(u"{\"tags\":[\"a\",2,true]}"_s, &person));
    EXPECT_EQ(person.tags, (QStringList{u"a"_s, u"2"_s, u"True"_s}));
}

TEST_F(JSONObjectMapperTest, ObjectPropertyIsFilledByRecursion) {
    TestAddress* home = person.home();
    ASSERT_TRUE(fill(u"{\"home\":{\"street\":\"Ring 1\",\"zip\":1010}}"_s, &person));
    EXPECT_EQ(person.home(), home);
    EXPECT_EQ(home->street, u"Ring 1"_s);
    EXPECT_EQ(home->zip, 1010);
}

TEST_F(JSONObjectMapperTest, EmptyObjectPropertyGetsANewObjectOfTheNamedClass) {
    ASSERT_TRUE(fill(u"{\"address\":{\"ClassName\":\"testaddress\",\"street\":\"Gasse 2\"}}"_s, &person));
    ASSERT_NE(person.address, nullptr);
    EXPECT_EQ(person.address->street, u"Gasse 2"_s);
    EXPECT_EQ(person.address->parent(), &person);
}

TEST_F(JSONObjectMapperTest, EmptyObjectPropertyWithoutClassNameFails) {
    EXPECT_FALSE(fill(u"{\"address\":{\"street\":\"Gasse 2\"}}"_s, &person));
    EXPECT_FALSE(fill(u"{\"address\":{\"ClassName\":\"Nowhere\"}}"_s, &person));
    EXPECT_EQ(person.address, nullptr);
    EXPECT_TRUE(fill(u"{\"address\":null}"_s, &person));
}

TEST_F(JSONObjectMapperTest, CollectionGetsOneItemPerElement) {
    TestPersonList list;
    auto* old = new TestPerson();
    old->setParent(&list);
    ASSERT_TRUE(fill(u"[{\"name\":\"a\",\"age\":1},{\"name\":\"b\",\"age\":2}]"_s, &list));
    const QList<TestPerson*> items = list.findChildren<TestPerson*>(Qt::FindDirectChildrenOnly);
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0]->name, u"a"_s);
    EXPECT_EQ(items[1]->age, 2);
}

TEST_F(JSONObjectMapperTest, CollectionStopsAtAFailingItem) {
    TestPersonList list;
    EXPECT_FALSE(fill(u"[{\"name\":\"a\"},5,{\"name\":\"c\"}]"_s, &list));
    EXPECT_EQ(list.children().size(), 2);
}

TEST_F(JSONObjectMapperTest, ArrayNeedsACollection) {
    EXPECT_FALSE(fill(u"[{\"name\":\"a\"}]"_s, &person));
    EXPECT_FALSE(fill(u"12"_s, &person));
    EXPECT_FALSE(fill(u"{}"_s, nullptr));
}

TEST_F(JSONObjectMapperTest, NewObjectFromClassName) {
    const Variant doc =
        JSONVariant(u"{\"ClassName\":\"TESTPERSON\",\"name\":\"Neu\",\"home\":{\"zip\":8010}}"_s);
    std::unique_ptr<QObject> created(doc.json()->ToNewObject());
    auto* newPerson = qobject_cast<TestPerson*>(created.get());
    ASSERT_NE(newPerson, nullptr);
    EXPECT_EQ(newPerson->name, u"Neu"_s);
    EXPECT_EQ(newPerson->home()->zip, 8010);
}

TEST_F(JSONObjectMapperTest, NewObjectNeedsAKnownClass) {
    EXPECT_EQ(JSONVariant(u"{\"name\":\"x\"}"_s).json()->ToNewObject(), nullptr);
    EXPECT_EQ(JSONVariant(u"{\"ClassName\":\"TUnknown\"}"_s).json()->ToNewObject(), nullptr);
    EXPECT_EQ(JSONVariant(u"{\"ClassName\":1}"_s).json()->ToNewObject(), nullptr);
    EXPECT_EQ(JSONVariant(u"{\"ClassName\":\"TestPerson\",\"age\":\"x\"}"_s).json()->ToNewObject(), nullptr);
}

TEST(JSONClassRegistryTest, NamesCompareWithTheLetterCaseBitFolded) {
    EXPECT_TRUE(TJSONClassRegistry::SameName(u"TPerson", u"tPERSON"));
    EXPECT_TRUE(TJSONClassRegistry::SameName(u"A[", u"a{"));
    EXPECT_FALSE(TJSONClassRegistry::SameName(u"ab", u"abc"));
    EXPECT_FALSE(TJSONClassRegistry::SameName(u"ab", u"ac"));
}

TEST(JSONClassRegistryTest, LaterRegistrationReplacesTheEarlier) {
    TJSONClassRegistry::Register(u"TReplaced"_s, [] { return new TestAddress; });
    TJSONClassRegistry::Register(u"treplaced"_s, [] { return new TestPerson; });
    std::unique_ptr<QObject> created(TJSONClassRegistry::Create(u"TREPLACED"));
    EXPECT_NE(qobject_cast<TestPerson*>(created.get()), nullptr);
    EXPECT_EQ(TJSONClassRegistry::Create(u"TNothing"), nullptr);
}

TEST_P(JSONBase64DecodeTest, DecodesStrictly) {
    QByteArray bytes = "stale";
    EXPECT_EQ(TJSONBase64::Decode(GetParam().base64, bytes), GetParam().ok);
    EXPECT_EQ(bytes, GetParam().bytes);
}

INSTANTIATE_TEST_SUITE_P(Base64, JSONBase64DecodeTest,
                         ::testing::Values(DecodeCase{u""_s, true, {}}, DecodeCase{u"QQ=="_s, true, "A"},
                                           DecodeCase{u"QUI="_s, true, "AB"},
                                           DecodeCase{u"QUJD"_s, true, "ABC"},
                                           DecodeCase{u"QUJDRA=="_s, true, "ABCD"},
                                           DecodeCase{u"+/+/"_s, true, QByteArray("\xfb\xff\xbf")},
                                           DecodeCase{u"QUJ"_s, false, {}}, DecodeCase{u"QU=D"_s, false, {}},
                                           DecodeCase{u"Q==="_s, false, {}}, DecodeCase{u"QUéD"_s, false, {}},
                                           DecodeCase{u"QU D"_s, false, {}},
                                           DecodeCase{u"QUJD\uFFF0AAA"_s, false, {}}));

TEST(JSONBase64Test, BytesNeedTheMark) {
    EXPECT_EQ(TJSONBase64::BytesFromText(u"\uFFF0QUJD"_s), QByteArray("ABC"));
    EXPECT_EQ(TJSONBase64::BytesFromText(u"QUJD"_s), QByteArray());
    EXPECT_EQ(TJSONBase64::BytesFromText(u"\uFFF0QUJ"_s), QByteArray());
}

#include "JSONObjectMapperTest.moc"
