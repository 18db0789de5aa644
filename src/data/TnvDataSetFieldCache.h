#pragma once

#include "CaseInsensitiveComparer.h"

#include <QString>
#include <unordered_map>

namespace norvik {

class TnvDataSet;
class TnvField;

// Finds a data set's fields by name through a dictionary instead of walking the field list,
// which matters in loops over many rows.
class TnvDataSetFieldCache {
public:
    explicit TnvDataSetFieldCache(const TnvDataSet& dataSet)
        : FDataSet(dataSet) {}

    void RebuildCache();
    void ClearCache() { FCache.clear(); }
    // nullptr when absent; an empty cache is rebuilt once before it answers
    TnvField* FindField(const QString& fieldName);

private:
    const TnvDataSet& FDataSet;
    std::unordered_map<QString, TnvField*, CaseInsensitiveComparer, CaseInsensitiveComparer> FCache;
};

} // namespace norvik
