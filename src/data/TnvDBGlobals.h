#pragma once

#include <QString>
#include <QtGlobal>
#include <functional>

namespace norvik {

class InvDBConnection;

// The switches and hooks that the data layer shares program-wide.
struct TnvDBGlobals {
    // who writes: goes into the <prefix>AnlageVon and <prefix>AenderungVon fields
    static inline qint64 CurrentUserID = 0;
    // the soft-delete filter tests <prefix>VisibleState before <prefix>Deleted
    static inline bool PreferVisibleState = true;
    // change blocks are stored compressed
    static inline bool CompressChangeBlocks = true;
    // a physical delete stays physical even when the table replicates
    static inline bool AllowPhysicalDeleteOnReplication = false;
    // rewrites each application statement before it runs; none is installed by default
    static inline std::function<QString(InvDBConnection&, const QString&)> StatementConverter;
    // around each statement run on the main thread, e.g. for a wait cursor
    static inline std::function<void()> OnBeginDBAction;
    static inline std::function<void()> OnEndDBAction;
};

} // namespace norvik
