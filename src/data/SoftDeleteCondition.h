#pragma once

#include "DBConnectionTypes.h"

#include <QString>

namespace norvik {

class InvDBConnection;

// The condition that hides softly deleted rows of a table: "(PATVisibleState=0)" when the
// table has <prefix>VisibleState, else "(PATDeleted<>'J' OR PATDeleted Is Null)" when it has
// <prefix>Deleted, else empty. Raises EnvDatabaseException without connection or table.
QString SoftDeleteCondition(InvDBConnection* AConn, const QString& ATableName);

// The same by a delete-flag kind, for a caller that names the prefix itself.
QString SoftDeleteConditionByKind(const QString& APrefix, TnvDeleteFlagKind AKind);

// "((a) AND (b))"; one empty side gives the other
QString JoinConditions(const QString& A, const QString& B);

} // namespace norvik
