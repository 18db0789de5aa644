#pragma once

#include "CaseInsensitiveLess.h"

#include <QString>
#include <map>

namespace norvik {

class InvDBConnection;

struct TnvNextNumberRecord {
    qint64 LastID = -1;
    qint64 NextID = 1;
};

// Takes IDs from the database in batches of ACount and hands them out one by one, so that
// many IDs in a row cost one round trip. Keyed by session and table, so that one cache can
// serve several connections.
class TnvNextNumberCache {
public:
    qint64 GetNextNumber(InvDBConnection& AConn, const QString& ASession, const QString& ATableName,
                         int ASystem, int ACount);
    // forgets every batch, e.g. after the database file was replaced
    void ResetCache() { FCacheList.clear(); }

private:
    std::map<QString, TnvNextNumberRecord, CaseInsensitiveLess> FCacheList;
};

} // namespace norvik
