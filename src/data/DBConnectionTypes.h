#pragma once

#include <QtGlobal>

namespace norvik {

// How a table marks its deleted rows: "J" in <prefix>Deleted, 1 in <prefix>VisibleState,
// or not at all.
enum TnvDeleteFlagKind { dfkDeleted, dfkVisibleState, dfkNone };

// Whether a write is recorded as a change block: as the connection's replication state
// says, never, or always.
enum TnvReplicationMode { rmAuto, rmNone, rmReplicate };

enum TnvDatabaseKind { ktdkData, ktdkTransaction };

enum TnvFieldTypeInfo { ftiNormal, ftiUnicode };

} // namespace norvik
