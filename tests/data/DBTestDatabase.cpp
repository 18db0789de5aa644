#include "DBTestDatabase.h"

namespace dbtest {

using namespace norvik;

DBTestDatabase::DBTestDatabase()
    : FConn(std::make_unique<TnvDBConnection>()) {
    FConn->SetAliasName(QStringLiteral("_dbData"));
    FConn->InitDirectSQLiteDatabase(FilePath());
    FConn->SetConnected(true);
    CreateStandardTables(*FConn);
    Reconnect();
}

void DBTestDatabase::CreateStandardTables(TnvDBConnection& AConn) {
    AConn.PSExecuteStatement(
        QStringLiteral("CREATE TABLE sysTableIDs(TIDTableName VARCHAR(64) COLLATE NOCASE NULL, "
                       "TIDCount INT NULL)"));
    AConn.PSExecuteStatement(QStringLiteral(
        "CREATE TABLE tblPatienten(PATID INT PRIMARY KEY, PATAnlageAm DATETIME NULL, PATAnlageVon INT NULL, "
        "PATAenderungAm DATETIME NULL, PATAenderungVon INT NULL, PATVisibleState INT DEFAULT ((0)), "
        "PATDeleted VARCHAR(1) DEFAULT ('N'), PATName VARCHAR(20) COLLATE NOCASE NULL, "
        "PATGeburtsdatum DATETIME NULL, PATGewicht FLOAT NULL, PATBild IMAGE NULL, PATNotiz TEXT NULL, "
        "PATUpdate INT NULL, PATRead INT NULL)"));
    AConn.PSExecuteStatement(
        QStringLiteral("CREATE TABLE tblDokumente(DOCID INT PRIMARY KEY, PATID INT NULL, "
                       "DOCAenderungAm DATETIME NULL, DOCDeleted VARCHAR(1) NULL, "
                       "DOCTitel VARCHAR(40) NULL)"));
}

void DBTestDatabase::Exec(const QString& ASQL) {
    FConn->PSExecuteStatement(ASQL, nullptr, nullptr, false, true);
}

void DBTestDatabase::Reconnect() {
    FConn->SetConnected(false);
    FConn->SetConnected(true);
}

qint64 DBTestDatabase::Count(const QString& ASQL) {
    return FConn->PSQueryValue(ASQL, norvik::Variant(qint64(-1))).toInt64();
}

} // namespace dbtest
