#pragma once

#include "Exception.h"

namespace norvik {

// An error reported by the SQLite engine, passed on as the engine words it. The text ends
// with the name of the extended result code, e.g. "(SQLITE_CONSTRAINT_PRIMARYKEY)", so that
// callers can tell a key collision from other failures by the text alone.
class ESQLiteError : public Exception {
public:
    ESQLiteError(const QString& message, int extendedCode)
        : Exception(message)
        , FExtendedCode(extendedCode) {}
    int ExtendedCode() const { return FExtendedCode; }

private:
    int FExtendedCode;
};

} // namespace norvik
