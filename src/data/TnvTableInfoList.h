#pragma once

#include "CaseInsensitiveComparer.h"
#include "TnvTableInfo.h"

#include <QString>
#include <memory>
#include <unordered_map>

namespace norvik {

// The connection's table metadata: table name, any case, to its description, which the
// dictionary owns.
using TnvTableInfoList = std::unordered_map<QString, std::unique_ptr<TnvTableInfo>, CaseInsensitiveComparer,
                                            CaseInsensitiveComparer>;

} // namespace norvik
