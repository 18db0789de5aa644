#pragma once

#include "TnvNamedValues.h"

#include <QString>
#include <memory>

namespace norvik {

class InvDBConnection;

// Settings that belong to the data live in sysConfig: one row per user and code, whose
// content is a whole block of named values as "name=value" lines.
//
// The reader undoes the escapes "\N", "\n" (a line break) and "\\" (one backslash) in each
// value; the writer escapes nothing. A value that holds such a text therefore changes on its
// way through a save and a load. Other programs read and write the same rows, so that is kept.
class TnvDBConfig {
public:
    // a new block; empty if there is no row. The content may be plain or compressed.
    static std::shared_ptr<TnvNamedValues> LoadConfig(InvDBConnection& AConn, const QString& ACode,
                                                      const QString& AUser);
    // writes all values, plain, inserting or updating the row; the row is never replicated
    static void SaveConfig(InvDBConnection& AConn, const QString& ACode, const QString& AUser,
                           const InvNamedValues& AValues);

    // the stored text of a block, and the block of a stored text
    static QString ConfigText(const InvNamedValues& AValues);
    static void ReadConfigText(const QString& AText, InvNamedValues& AValues);
};

} // namespace norvik
