#include "TJSONVariantData.h"

#include "EJSONException.h"
#include "JSONWriter.h"
#include "Variant.h"

namespace norvik {

void TJSONVariantData::Init()
{
    *this = TJSONVariantData();
}

void TJSONVariantData::Clear()
{
    Init();
}

void TJSONVariantData::growFor(int count)
{
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

int TJSONVariantData::NameIndex(const QString& name) const
{
    if (VKind != jvObject || !Names)
        return -1;
    for (int i = 0; i < VCount; ++i) {
        if (Names->at(i) == name)
            return i;
    }
    return -1;
}

Variant* TJSONVariantData::ValueOf(const QString& name)
{
    const int index = NameIndex(name);
    return index < 0 ? nullptr : &(*Values)[index];
}

const Variant* TJSONVariantData::ValueOf(const QString& name) const
{
    const int index = NameIndex(name);
    return index < 0 ? nullptr : &Values->at(index);
}

const QString& TJSONVariantData::NameAt(int index) const
{
    return Names->at(index);
}

const Variant& TJSONVariantData::ValueAt(int index) const
{
    return Values->at(index);
}

Variant& TJSONVariantData::ValueAt(int index)
{
    return (*Values)[index];
}

void TJSONVariantData::AddNameValue(const QString& name, const Variant& value)
{
    if (VKind == jvUndefined)
        VKind = jvObject;
    else if (VKind == jvArray)
        throw EJSONException(QStringLiteral("AddNameValue(%1) over array").arg(name));
    growFor(VCount + 1);
    (*Values)[VCount] = value;
    (*Names)[VCount] = name;
    ++VCount;
}

void TJSONVariantData::AddValue(const Variant& value)
{
    if (VKind == jvUndefined)
        VKind = jvArray;
    else if (VKind == jvObject)
        throw EJSONException(QStringLiteral("AddValue() over object"));
    growFor(VCount + 1);
    (*Values)[VCount] = value;
    ++VCount;
    _Align = 1;
}

void TJSONVariantData::SetValue(const QString& name, const Variant& value)
{
    if (name.isEmpty())
        throw EJSONException(QStringLiteral("Unexpected Value['']"));
    if (Variant* element = ValueOf(name))
        *element = value;
    else
        AddNameValue(name, value);
}

QString TJSONVariantData::ToJSON() const
{
    return JSONWriter::write(*this);
}

bool TJSONVariantData::operator==(const TJSONVariantData& other) const
{
    return ToJSON() == other.ToJSON();
}

} // namespace norvik
