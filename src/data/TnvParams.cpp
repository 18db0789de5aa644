#include "TnvParams.h"

#include "FieldTypeKinds.h"

namespace norvik {

TnvParam* TnvParams::Add(const QString& name, TFieldType dataType, const Variant& value) {
    FItems.push_back(std::make_unique<TnvParam>(name, dataType, value.stripped()));
    return FItems.back().get();
}

TnvParam* TnvParams::AddValue(const Variant& value) {
    return Add(QString(), FieldTypeKinds::FromVariant(value), value);
}

TnvParam* TnvParams::FindParam(const QString& name) const {
    for (const auto& item : FItems) {
        if (item->Name().compare(name, Qt::CaseInsensitive) == 0)
            return item.get();
    }
    return nullptr;
}

void TnvParams::Assign(const TnvParams& source) {
    Clear();
    for (const auto& item : source.FItems)
        Add(item->Name(), item->DataType(), item->Value());
}

} // namespace norvik
