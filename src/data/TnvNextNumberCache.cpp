#include "TnvNextNumberCache.h"

#include "DebugLog.h"
#include "InvDBConnection.h"

namespace norvik {

namespace {

constexpr int TraceLevel = 8;

} // namespace

qint64 TnvNextNumberCache::GetNextNumber(InvDBConnection& AConn, const QString& ASession,
                                         const QString& ATableName, int ASystem, int ACount) {
    DebugLog(TraceLevel,
             QStringLiteral(
                 "  TnvNextNumberCache.GetNextNumber: start: Session: %s   TableName: %s  ASystem: %d   "
                 "ACount: %d"),
             {ASession, ATableName, ASystem, ACount});
    DebugLog(TraceLevel, QStringLiteral("  TnvNextNumberCache.GetNextNumber: try to find entry in cache"));
    TnvNextNumberRecord& record = FCacheList[ASession + QLatin1Char('|') + ATableName];
    DebugLog(TraceLevel,
             QStringLiteral("  TnvNextNumberCache.GetNextNumber: entry found: NextID=%d  LastID=%d"),
             {record.NextID, record.LastID});
    qint64 result = 0;
    if (record.NextID <= record.LastID) {
        result = record.NextID++;
    } else {
        DebugLog(TraceLevel, QStringLiteral("  TnvNextNumberCache.GetNextNumber: load cache from database"));
        result = AConn.PSGenID(ATableName, ASystem, ACount);
        record.LastID = result + ACount - 1;
        record.NextID = result + 1;
    }
    DebugLog(TraceLevel,
             QStringLiteral("TnvNextNumberCache.GetNextNumber: Table=%s   ACount=%d  ASystem=%d  Result=%d "),
             {ATableName, ACount, ASystem, result});
    return result;
}

} // namespace norvik
