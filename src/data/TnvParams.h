#pragma once

#include "TnvParam.h"

#include <memory>
#include <vector>

namespace norvik {

// The parameters of a statement in the order of their "?" marks. A parameter keeps its
// address while the collection lives, so a caller may hold on to one and set it later.
class TnvParams {
public:
    TnvParam* Add(const QString& name, TFieldType dataType = ftUnknown, const Variant& value = Variant());
    // a parameter that takes its type from the value
    TnvParam* AddValue(const Variant& value);
    int Count() const { return static_cast<int>(FItems.size()); }
    TnvParam& operator[](int index) { return *FItems.at(index); }
    const TnvParam& operator[](int index) const { return *FItems.at(index); }
    // the first parameter of that name, any case, or nullptr
    TnvParam* FindParam(const QString& name) const;
    void Clear() { FItems.clear(); }
    void Assign(const TnvParams& source);

private:
    std::vector<std::unique_ptr<TnvParam>> FItems;
};

} // namespace norvik
