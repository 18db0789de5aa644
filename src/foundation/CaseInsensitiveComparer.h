#pragma once

#include <QStringView>
#include <cstddef>

namespace norvik {

// Hash and equality of names that differ only in letter case: both fold each code point
// the same way, so that equal names always hash alike. Serves as both the hasher and the
// key comparer of an unordered container.
class CaseInsensitiveComparer {
public:
    std::size_t operator()(QStringView name) const;
    bool operator()(QStringView left, QStringView right) const;
};

} // namespace norvik
