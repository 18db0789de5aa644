#pragma once

#include "TestEnvironment.h"
#include "TnvDBConnection.h"

#include <QString>
#include <memory>

namespace dbtest {

// A connection to a new SQLite file in a temporary folder, with a patient table that has
// both delete flags, a document table that has only <prefix>Deleted, and sysTableIDs.
class DBTestDatabase {
public:
    DBTestDatabase();

    norvik::TnvDBConnection& Conn() { return *FConn; }
    QString FilePath() const { return FDir.filePath(QStringLiteral("test.s3db")); }
    // runs statements directly, bypassing the connection's metadata
    void Exec(const QString& ASQL);
    // reconnects, so that tables created after the connect are known
    void Reconnect();
    qint64 Count(const QString& ASQL);

    static void CreateStandardTables(norvik::TnvDBConnection& AConn);

private:
    testsupport::TempDir FDir;
    std::unique_ptr<norvik::TnvDBConnection> FConn;
};

} // namespace dbtest
