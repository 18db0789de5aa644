#include "SoftDeleteCondition.h"

#include "DBExceptions.h"
#include "InvDBConnection.h"
#include "TableInfoFunctions.h"
#include "TnvDBGlobals.h"
#include "TnvTableInfo.h"

namespace norvik {

namespace {

QString visibleStateCondition(const QString& APrefix) {
    return QStringLiteral("(%1VisibleState=0)").arg(APrefix);
}

QString deletedCondition(const QString& APrefix) {
    return QStringLiteral("(%1Deleted<>'J' OR %1Deleted Is Null)").arg(APrefix);
}

} // namespace

QString SoftDeleteCondition(InvDBConnection* AConn, const QString& ATableName) {
    if (!AConn || ATableName.trimmed().isEmpty())
        throw EnvDatabaseException(QStringLiteral("Entweder Verbindung oder Tabelle nicht definiert."));
    const TnvTableInfo& info = GetTableInfo(*AConn, ATableName);
    const QString prefix = info.Prefix();
    const bool hasVisibleState = info.FieldExists(prefix + QStringLiteral("VisibleState"));
    const bool hasDeleted = info.FieldExists(prefix + QStringLiteral("Deleted"));
    if (TnvDBGlobals::PreferVisibleState && hasVisibleState)
        return visibleStateCondition(prefix);
    if (hasDeleted)
        return deletedCondition(prefix);
    if (hasVisibleState)
        return visibleStateCondition(prefix);
    return {};
}

QString SoftDeleteConditionByKind(const QString& APrefix, TnvDeleteFlagKind AKind) {
    switch (AKind) {
    case dfkDeleted:
        return QStringLiteral("(%1Deleted<>'J' OR %1Deleted Is Null)").arg(APrefix);
    case dfkVisibleState:
        return QStringLiteral("(%1VisibleState = 0)").arg(APrefix);
    default:
        return {};
    }
}

QString JoinConditions(const QString& A, const QString& B) {
    if (A.trimmed().isEmpty())
        return B;
    if (B.trimmed().isEmpty())
        return A;
    return QStringLiteral("((") + A + QStringLiteral(") AND (") + B + QStringLiteral("))");
}

} // namespace norvik
