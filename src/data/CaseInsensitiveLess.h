#pragma once

#include <QString>

namespace norvik {

// Order of a sorted name list: names that differ only in letter case are the same name.
struct CaseInsensitiveLess {
    bool operator()(const QString& left, const QString& right) const {
        return left.compare(right, Qt::CaseInsensitive) < 0;
    }
};

} // namespace norvik
