#include "TJSONVariantData.h"

#include "EJSONException.h"
#include "JSONWriter.h"
#include "TJSONObjectMapper.h"
#include "TJSONParser.h"
#include "Variant.h"

namespace norvik {

namespace {

Variant parseTopValue(const QString& json, TJSONParserKind& kind) {
    TJSONParser parser(json);
    Variant value;
    kind = parser.GetNextJSON(value);
    return value;
}

} // namespace

void TJSONVariantData::Init() {
    *this = TJSONVariantData();
}

void TJSONVariantData::Init(const QString& json) {
    Init();
    TJSONParserKind kind = kNone;
    const Variant value = parseTopValue(json, kind);
    if (const TJSONVariantData* data = value.json())
        *this = *data;
    else if (kind == kNull)
        VKind = jvObject;
}

void TJSONVariantData::InitFrom(const QList<Variant>& values) {
    Init();
    VKind = jvArray;
    Values = std::make_shared<QList<Variant>>(values);
    VCount = int(values.size());
}

void TJSONVariantData::Clear() {
    Init();
}

bool TJSONVariantData::FromJSON(const QString& json) {
    TJSONParserKind kind = kNone;
    const Variant value = parseTopValue(json, kind);
    if (const TJSONVariantData* data = value.json())
        *this = *data;
    else
        Init();
    return kind == kObject || kind == kArray;
}

TJSONVariantData* TJSONVariantData::Data(const QString& name) {
    Variant* element = ValueOf(name);
    return element ? element->json() : nullptr;
}

TJSONVariantData* TJSONVariantData::EnsureData(const QString& path) {
    const qsizetype dot = path.indexOf(u'.');
    if (dot >= 0)
        return EnsureData(path.left(dot))->EnsureData(path.mid(dot + 1));
    const int index = NameIndex(path);
    if (index < 0) {
        AddNameValue(path, Variant(TJSONVariantData()));
        return ValueAt(VCount - 1).json();
    }
    Variant& element = ValueAt(index);
    if (!element.isJSON())
        element = Variant(TJSONVariantData());
    return element.json();
}

TJSONVariantData* TJSONVariantData::AddItem() {
    AddValue(Variant(TJSONVariantData()));
    return ValueAt(VCount - 1).json();
}

void TJSONVariantData::SetPath(const QString& path, const Variant& value) {
    const qsizetype dot = path.lastIndexOf(u'.');
    if (dot < 0)
        SetValue(path, value);
    else
        EnsureData(path.left(dot))->SetValue(path.mid(dot + 1), value);
}

void TJSONVariantData::CutToCount() {
    // cutting, like growing, leaves a copy that shares the arrays untouched
    auto cut = [this](auto& array) {
        if (!array || array->size() == VCount)
            return;
        if (array.use_count() > 1)
            array = std::make_shared<std::decay_t<decltype(*array)>>(*array);
        array->resize(VCount);
        array->squeeze();
    };
    cut(Values);
    cut(Names);
}

void TJSONVariantData::growFor(int count) {
    if (!Values)
        Values = std::make_shared<QList<Variant>>();
    if (VKind == jvObject && !Names)
        Names = std::make_shared<QList<QString>>();
    if (count <= Values->size())
        return;
    // a shared array is copied before it grows, so the other copy keeps the old elements
    const qsizetype newSize = VCount + VCount / 8 + 32;
    if (Values.use_count() > 1)
        Values = std::make_shared<QList<Variant>>(*Values);
    Values->resize(newSize);
    if (VKind == jvObject) {
        if (Names.use_count() > 1)
            Names = std::make_shared<QList<QString>>(*Names);
        Names->resize(newSize);
    }
}

int TJSONVariantData::NameIndex(const QString& name) const {
    if (VKind != jvObject || !Names)
        return -1;
    for (int i = 0; i < VCount; ++i) {
        if (Names->at(i) == name)
            return i;
    }
    return -1;
}

Variant* TJSONVariantData::ValueOf(const QString& name) {
    const int index = NameIndex(name);
    return index < 0 ? nullptr : &(*Values)[index];
}

const Variant* TJSONVariantData::ValueOf(const QString& name) const {
    const int index = NameIndex(name);
    return index < 0 ? nullptr : &Values->at(index);
}

const QString& TJSONVariantData::NameAt(int index) const {
    return Names->at(index);
}

const Variant& TJSONVariantData::ValueAt(int index) const {
    return Values->at(index);
}

Variant& TJSONVariantData::ValueAt(int index) {
    return (*Values)[index];
}

void TJSONVariantData::AddNameValue(const QString& name, const Variant& value) {
    if (VKind == jvUndefined)
        VKind = jvObject;
    else if (VKind == jvArray)
        throw EJSONException(QStringLiteral("AddNameValue(%1) over array").arg(name));
    growFor(VCount + 1);
    (*Values)[VCount] = value;
    (*Names)[VCount] = name;
    ++VCount;
}

void TJSONVariantData::AddValue(const Variant& value) {
    if (VKind == jvUndefined)
        VKind = jvArray;
    else if (VKind == jvObject)
        throw EJSONException(QStringLiteral("AddValue() over object"));
    growFor(VCount + 1);
    (*Values)[VCount] = value;
    ++VCount;
    _Align = 1;
}

void TJSONVariantData::SetValue(const QString& name, const Variant& value) {
    if (name.isEmpty())
        throw EJSONException(QStringLiteral("Unexpected Value['']"));
    if (Variant* element = ValueOf(name))
        *element = value;
    else
        AddNameValue(name, value);
}

QString TJSONVariantData::ToJSON() const {
    return JSONWriter::write(*this);
}

bool TJSONVariantData::ToObject(QObject* instance) const {
    return TJSONObjectMapper::ToObject(*this, instance);
}

QObject* TJSONVariantData::ToNewObject() const {
    return TJSONObjectMapper::ToNewObject(*this);
}

bool TJSONVariantData::operator==(const TJSONVariantData& other) const {
    return ToJSON() == other.ToJSON();
}

} // namespace norvik
