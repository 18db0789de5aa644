#include "VariantJSON.h"

#include "EJSONException.h"
#include "TJSONParser.h"

namespace norvik {

namespace {

[[noreturn]] void raiseNoJSON(const Variant& value) {
    throw EJSONException(QStringLiteral("JSONVariantData.Data(%1<>JSONVariant)").arg(int(value.valueType())));
}

} // namespace

Variant JSONVariant(const QString& json) {
    TJSONParser parser(json);
    Variant result;
    parser.GetNextJSON(result);
    return result;
}

Variant JSONVariantObject() {
    return JSONVariant(QStringLiteral("{}"));
}

Variant JSONVariantArray() {
    return JSONVariant(QStringLiteral("[]"));
}

TJSONVariantData* JSONVariantDataOf(Variant& value) {
    TJSONVariantData* data = value.json();
    if (!data)
        raiseNoJSON(value);
    return data;
}

const TJSONVariantData* JSONVariantDataOf(const Variant& value) {
    const TJSONVariantData* data = value.json();
    if (!data)
        raiseNoJSON(value);
    return data;
}

const TJSONVariantData* JSONVariantDataSafe(const Variant& value, TJSONVariantKind expected) {
    static const TJSONVariantData empty;
    const TJSONVariantData* data = value.json();
    if (!data || (expected != jvUndefined && data->VKind != expected))
        return &empty;
    return data;
}

TJSONVariantKind JSONVariantKindOf(const Variant& value) {
    return JSONVariantDataOf(value)->VKind;
}

bool JSONVariantHasName(const Variant& value, const QString& name) {
    return JSONVariantDataOf(value)->NameIndex(name) >= 0;
}

int JSONVariantCount(const Variant& value) {
    const TJSONVariantData* data = JSONVariantDataOf(value);
    return data->VKind == jvArray ? data->VCount : 0;
}

Variant JSONVariantItem(const Variant& value, int index) {
    const TJSONVariantData* data = JSONVariantDataOf(value);
    if (data->VKind != jvArray)
        return Variant::null();
    if (index < 0 || index >= data->VCount)
        return Variant();
    return data->ValueAt(index);
}

void JSONVariantAdd(Variant& value, const Variant& item) {
    JSONVariantDataOf(value)->AddValue(item);
}

void JSONVariantSet(Variant& value, const QString& name, const Variant& item) {
    JSONVariantDataOf(value)->SetValue(name, item);
}

} // namespace norvik
