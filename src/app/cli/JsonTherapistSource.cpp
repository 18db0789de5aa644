#include "JsonTherapistSource.h"

#include "TnvNamedValues.h"
#include "VariantJSON.h"

#include <algorithm>

using namespace norvik;

namespace {

const QString NameColumn = QStringLiteral("TPTZusatzText1");

InvNamedValuesPtr RowOf(const TJSONVariantData& AObject) {
    auto row = TnvNamedValues::Create();
    for (int index = 0; index < AObject.VCount; ++index)
        row->Add(AObject.NameAt(index), AObject.ValueAt(index));
    return row;
}

} // namespace

JsonTherapistSource::JsonTherapistSource(const QString& AJSON) {
    const Variant rows = JSONVariant(AJSON);
    const TJSONVariantData* array = JSONVariantDataSafe(rows, jvArray);
    for (int index = 0; index < array->VCount; ++index) {
        const TJSONVariantData* object = JSONVariantDataSafe(array->ValueAt(index), jvObject);
        if (object->VKind == jvObject)
            FRows.append(RowOf(*object));
    }
    // as the table is read: ordered by the therapist's name
    std::stable_sort(FRows.begin(), FRows.end(), [](const InvNamedValuesPtr& a, const InvNamedValuesPtr& b) {
        return a->GetAsString(NameColumn) < b->GetAsString(NameColumn);
    });
}

InvNamedValuesPtr JsonTherapistSource::TherapistByName(const QString& AName) {
    for (const InvNamedValuesPtr& row : FRows) {
        if (row->GetAsString(NameColumn) == AName)
            return row;
    }
    return TnvNamedValues::Create();
}
