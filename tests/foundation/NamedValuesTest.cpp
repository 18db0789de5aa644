#include "Exception.h"
#include "TnvNamedValues.h"

#include <QObject>
#include <QPointer>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <ostream>

using namespace norvik;
using namespace Qt::Literals::StringLiterals;

static void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}

namespace {

class ISpeaker : public IInterface {
public:
    virtual QString Speak() const = 0;
};

class TGreeter : public ISpeaker {
public:
    QString Speak() const override { return u"Servus"_s; }
};

class IUnrelated : public IInterface {};

Variant ansi(const QString& text) {
    return Variant::fromAnsiString(text);
}

// the text of the failure raised by the operation, or "" when none is
template <class Error> QString failureOf(const std::function<void()>& operation) {
    try {
        operation();
    } catch (const Error& error) {
        return QString::fromUtf8(error.what());
    }
    return QString();
}

QString missingNameText(const QString& name) {
    return u"The named value \""_s + name + u"\" does not exist!"_s;
}

} // namespace

// --- the entry ---------------------------------------------------------------------------

TEST(NamedValueTest, CreatedEntryHoldsOnlyNameAndValue) {
    const TnvNamedValue entry(u"Patient"_s, Variant(qint32(5)));
    EXPECT_EQ(entry.Name(), u"Patient"_s);
    EXPECT_EQ(entry.AsVariant(), Variant(qint32(5)));
    EXPECT_EQ(entry.Tag(), 0);
    EXPECT_EQ(entry.FieldType(), ftUnknown);
    EXPECT_EQ(entry.AsPointer(), nullptr);
    EXPECT_EQ(entry.AsObject(), nullptr);
    EXPECT_EQ(entry.AsClass(), nullptr);
    EXPECT_EQ(entry.AInterface(), nullptr);
    EXPECT_EQ(entry.DataType(), nvVariant);
}

TEST(NamedValueTest, DataTypeFollowsTheFirstPayloadSet) {
    QObject object;
    int pointee = 0;
    const auto anInterface = std::make_shared<TGreeter>();
    const struct {
        bool object, metaClass, pointer, anInterface;
        TnvNamedValueDataType expected;
    } cases[] = {
        {true, true, true, true, nvObject},      {false, true, true, true, nvClass},
        {false, false, true, true, nvPointer},   {false, false, false, true, nvInterface},
        {true, false, false, false, nvObject},   {false, true, false, true, nvClass},
        {false, false, false, false, nvVariant},
    };
    for (const auto& c : cases) {
        TnvNamedValue entry(u"x"_s, Variant(qint32(1)));
        if (c.object)
            entry.SetAsObject(&object);
        if (c.metaClass)
            entry.SetAsClass(&QObject::staticMetaObject);
        if (c.pointer)
            entry.SetAsPointer(&pointee);
        if (c.anInterface)
            entry.SetInterface(anInterface);
        EXPECT_EQ(entry.DataType(), c.expected) << c.object << c.metaClass << c.pointer << c.anInterface;
    }
}

TEST(NamedValueTest, ConversionsOfEmptyValuesGiveZero) {
    for (const Variant& value : {Variant(), Variant::null()}) {
        const TnvNamedValue entry(u"x"_s, value);
        SCOPED_TRACE(Variant::typeName(value.type()).toStdString());
        EXPECT_FALSE(entry.AsBoolean());
        EXPECT_EQ(entry.AsInteger(), 0);
        EXPECT_EQ(entry.AsIdentifier(), 0);
        EXPECT_EQ(entry.AsDouble(), 0.0);
        EXPECT_EQ(entry.AsDateTime(), 0.0);
        EXPECT_EQ(entry.AsCurrency(), Currency{});
        EXPECT_EQ(entry.AsString(), QString());
        EXPECT_TRUE(entry.AsBytes().isEmpty());
    }
}

TEST(NamedValueTest, OnlyNullIsNull) {
    EXPECT_TRUE(TnvNamedValue(u"x"_s, Variant::null()).IsNull());
    EXPECT_FALSE(TnvNamedValue(u"x"_s, Variant()).IsNull());
    EXPECT_FALSE(TnvNamedValue(u"x"_s, Variant(u""_s)).IsNull());
    EXPECT_FALSE(TnvNamedValue(u"x"_s, Variant(qint32(0))).IsNull());
}

TEST(NamedValueTest, WritingIsNullAlwaysMakesNull) {
    for (const bool written : {true, false}) {
        TnvNamedValue entry(u"x"_s, Variant(qint32(5)));
        entry.SetIsNull(written);
        EXPECT_TRUE(entry.IsNull());
        EXPECT_EQ(entry.AsVariant().type(), VarType::Null);
    }
}

TEST(NamedValueTest, ConversionsOfPresentValues) {
    const TDateTime christmas = 44189.0;
    const struct {
        const char* label;
        Variant value;
        bool boolean;
        qint32 integer;
        double number;
        qint64 currencyScaled;
        QString text;
    } cases[] = {
        {"true", Variant(true), true, -1, -1.0, -10000, u"True"_s},
        {"false", Variant(false), false, 0, 0.0, 0, u"False"_s},
        {"integer", Variant(qint32(42)), true, 42, 42.0, 420000, u"42"_s},
        {"int64", Variant(qint64(-7)), true, -7, -7.0, -70000, u"-7"_s},
        {"double", Variant(2.5), true, 2, 2.5, 25000, u"2,5"_s},
        {"double rounds up", Variant(3.5), true, 4, 3.5, 35000, u"3,5"_s},
        {"currency", Variant(Currency{12345}), true, 1, 1.2345, 12345, u"1,2345"_s},
        {"date", Variant::fromDate(christmas + 0.5), true, 44190, christmas + 0.5, 441895000,
         u"24.12.2020 12:00:00"_s},
        {"text with comma", Variant(u"1,5"_s), true, 2, 1.5, 15000, u"1,5"_s},
        {"narrow text", ansi(u"12"_s), true, 12, 12.0, 120000, u"12"_s},
        {"text zero", Variant(u"0"_s), false, 0, 0.0, 0, u"0"_s},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        const TnvNamedValue entry(u"x"_s, c.value);
        EXPECT_EQ(entry.AsBoolean(), c.boolean);
        EXPECT_EQ(entry.AsInteger(), c.integer);
        EXPECT_DOUBLE_EQ(entry.AsDouble(), c.number);
        EXPECT_DOUBLE_EQ(entry.AsDateTime(), c.number);
        EXPECT_EQ(entry.AsCurrency().scaled, c.currencyScaled);
        EXPECT_EQ(entry.AsString(), c.text);
        EXPECT_TRUE(entry.AsBytes().isEmpty());
    }
}

TEST(NamedValueTest, TextThatIsNoNumberRaisesFromEveryNumericReader) {
    const TnvNamedValue entry(u"x"_s, Variant(u"abc"_s));
    const std::vector<std::pair<const char*, std::function<void()>>> readers = {
        {"AsBoolean", [&] { entry.AsBoolean(); }},   {"AsInteger", [&] { entry.AsInteger(); }},
        {"AsDouble", [&] { entry.AsDouble(); }},     {"AsDateTime", [&] { entry.AsDateTime(); }},
        {"AsCurrency", [&] { entry.AsCurrency(); }}, {"AsIdentifier", [&] { entry.AsIdentifier(); }},
    };
    for (const auto& [name, reader] : readers) {
        SCOPED_TRACE(name);
        EXPECT_THROW(reader(), EVariantTypeCastError);
    }
    EXPECT_EQ(entry.AsString(), u"abc"_s);
}

TEST(NamedValueTest, DateTimeReadsTextAsADayCountNotAsADate) {
    EXPECT_EQ(TnvNamedValue(u"x"_s, Variant(u"44189,5"_s)).AsDateTime(), 44189.5);
    EXPECT_THROW(TnvNamedValue(u"x"_s, Variant(u"24.12.2020"_s)).AsDateTime(), EVariantTypeCastError);
}

TEST(NamedValueTest, IdentifierFromNarrowTextIsLenient) {
    const struct {
        QString text;
        qint64 identifier;
    } cases[] = {
        {u"123"_s, 123},
        {u"  -42"_s, -42},
        {u"+7"_s, 7},
        {u"$FF"_s, 255},
        {u"0x1F"_s, 31},
        {u"$FFFFFFFF"_s, -1},
        {u"2147483647"_s, std::numeric_limits<qint32>::max()},
        {u"-2147483648"_s, std::numeric_limits<qint32>::min()},
        // beyond 32 bits, fractions, trailing blanks and words are no number: 0
        {u"2147483648"_s, 0},
        {u"-2147483649"_s, 0},
        {u"9999999999"_s, 0},
        {u"$100000000"_s, 0},
        {u"1,5"_s, 0},
        {u"42 "_s, 0},
        {u"abc"_s, 0},
        {u""_s, 0},
        {u"-"_s, 0},
        {u"$"_s, 0},
        {u"True"_s, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text.toStdString());
        EXPECT_EQ(TnvNamedValue(u"x"_s, ansi(c.text)).AsIdentifier(), c.identifier);
    }
}

TEST(NamedValueTest, IdentifierFromWideTextIsStrict) {
    EXPECT_THROW(TnvNamedValue(u"x"_s, Variant(u"abc"_s)).AsIdentifier(), EVariantTypeCastError);
    EXPECT_EQ(TnvNamedValue(u"x"_s, Variant(u"9999999999"_s)).AsIdentifier(), 9999999999);
    EXPECT_EQ(TnvNamedValue(u"x"_s, Variant(u"1,5"_s)).AsIdentifier(), 2);
}

TEST(NamedValueTest, IdentifierOfOtherKinds) {
    EXPECT_EQ(TnvNamedValue(u"x"_s, Variant(qint64(1) << 40)).AsIdentifier(), qint64(1) << 40);
    EXPECT_EQ(TnvNamedValue(u"x"_s, Variant(true)).AsIdentifier(), -1);
    EXPECT_EQ(TnvNamedValue(u"x"_s, Variant(2.5)).AsIdentifier(), 2);
    EXPECT_THROW(TnvNamedValue(u"x"_s, Variant(QByteArray("1"))).AsIdentifier(), EVariantTypeCastError);
}

TEST(NamedValueTest, IntegerOverflowRaises) {
    EXPECT_THROW(TnvNamedValue(u"x"_s, Variant(qint64(1) << 40)).AsInteger(), EVariantOverflowError);
}

TEST(NamedValueTest, BytesOnlyFromAnArrayOfByte) {
    const QByteArray bytes("\x00\x7f\xff", 3);
    EXPECT_EQ(TnvNamedValue(u"x"_s, Variant(bytes)).AsBytes(), bytes);
    EXPECT_TRUE(TnvNamedValue(u"x"_s, Variant(u"abc"_s)).AsBytes().isEmpty());
    EXPECT_TRUE(TnvNamedValue(u"x"_s, Variant(qint32(1))).AsBytes().isEmpty());
    EXPECT_THROW(TnvNamedValue(u"x"_s, Variant(bytes)).AsString(), EVariantTypeCastError);
}

TEST(NamedValueTest, WritersStoreTheirKind) {
    TnvNamedValue entry(u"x"_s, Variant());
    const struct {
        const char* label;
        std::function<void()> write;
        VarType type;
    } cases[] = {
        {"Boolean", [&] { entry.SetAsBoolean(true); }, VarType::Boolean},
        {"Integer", [&] { entry.SetAsInteger(1); }, VarType::Integer},
        {"Identifier", [&] { entry.SetAsIdentifier(1); }, VarType::Int64},
        {"Double", [&] { entry.SetAsDouble(1.5); }, VarType::Double},
        {"Currency", [&] { entry.SetAsCurrency(Currency{1}); }, VarType::Currency},
        {"DateTime", [&] { entry.SetAsDateTime(44189.5); }, VarType::Date},
        {"String", [&] { entry.SetAsString(u"x"_s); }, VarType::UString},
        {"Bytes", [&] { entry.SetAsBytes(QByteArray("x")); }, VarType::Bytes},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        c.write();
        EXPECT_EQ(entry.AsVariant().type(), c.type);
    }
    entry.SetAsDateTime(44189.5);
    EXPECT_EQ(entry.AsDateTime(), 44189.5);
    entry.SetAsIdentifier(qint64(1) << 40);
    EXPECT_EQ(entry.AsIdentifier(), qint64(1) << 40);
}

TEST(NamedValueTest, ApplyValueFromCopiesValueAndPayloadsOnly) {
    QObject object;
    int pointee = 0;
    TnvNamedValue source(u"Source"_s, Variant(u"v"_s));
    source.SetAsObject(&object);
    source.SetAsPointer(&pointee);
    source.SetAsClass(&QObject::staticMetaObject);
    source.SetInterface(std::make_shared<TGreeter>());
    source.SetTag(9);
    source.SetFieldType(ftMemo);

    TnvNamedValue target(u"Target"_s, Variant(qint32(1)));
    target.ApplyValueFrom(source);
    EXPECT_EQ(target.Name(), u"Target"_s);
    EXPECT_EQ(target.AsString(), u"v"_s);
    EXPECT_EQ(target.AsObject(), &object);
    EXPECT_EQ(target.AsPointer(), &pointee);
    EXPECT_EQ(target.AsClass(), &QObject::staticMetaObject);
    EXPECT_EQ(target.AInterface(), source.AInterface());
    EXPECT_EQ(target.Tag(), 0);
    EXPECT_EQ(target.FieldType(), ftUnknown);
}

TEST(NamedValueTest, SupportsAsksTheInterfaceForItsType) {
    TnvNamedValue entry(u"x"_s, Variant::null());
    EXPECT_EQ(entry.Supports<ISpeaker>(), nullptr);
    entry.SetInterface(std::make_shared<TGreeter>());
    ASSERT_NE(entry.Supports<ISpeaker>(), nullptr);
    EXPECT_EQ(entry.Supports<ISpeaker>()->Speak(), u"Servus"_s);
    EXPECT_EQ(entry.Supports<IUnrelated>(), nullptr);
}

// --- the list ----------------------------------------------------------------------------

TEST(NamedValuesTest, NamesDifferingInLetterCaseAreOneName) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsString(u"NAME"_s, u"y"_s);
    list->SetValueAsString(u"Name"_s, u"x"_s);
    EXPECT_EQ(list->Count(), 1);
    ASSERT_NE(list->FindValue(u"name"_s), nullptr);
    EXPECT_EQ(list->FindValue(u"name"_s)->Name(), u"NAME"_s);
    EXPECT_EQ(list->GetValueAsString(u"nAmE"_s), u"x"_s);
}

TEST(NamedValuesTest, LetterCaseBeyondASCII) {
    const struct {
        QString first, second;
        bool same;
    } cases[] = {
        {u"Ärzte"_s, u"ÄRZTE"_s, true},
        {u"ärzte"_s, u"ÄRZTE"_s, true},
        {u"Größe"_s, u"GRÖßE"_s, true},
        {u"ΣΟΦΊΑ"_s, u"σοφία"_s, true},
        {u"\U00010400"_s, u"\U00010428"_s, true}, // outside the basic plane
        {u"k"_s, u"\u212A"_s, true},              // the Kelvin sign folds to a plain k
        {u"a"_s, u"b"_s, false},
        {u"a"_s, u"a "_s, false},
        {u"a"_s, u"ä"_s, false},
        {u"ss"_s, u"ß"_s, false},
        {u""_s, u" "_s, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.first.toStdString() + " / " + c.second.toStdString());
        const auto list = TnvNamedValues::Create();
        list->SetValueAsInteger(c.first, 1);
        list->SetValueAsInteger(c.second, 2);
        EXPECT_EQ(list->Count(), c.same ? 1 : 2);
        EXPECT_EQ(list->GetValueAsInteger(c.first), c.same ? 2 : 1);
        EXPECT_EQ(list->FindValue(c.second)->Name(), c.same ? c.first : c.second);
    }
}

TEST(NamedValuesTest, AnEmptyNameIsAName) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsInteger(QString(), 3);
    EXPECT_TRUE(list->ValueExists(u""_s));
    EXPECT_EQ(list->GetValueAsInteger(QString()), 3);
}

TEST(NamedValuesTest, StrictGettersRaiseForAMissingName) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsInteger(u"present"_s, 1);
    const std::vector<std::pair<const char*, std::function<void()>>> getters = {
        {"Identifier", [&] { list->GetValueAsIdentifier(u"missing"_s); }},
        {"Integer", [&] { list->GetValueAsInteger(u"missing"_s); }},
        {"Boolean", [&] { list->GetValueAsBoolean(u"missing"_s); }},
        {"DateTime", [&] { list->GetValueAsDateTime(u"missing"_s); }},
        {"Double", [&] { list->GetValueAsDouble(u"missing"_s); }},
        {"Object", [&] { list->GetValueAsObject(u"missing"_s); }},
        {"Class", [&] { list->GetValueAsClass(u"missing"_s); }},
        {"Pointer", [&] { list->GetValueAsPointer(u"missing"_s); }},
        {"String", [&] { list->GetValueAsString(u"missing"_s); }},
        {"Currency", [&] { list->GetValueAsCurrency(u"missing"_s); }},
        {"Variant", [&] { list->GetValueAsVariant(u"missing"_s); }},
        {"GetValue", [&] { list->GetValue(u"missing"_s); }},
        {"GetInterface", [&] { list->GetInterface<ISpeaker>(u"missing"_s); }},
    };
    for (const auto& [name, getter] : getters) {
        SCOPED_TRACE(name);
        EXPECT_EQ(failureOf<Exception>(getter), u"The named value \"missing\" does not exist!"_s);
    }
}

TEST(NamedValuesTest, MissingNameIsQuotedAsAsked) {
    const auto list = TnvNamedValues::Create();
    for (const QString& name : {u"MiSSing"_s, u""_s, u"%1 und \"%2\""_s, u"Größe"_s}) {
        try {
            list->GetValueAsInteger(name);
            FAIL() << "no error raised";
        } catch (const Exception& error) {
            EXPECT_EQ(error.message(), missingNameText(name));
        }
    }
}

TEST(NamedValuesTest, StrictBytesGetterDoesNotRaise) {
    const auto list = TnvNamedValues::Create();
    EXPECT_TRUE(list->GetValueAsBytes(u"missing"_s).isEmpty());
    list->SetValueAsBytes(u"blob"_s, QByteArray("\x01\x02", 2));
    EXPECT_EQ(list->GetValueAsBytes(u"BLOB"_s), QByteArray("\x01\x02", 2));
}

TEST(NamedValuesTest, StrictGettersConvertAPresentValue) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsString(u"n"_s, u"12"_s);
    EXPECT_EQ(list->GetValueAsIdentifier(u"n"_s), 12);
    EXPECT_EQ(list->GetValueAsInteger(u"n"_s), 12);
    EXPECT_TRUE(list->GetValueAsBoolean(u"n"_s));
    EXPECT_EQ(list->GetValueAsDateTime(u"n"_s), 12.0);
    EXPECT_EQ(list->GetValueAsDouble(u"n"_s), 12.0);
    EXPECT_EQ(list->GetValueAsCurrency(u"n"_s), Currency{120000});
    EXPECT_EQ(list->GetValueAsVariant(u"n"_s), Variant(u"12"_s));
    EXPECT_EQ(list->GetValueAsObject(u"n"_s), nullptr);
    EXPECT_EQ(list->GetValueAsClass(u"n"_s), nullptr);
    EXPECT_EQ(list->GetValueAsPointer(u"n"_s), nullptr);
}

TEST(NamedValuesTest, LenientGettersGiveZeroForAMissingName) {
    const auto list = TnvNamedValues::Create();
    EXPECT_EQ(list->GetAsIdentifier(u"missing"_s), 0);
    EXPECT_EQ(list->GetAsInteger(u"missing"_s), 0);
    EXPECT_FALSE(list->GetAsBoolean(u"missing"_s));
    EXPECT_EQ(list->GetAsDateTime(u"missing"_s), 0.0);
    EXPECT_EQ(list->GetAsDouble(u"missing"_s), 0.0);
    EXPECT_EQ(list->GetAsObject(u"missing"_s), nullptr);
    EXPECT_EQ(list->GetAsPointer(u"missing"_s), nullptr);
    EXPECT_EQ(list->GetAsString(u"missing"_s), QString());
    EXPECT_EQ(list->GetAsCurrency(u"missing"_s), Currency{});
    EXPECT_EQ(list->GetAsVariant(u"missing"_s).type(), VarType::Null);
    EXPECT_TRUE(list->GetAsBytes(u"missing"_s).isEmpty());
    EXPECT_EQ(list->Count(), 0);
}

TEST(NamedValuesTest, LenientClassOfAMissingNameIsTheRootClass) {
    const auto list = TnvNamedValues::Create();
    EXPECT_EQ(list->GetAsClass(u"missing"_s), &QObject::staticMetaObject);
    list->SetValueAsInteger(u"present"_s, 1);
    EXPECT_EQ(list->GetAsClass(u"present"_s), nullptr);
}

TEST(NamedValuesTest, LenientGettersConvertAPresentValue) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsDouble(u"d"_s, 2.5);
    EXPECT_EQ(list->GetAsIdentifier(u"d"_s), 2);
    EXPECT_EQ(list->GetAsInteger(u"d"_s), 2);
    EXPECT_EQ(list->GetAsString(u"d"_s), u"2,5"_s);
    EXPECT_EQ(list->GetAsCurrency(u"d"_s), Currency{25000});
    EXPECT_EQ(list->GetAsVariant(u"d"_s), Variant(2.5));
}

TEST(NamedValuesTest, DefaultedGettersGiveTheDefaultForAMissingName) {
    const auto list = TnvNamedValues::Create();
    QObject object;
    int pointee = 0;
    EXPECT_EQ(list->GetValueAsIdentifier(u"missing"_s, qint64(1) << 40), qint64(1) << 40);
    EXPECT_EQ(list->GetValueAsInteger(u"missing"_s, 7), 7);
    EXPECT_TRUE(list->GetValueAsBoolean(u"missing"_s, true));
    EXPECT_EQ(list->GetValueAsDateTime(u"missing"_s, 44189.5), 44189.5);
    EXPECT_EQ(list->GetValueAsDouble(u"missing"_s, 1.25), 1.25);
    EXPECT_EQ(list->GetValueAsObject(u"missing"_s, &object), &object);
    EXPECT_EQ(list->GetValueAsClass(u"missing"_s, &QObject::staticMetaObject), &QObject::staticMetaObject);
    EXPECT_EQ(list->GetValueAsPointer(u"missing"_s, &pointee), &pointee);
    EXPECT_EQ(list->GetValueAsString(u"missing"_s, u"d"_s), u"d"_s);
    EXPECT_EQ(list->GetValueAsCurrency(u"missing"_s, Currency{5}), Currency{5});
    EXPECT_EQ(list->GetValueAsVariant(u"missing"_s, Variant(qint32(3))), Variant(qint32(3)));
    EXPECT_EQ(list->GetValueAsBytes(u"missing"_s, QByteArray("d")), QByteArray("d"));
}

TEST(NamedValuesTest, DefaultedGettersGiveTheZeroForANullValue) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsVariant(u"n"_s, Variant::null());
    QObject object;
    int pointee = 0;
    EXPECT_EQ(list->GetValueAsIdentifier(u"n"_s, 9), 0);
    EXPECT_EQ(list->GetValueAsInteger(u"n"_s, 7), 0);
    EXPECT_FALSE(list->GetValueAsBoolean(u"n"_s, true));
    EXPECT_EQ(list->GetValueAsDateTime(u"n"_s, 44189.5), 0.0);
    EXPECT_EQ(list->GetValueAsDouble(u"n"_s, 1.25), 0.0);
    EXPECT_EQ(list->GetValueAsObject(u"n"_s, &object), nullptr);
    EXPECT_EQ(list->GetValueAsClass(u"n"_s, &QObject::staticMetaObject), nullptr);
    EXPECT_EQ(list->GetValueAsPointer(u"n"_s, &pointee), nullptr);
    EXPECT_EQ(list->GetValueAsString(u"n"_s, u"d"_s), QString());
    EXPECT_EQ(list->GetValueAsCurrency(u"n"_s, Currency{5}), Currency{});
    EXPECT_EQ(list->GetValueAsVariant(u"n"_s, Variant(qint32(3))).type(), VarType::Null);
    EXPECT_TRUE(list->GetValueAsBytes(u"n"_s, QByteArray("d")).isEmpty());
}

TEST(NamedValuesTest, DefaultedGettersStillRaiseOnBadText) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsString(u"n"_s, u"abc"_s);
    EXPECT_THROW(list->GetValueAsInteger(u"n"_s, 7), EVariantTypeCastError);
    EXPECT_THROW(list->GetAsDouble(u"n"_s), EVariantTypeCastError);
    EXPECT_THROW(list->GetValueAsBoolean(u"n"_s, false), EVariantTypeCastError);
}

TEST(NamedValuesTest, ScalarSettersPackTheirKind) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsIdentifier(u"Identifier"_s, 1);
    list->SetValueAsInteger(u"Integer"_s, 1);
    list->SetValueAsBoolean(u"Boolean"_s, true);
    list->SetValueAsDateTime(u"DateTime"_s, 1);
    list->SetValueAsDouble(u"Double"_s, 1);
    list->SetValueAsString(u"String"_s, u"1"_s);
    list->SetValueAsCurrency(u"Currency"_s, Currency{1});
    list->SetValueAsVariant(u"Variant"_s, ansi(u"1"_s));
    list->SetValueAsBytes(u"Bytes"_s, QByteArray("1"));
    const struct {
        QString name;
        VarType type;
    } expected[] = {
        {u"Identifier"_s, VarType::Int64},  {u"Integer"_s, VarType::Integer},
        {u"Boolean"_s, VarType::Boolean},   {u"DateTime"_s, VarType::Date},
        {u"Double"_s, VarType::Double},     {u"String"_s, VarType::UString},
        {u"Currency"_s, VarType::Currency}, {u"Variant"_s, VarType::String},
        {u"Bytes"_s, VarType::Bytes},
    };
    EXPECT_EQ(list->Count(), 9);
    for (const auto& e : expected) {
        SCOPED_TRACE(e.name.toStdString());
        EXPECT_EQ(list->GetValueAsVariant(e.name).type(), e.type);
        EXPECT_EQ(list->FindValue(e.name)->DataType(), nvVariant);
    }
}

TEST(NamedValuesTest, PayloadSetterOnANewNameLeavesTheValueNull) {
    QObject object;
    int pointee = 0;
    const auto list = TnvNamedValues::Create();
    list->SetValueAsObject(u"o"_s, &object);
    list->AddClass(u"c"_s, &QObject::staticMetaObject);
    list->SetValueAsPointer(u"p"_s, &pointee);
    const struct {
        QString name;
        TnvNamedValueDataType type;
    } cases[] = {{u"o"_s, nvObject}, {u"c"_s, nvClass}, {u"p"_s, nvPointer}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name.toStdString());
        EXPECT_TRUE(list->GetIsNull(c.name));
        EXPECT_EQ(list->FindValue(c.name)->DataType(), c.type);
    }
    EXPECT_EQ(list->GetValueAsObject(u"O"_s), &object);
    EXPECT_EQ(list->GetValueAsClass(u"C"_s), &QObject::staticMetaObject);
    EXPECT_EQ(list->GetValueAsPointer(u"P"_s), &pointee);
}

TEST(NamedValuesTest, PayloadSetterOnAPresentNameKeepsTheValue) {
    QObject object;
    const auto list = TnvNamedValues::Create();
    list->SetValueAsInteger(u"x"_s, 5);
    list->SetValueAsObject(u"X"_s, &object);
    list->SetValueAsClass(u"x"_s, &QObject::staticMetaObject);
    EXPECT_EQ(list->GetValueAsInteger(u"x"_s), 5);
    EXPECT_EQ(list->GetValueAsObject(u"x"_s), &object);
    EXPECT_EQ(list->FindValue(u"x"_s)->Name(), u"x"_s);
}

TEST(NamedValuesTest, ValueWriteKeepsPayloadTagAndFieldType) {
    QObject object;
    const auto list = TnvNamedValues::Create();
    list->SetValueAsObject(u"x"_s, &object);
    list->AddInterface(u"x"_s, std::make_shared<TGreeter>());
    TnvNamedValue* entry = list->FindValue(u"x"_s);
    entry->SetTag(4);
    entry->SetFieldType(ftInteger);
    list->Add(u"X"_s, Variant(qint32(8)));
    EXPECT_EQ(list->FindValue(u"x"_s), entry);
    EXPECT_EQ(entry->AsInteger(), 8);
    EXPECT_EQ(entry->AsObject(), &object);
    EXPECT_NE(entry->AInterface(), nullptr);
    EXPECT_EQ(entry->Tag(), 4);
    EXPECT_EQ(entry->FieldType(), ftInteger);
}

TEST(NamedValuesTest, ValueWriteFollowsReferences) {
    Variant target(qint32(5));
    const auto list = TnvNamedValues::Create();
    list->Add(u"r"_s, Variant::byRef(&target));
    target = Variant(qint32(7));
    EXPECT_EQ(list->GetValueAsVariant(u"r"_s).type(), VarType::Integer);
    EXPECT_EQ(list->GetValueAsInteger(u"r"_s), 5);
}

TEST(NamedValuesTest, AddKeepsTheLastValue) {
    const auto list = TnvNamedValues::Create();
    list->Add(u"a"_s, Variant(qint32(1)));
    list->Add(u"A"_s, Variant(qint32(2)));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->GetValueAsInteger(u"a"_s), 2);
}

TEST(NamedValuesTest, AddValueKeepsTheFirstValue) {
    const auto list = TnvNamedValues::Create();
    list->AddValue(TnvNamedValue(u"a"_s, Variant(qint32(1))));
    list->AddValue(TnvNamedValue(u"A"_s, Variant(qint32(2))));
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->GetValueAsInteger(u"a"_s), 1);
    EXPECT_EQ(list->FindValue(u"a"_s)->Name(), u"a"_s);
}

TEST(NamedValuesTest, AddValueByCopyIsIndependentOfTheOriginal) {
    QObject object;
    TnvNamedValue original(u"a"_s, Variant(qint32(1)));
    original.SetAsObject(&object);
    original.SetTag(3);
    original.SetFieldType(ftString);
    const auto list = TnvNamedValues::Create();
    list->AddValue(original);
    original.SetAsInteger(2);

    TnvNamedValue* copy = list->FindValue(u"a"_s);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, &original);
    EXPECT_EQ(copy->AsInteger(), 1);
    EXPECT_EQ(copy->AsObject(), &object);
    EXPECT_EQ(copy->Tag(), 0);
    EXPECT_EQ(copy->FieldType(), ftUnknown);
}

TEST(NamedValuesTest, AddValueHandsTheEntryOver) {
    const auto list = TnvNamedValues::Create();
    auto entry = std::make_unique<TnvNamedValue>(u"a"_s, Variant(qint32(1)));
    TnvNamedValue* raw = entry.get();
    entry->SetTag(3);
    list->AddValue(entry);
    EXPECT_EQ(entry, nullptr);
    EXPECT_EQ(list->FindValue(u"A"_s), raw);
    EXPECT_EQ(raw->Tag(), 3);
}

TEST(NamedValuesTest, AddValueOfAPresentNameLeavesTheEntryWithTheCaller) {
    const auto list = TnvNamedValues::Create();
    list->Add(u"a"_s, Variant(qint32(1)));
    auto entry = std::make_unique<TnvNamedValue>(u"A"_s, Variant(qint32(2)));
    list->AddValue(entry);
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->AsInteger(), 2);
    EXPECT_EQ(list->GetValueAsInteger(u"a"_s), 1);

    std::unique_ptr<TnvNamedValue> nothing;
    list->AddValue(nothing);
    EXPECT_EQ(list->Count(), 1);
}

TEST(NamedValuesTest, AddValuesByKind) {
    QObject object;
    int pointee = 0;
    const auto speaker = std::make_shared<TGreeter>();
    Variant referenced(qint32(11));
    const auto list = TnvNamedValues::Create(
        {u"int"_s, u"bool"_s, u"char"_s, u"ansi char"_s, u"double"_s, u"string"_s, u"narrow"_s, u"wide"_s,
         u"pointer"_s, u"object"_s, u"class"_s, u"currency"_s, u"variant"_s, u"reference"_s, u"interface"_s,
         u"int64"_s},
        {qint32(5), true, 'x', '\xe4', 1.5, u"text"_s, "M\xfcller", u"wide", static_cast<void*>(&pointee),
         &object, &QObject::staticMetaObject, Currency{12345}, ansi(u"n"_s), Variant::byRef(&referenced),
         std::shared_ptr<IInterface>(speaker), qint64(1) << 40});
    EXPECT_EQ(list->Count(), 16);

    const struct {
        QString name;
        VarType type;
        QString text;
    } values[] = {
        {u"int"_s, VarType::Integer, u"5"_s},
        {u"bool"_s, VarType::Boolean, u"True"_s},
        {u"char"_s, VarType::UString, u"x"_s},
        {u"ansi char"_s, VarType::UString, u"ä"_s},
        {u"double"_s, VarType::Double, u"1,5"_s},
        {u"string"_s, VarType::UString, u"text"_s},
        {u"narrow"_s, VarType::UString, u"Müller"_s},
        {u"wide"_s, VarType::UString, u"wide"_s},
        {u"currency"_s, VarType::Currency, u"1,2345"_s},
        {u"variant"_s, VarType::String, u"n"_s},
        {u"reference"_s, VarType::Integer, u"11"_s},
        {u"int64"_s, VarType::Int64, u"1099511627776"_s},
    };
    for (const auto& v : values) {
        SCOPED_TRACE(v.name.toStdString());
        EXPECT_EQ(list->GetValueAsVariant(v.name).type(), v.type);
        EXPECT_EQ(list->GetValueAsString(v.name), v.text);
        EXPECT_EQ(list->FindValue(v.name)->DataType(), nvVariant);
    }
    EXPECT_EQ(list->GetValueAsPointer(u"pointer"_s), &pointee);
    EXPECT_EQ(list->GetValueAsObject(u"object"_s), &object);
    EXPECT_EQ(list->GetValueAsClass(u"class"_s), &QObject::staticMetaObject);
    EXPECT_EQ(list->GetInterface<ISpeaker>(u"interface"_s), speaker);
    for (const QString& name : {u"pointer"_s, u"object"_s, u"class"_s, u"interface"_s}) {
        SCOPED_TRACE(name.toStdString());
        EXPECT_TRUE(list->GetIsNull(name));
    }
}

TEST(NamedValuesTest, AddValuesTakesNullTextPointersAsEmptyText) {
    const auto list = TnvNamedValues::Create(
        {u"narrow"_s, u"wide"_s}, {static_cast<const char*>(nullptr), static_cast<const char16_t*>(nullptr)});
    EXPECT_EQ(list->Count(), 2);
    EXPECT_EQ(list->GetValueAsString(u"narrow"_s), QString());
    EXPECT_EQ(list->GetValueAsString(u"wide"_s), QString());
}

TEST(NamedValuesTest, AddValuesPassesOverAWideCharacter) {
    const auto list = TnvNamedValues::Create();
    list->AddValues({u"a"_s}, {u'x'});
    EXPECT_EQ(list->Count(), 0);
    list->AddValues({u"a"_s, u"b"_s}, {u'x', qint32(1)});
    EXPECT_EQ(list->Count(), 1);
    EXPECT_TRUE(list->ValueExists(u"b"_s));
}

TEST(NamedValuesTest, AddValuesWithALaterDuplicateNameFollowsAddRules) {
    int pointee = 0;
    const auto list = TnvNamedValues::Create({u"a"_s, u"A"_s, u"a"_s},
                                             {qint32(1), qint32(2), static_cast<void*>(&pointee)});
    EXPECT_EQ(list->Count(), 1);
    EXPECT_EQ(list->GetValueAsInteger(u"a"_s), 2);
    EXPECT_EQ(list->GetValueAsPointer(u"a"_s), &pointee);
}

TEST(NamedValuesTest, AddValuesWithMismatchedCountsIsAProgrammingError) {
    const QString text =
        u"TnvDispatchBase.Create: The count of parameter names mismatches the count of values."_s;
    EXPECT_EQ(failureOf<std::logic_error>([] {
                  TnvNamedValues::Create({u"a"_s, u"b"_s}, {qint32(1)});
              }),
              text);
    const auto list = TnvNamedValues::Create();
    EXPECT_EQ(failureOf<std::logic_error>([&] { list->AddValues({u"a"_s}, {qint32(1), qint32(2)}); }), text);
    EXPECT_EQ(list->Count(), 0);
}

TEST(NamedValuesTest, AddValuesWithAnElementOfNoKindIsAProgrammingError) {
    const auto list = TnvNamedValues::Create();
    EXPECT_EQ(failureOf<std::logic_error>([&] {
                  list->AddValues({u"a"_s, u"b"_s}, {qint32(1), TVarRec()});
              }),
              u"unknown data type in TnvNamedValues.AddValues!"_s);
    EXPECT_TRUE(list->ValueExists(u"a"_s));
}

TEST(NamedValuesTest, InterfaceIsHeldByReference) {
    std::weak_ptr<TGreeter> watcher;
    {
        const auto list = TnvNamedValues::Create();
        auto speaker = std::make_shared<TGreeter>();
        watcher = speaker;
        list->AddInterface(u"s"_s, std::move(speaker));
        EXPECT_FALSE(watcher.expired());
        EXPECT_TRUE(list->GetIsNull(u"s"_s));
        EXPECT_EQ(list->FindValue(u"s"_s)->DataType(), nvInterface);
        EXPECT_EQ(list->GetInterface<ISpeaker>(u"S"_s)->Speak(), u"Servus"_s);
        EXPECT_EQ(list->GetInterface<IUnrelated>(u"s"_s), nullptr);
        list->Delete(u"S"_s);
        EXPECT_TRUE(watcher.expired());

        auto again = std::make_shared<TGreeter>();
        watcher = again;
        list->AddInterface(u"s"_s, std::move(again));
    }
    EXPECT_TRUE(watcher.expired());
}

TEST(NamedValuesTest, ObjectsAreNotOwned) {
    QPointer<QObject> object = new QObject;
    {
        const auto list = TnvNamedValues::Create();
        list->SetValueAsObject(u"o"_s, object);
        list->Clear();
        list->SetValueAsObject(u"o"_s, object);
    }
    EXPECT_FALSE(object.isNull());
    delete object;
}

TEST(NamedValuesTest, AListCanCarryAnotherListAsInterface) {
    const auto inner = TnvNamedValues::Create({u"k"_s}, {qint32(1)});
    const auto outer = TnvNamedValues::Create();
    outer->AddInterface(u"inner"_s, inner);
    const InvNamedValuesPtr found = outer->GetInterface<InvNamedValues>(u"inner"_s);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->GetValueAsInteger(u"K"_s), 1);
}

TEST(NamedValuesTest, GetIsNull) {
    const auto list = TnvNamedValues::Create();
    list->Add(u"null"_s, Variant::null());
    list->Add(u"unassigned"_s, Variant());
    list->Add(u"empty text"_s, Variant(QString()));
    EXPECT_TRUE(list->GetIsNull(u"missing"_s));
    EXPECT_TRUE(list->GetIsNull(u"NULL"_s));
    EXPECT_FALSE(list->GetIsNull(u"unassigned"_s));
    EXPECT_FALSE(list->GetIsNull(u"empty text"_s));
}

TEST(NamedValuesTest, DeleteAndClear) {
    const auto list = TnvNamedValues::Create({u"a"_s, u"b"_s, u"c"_s}, {qint32(1), qint32(2), qint32(3)});
    list->Delete(u"missing"_s);
    EXPECT_EQ(list->Count(), 3);
    list->Delete(u"B"_s);
    EXPECT_EQ(list->Count(), 2);
    EXPECT_FALSE(list->ValueExists(u"b"_s));
    list->ClearValues();
    EXPECT_EQ(list->Count(), 0);
    list->Add(u"d"_s, Variant(qint32(4)));
    list->Clear();
    EXPECT_EQ(list->Count(), 0);
    EXPECT_EQ(list->FindValue(u"d"_s), nullptr);
}

TEST(NamedValuesTest, ValuesHoldsEveryEntryOnce) {
    const auto list = TnvNamedValues::Create({u"a"_s, u"b"_s, u"c"_s}, {qint32(1), qint32(2), qint32(3)});
    QStringList names;
    for (const TnvNamedValue* entry : list->Values())
        names.append(entry->Name());
    names.sort();
    EXPECT_EQ(names, QStringList({u"a"_s, u"b"_s, u"c"_s}));
}

TEST(NamedValuesTest, GetNamesRunsTheNamesTogetherAndCutsTheFront) {
    const auto list = TnvNamedValues::Create({u"ab"_s, u"cd"_s}, {qint32(1), qint32(2)});
    QString together;
    for (const TnvNamedValue* entry : list->Values())
        together += entry->Name();
    EXPECT_TRUE(together == u"abcd"_s || together == u"cdab"_s) << together.toStdString();
    EXPECT_EQ(list->GetNames(QString()), together);
    EXPECT_EQ(list->GetNames(u","_s), together.mid(1));
    EXPECT_EQ(list->GetNames(u", "_s), together.mid(2));
    EXPECT_FALSE(list->GetNames(u", "_s).contains(u','));
    EXPECT_EQ(list->GetNames(u"a separator longer than the names"_s), QString());
    EXPECT_EQ(TnvNamedValues::Create()->GetNames(u","_s), QString());
}

TEST(NamedValuesTest, ToJSONWritesEveryValueAsText) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsInteger(u"name"_s, 5);
    EXPECT_EQ(list->toJSON().toString(), u"{\"name\":\"5\"}"_s);
}

TEST(NamedValuesTest, ToJSONOfAnEmptyListIsAnEmptyObject) {
    const Variant json = TnvNamedValues::Create()->toJSON();
    EXPECT_TRUE(json.isJSON());
    EXPECT_EQ(json.toString(), u"{}"_s);
}

TEST(NamedValuesTest, ToJSONLeavesPayloadsOut) {
    QObject object;
    const auto list = TnvNamedValues::Create();
    list->SetValueAsBoolean(u"Flag"_s, true);
    list->SetValueAsDouble(u"Amount"_s, 1.5);
    list->SetValueAsObject(u"Form"_s, &object);
    list->Add(u"Nothing"_s, Variant::null());
    const Variant json = list->toJSON();
    EXPECT_EQ(json[u"Flag"_s].type(), VarType::UString);
    EXPECT_EQ(json[u"Flag"_s].toString(), u"True"_s);
    EXPECT_EQ(json[u"Amount"_s].toString(), u"1,5"_s);
    EXPECT_EQ(json[u"Form"_s].toString(), QString());
    EXPECT_EQ(json[u"Nothing"_s].toString(), QString());
    EXPECT_EQ(json.json()->VCount, 4);
}

TEST(NamedValuesTest, ToJSONKeepsTheFirstSpelling) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsString(u"Arzt"_s, u"a"_s);
    list->SetValueAsString(u"ARZT"_s, u"b"_s);
    EXPECT_EQ(list->toJSON().toString(), u"{\"Arzt\":\"b\"}"_s);
}

TEST(NamedValuesTest, ListIsSharedByReferenceCount) {
    InvNamedValuesPtr shared;
    std::weak_ptr<InvNamedValues> watcher;
    {
        const auto list = TnvNamedValues::Create();
        list->SetValueAsString(u"k"_s, u"v"_s);
        shared = list;
        watcher = list;
    }
    EXPECT_EQ(shared->GetValueAsString(u"K"_s), u"v"_s);
    shared.reset();
    EXPECT_TRUE(watcher.expired());
}

TEST(NamedValuesTest, GetValueAndFindValueGiveTheSameEntry) {
    const auto list = TnvNamedValues::Create();
    list->SetValueAsInteger(u"k"_s, 1);
    EXPECT_EQ(list->GetValue(u"K"_s), list->FindValue(u"k"_s));
    EXPECT_EQ(list->GetNamedValue(u"K"_s), list->FindValue(u"k"_s));
    EXPECT_EQ(list->FindValue(u"missing"_s), nullptr);
    EXPECT_EQ(list->GetNamedValue(u"missing"_s), nullptr);
}

TEST(NamedValuesTest, ManyNamesStayApart) {
    const auto list = TnvNamedValues::Create();
    for (int i = 0; i < 2000; ++i)
        list->SetValueAsInteger(u"Feld"_s + QString::number(i), i);
    EXPECT_EQ(list->Count(), 2000);
    for (int i = 0; i < 2000; i += 37)
        EXPECT_EQ(list->GetValueAsInteger(u"FELD"_s + QString::number(i)), i);
}
