#include "TnvDataSetFieldCache.h"

#include "TnvDataSet.h"

namespace norvik {

void TnvDataSetFieldCache::RebuildCache() {
    FCache.clear();
    for (int i = 0; i < FDataSet.FieldCount(); ++i) {
        TnvField& field = FDataSet.Fields(i);
        // the first of two equal names wins, as a search of the field list would find it
        FCache.emplace(field.FieldName(), &field);
    }
}

TnvField* TnvDataSetFieldCache::FindField(const QString& fieldName) {
    auto found = FCache.find(fieldName);
    if (found == FCache.end() && FCache.empty()) {
        RebuildCache();
        found = FCache.find(fieldName);
    }
    return found == FCache.end() ? nullptr : found->second;
}

} // namespace norvik
