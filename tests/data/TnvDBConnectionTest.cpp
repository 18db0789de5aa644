#include "Clock.h"
#include "DBExceptions.h"
#include "DBTestDatabase.h"
#include "FixedClock.h"
#include "InsertUpdateRoutines.h"
#include "TDateTimeUtils.h"
#include "TableInfoFunctions.h"
#include "TnvRecordReader.h"
#include "TnvTableInfo.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace norvik;
using dbtest::DBTestDatabase;

namespace {

class TnvDBConnectionTest : public ::testing::Test {
protected:
    DBTestDatabase db;

    void InsertPatient(qint64 AID, const QString& AName, int AVisibleState = 0) {
        TnvParams params;
        params.AddValue(Variant(AID));
        params.AddValue(Variant(AName));
        params.AddValue(Variant(AVisibleState));
        db.Conn().PSExecuteStatement(
            QStringLiteral("INSERT INTO tblPatienten (PATID, PATName, PATVisibleState) VALUES(?, ?, ?)"),
            &params);
    }
    qint64 PatientCount() { return db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten")); }
};

TEST(TnvDBConnectionOpen, CreatesAMissingFileInUTF8) {
    testsupport::TempDir dir;
    const QString path = dir.filePath(QStringLiteral("neu.s3db"));
    TnvDBConnection conn;
    conn.InitDirectSQLiteDatabase(path);
    EXPECT_EQ(conn.PSGetQueryMode(), qsmSQLite);
    conn.SetConnected(true);
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(conn.PSQueryValue(QStringLiteral("PRAGMA encoding"), Variant()).toString(),
              QStringLiteral("UTF-8"));
    EXPECT_EQ(conn.PSSystemID(), 0);
    conn.SetConnected(false);
    EXPECT_EQ(conn.PSSystemID(), -1);
}

TEST(TnvDBConnectionOpen, WithoutADatabaseConnectFails) {
    TnvDBConnection conn;
    EXPECT_EQ(conn.PSGetQueryMode(), qsmMSSQL);
    EXPECT_THROW(conn.SetConnected(true), EDBConnectionException);
    try {
        conn.PSExecuteStatement(QStringLiteral("SELECT 1"));
        FAIL();
    } catch (const EDBConnectionException& e) {
        EXPECT_EQ(e.message(),
                  QStringLiteral("Please connect to database, before executing sql-statements."));
    }
}

// As on the first start: the tables come after the connect, so that the delete flags are
// loaded on first use, while a write helper already holds the description of its table.
TEST(TnvDBConnectionOpen, LoadingTheDeleteFlagsLaterKeepsTheTableDescriptions) {
    testsupport::TempDir dir;
    TnvDBConnection conn;
    conn.InitDirectSQLiteDatabase(dir.filePath(QStringLiteral("neu.s3db")));
    conn.SetConnected(true);
    DBTestDatabase::CreateStandardTables(conn);
    conn.PSExecuteStatement(QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(1, 'Huber')"));
    // a field added by hand shows whether the description is still the one held
    TnvTableInfo& patients = GetTableInfo(conn, QStringLiteral("tblPatienten"));
    patients.AddField(QStringLiteral("PATMarke"), ftInteger, 0, QString(), false);

    EXPECT_EQ(conn.PSGetDeleteFlagKindByPrefix(QStringLiteral("PAT")), dfkDeleted);
    EXPECT_TRUE(FieldExists(conn, QStringLiteral("tblPatienten"), QStringLiteral("PATMarke")));

    EXPECT_TRUE(
        DeleteRecord(conn, QStringLiteral("tblPatienten"), QStringLiteral("PATID"), QStringLiteral("1")));
    EXPECT_EQ(
        conn.PSQueryValue(QStringLiteral("SELECT PATDeleted || PATVisibleState FROM tblPatienten"), Variant())
            .toString(),
        QStringLiteral("J1"));
}

TEST_F(TnvDBConnectionTest, ThreeStartsNeedThreeEndsAndAFourthRaises) {
    for (int i = 0; i < 3; ++i)
        db.Conn().PSStartTransaction();
    InsertPatient(1, QStringLiteral("Huber"));
    db.Conn().PSEndTransaction(true);
    db.Conn().PSEndTransaction(true);
    EXPECT_TRUE(db.Conn().PSInTransaction());
    db.Conn().PSEndTransaction(true);
    EXPECT_FALSE(db.Conn().PSInTransaction());
    EXPECT_EQ(PatientCount(), 1);
    db.Conn().SetName(QStringLiteral("modData"));
    try {
        db.Conn().PSEndTransaction(true);
        FAIL();
    } catch (const ETransactionException& e) {
        EXPECT_EQ(e.message(), QStringLiteral("Es wurden zu viele Transaktionen aufgehoben. modData"));
    }
}

TEST_F(TnvDBConnectionTest, AnInnerRollbackDoomsTheOuterCommit) {
    db.Conn().PSStartTransaction();
    InsertPatient(1, QStringLiteral("Huber"));
    db.Conn().PSStartTransaction();
    InsertPatient(2, QStringLiteral("Maier"));
    db.Conn().PSEndTransaction(false);
    EXPECT_TRUE(db.Conn().PSInTransaction());
    db.Conn().PSEndTransaction(true);
    EXPECT_FALSE(db.Conn().PSInTransaction());
    EXPECT_EQ(PatientCount(), 0);

    // the next transaction starts clean
    db.Conn().PSStartTransaction();
    InsertPatient(3, QStringLiteral("Gruber"));
    db.Conn().PSEndTransaction(true);
    EXPECT_EQ(PatientCount(), 1);
}

TEST_F(TnvDBConnectionTest, LikeMatchesUmlautsAcrossCase) {
    InsertPatient(1, QStringLiteral("Müller"));
    InsertPatient(2, QStringLiteral("Österreicher"));
    InsertPatient(3, QStringLiteral("Maier"));
    const auto count = [&](const QString& APattern) {
        TnvParams params;
        params.AddValue(Variant(APattern));
        return db.Conn()
            .PSQueryValue(QStringLiteral("SELECT Count(*) FROM tblPatienten WHERE PATName LIKE ?"), Variant(),
                          &params)
            .toInt64();
    };
    EXPECT_EQ(count(QStringLiteral("%MÜL%")), 1);
    EXPECT_EQ(count(QStringLiteral("ö%")), 1);
    EXPECT_EQ(count(QStringLiteral("ÖSTERREICHER")), 1);
    EXPECT_EQ(count(QStringLiteral("M%")), 2);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten WHERE PATName NOT LIKE '%ü%'")), 2);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten WHERE PATName LIKE '%\\%%'")), 0);
    EXPECT_EQ(
        db.Count(QStringLiteral("SELECT Count(*) FROM tblPatienten WHERE PATName LIKE 'M!%' ESCAPE '!'")), 0);
}

TEST_F(TnvDBConnectionTest, StatementsAreRewrittenForSQLite) {
    InsertPatient(1, QStringLiteral("Huber"));
    InsertPatient(2, QStringLiteral("Maier"));
    const auto query = db.Conn().PSOpenQuery(QStringLiteral(
        "SELECT TOP 1 ISNULL(PATGewicht, 0) As W, PATName FROM tblPatienten ORDER BY PATID DESC"));
    ASSERT_FALSE(query->Eof());
    EXPECT_EQ(query->FieldByName(QStringLiteral("patname")).AsString(), QStringLiteral("Maier"));
    query->Next();
    EXPECT_TRUE(query->Eof());
    // SUM becomes TOTAL: no rows give 0, not NULL
    EXPECT_EQ(db.Conn()
                  .PSQueryValue(QStringLiteral("SELECT SUM(PATGewicht) FROM tblPatienten WHERE PATID=0"),
                                Variant(-1))
                  .toDouble(),
              0.0);
}

TEST_F(TnvDBConnectionTest, QueryValueGivesTheDefaultForNoRowAndForNull) {
    InsertPatient(1, QStringLiteral("Huber"));
    EXPECT_EQ(db.Conn()
                  .PSQueryValue(QStringLiteral("SELECT PATName FROM tblPatienten WHERE PATID=9"),
                                Variant(QStringLiteral("leer")))
                  .toString(),
              QStringLiteral("leer"));
    EXPECT_EQ(
        db.Conn().PSQueryValue(QStringLiteral("SELECT PATGewicht FROM tblPatienten"), Variant(7)).toInt(), 7);
    EXPECT_EQ(
        db.Conn().PSQueryValue(QStringLiteral("select PATName from tblPatienten"), Variant()).toString(),
        QStringLiteral("Huber"));
}

TEST_F(TnvDBConnectionTest, ALowerCaseSelectRunsAsAQuery) {
    InsertPatient(1, QStringLiteral("Huber"));
    EXPECT_EQ(db.Conn().PSExecuteStatement(QStringLiteral("select * from tblPatienten")), 0);
    EXPECT_EQ(db.Conn().PSExecuteStatement(QStringLiteral("update tblPatienten set PATName='X'")), 1);
}

TEST_F(TnvDBConnectionTest, ParametersOfEveryKindRoundTrip) {
    testsupport::FixedClock clock("2024-03-01 14:30:05");
    TnvParams params;
    params.AddValue(Variant(qint64(10000001)));
    params.AddValue(Variant(QStringLiteral("Zoë O'Brien")));
    params.AddValue(Variant(72.5));
    params.AddValue(Variant(QByteArray("\x00\x01\xFF", 3)));
    params.AddValue(Variant::null());
    params.AddValue(Variant::fromDate(Clock::nowDateTime()));
    params.AddValue(Variant(true));
    db.Conn().PSExecuteStatement(
        QStringLiteral("INSERT INTO tblPatienten (PATID, PATName, PATGewicht, PATBild, "
                       "PATNotiz, PATGeburtsdatum, PATRead) VALUES(?, ?, ?, ?, ?, ?, ?)"),
        &params);
    const auto row = db.Conn().PSOpenQuery(QStringLiteral("SELECT * FROM tblPatienten"));
    ASSERT_FALSE(row->Eof());
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATID")).AsLargeInt(), 10000001);
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATName")).AsString(), QStringLiteral("Zoë O'Brien"));
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATName")).DataType(), ftString);
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATName")).Size(), 20);
    EXPECT_DOUBLE_EQ(row->FieldByName(QStringLiteral("PATGewicht")).AsFloat(), 72.5);
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATBild")).AsBytes(), QByteArray("\x00\x01\xFF", 3));
    EXPECT_TRUE(row->FieldByName(QStringLiteral("PATNotiz")).IsNull());
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATGeburtsdatum")).DataType(), ftDateTime);
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATGeburtsdatum")).Value().valueType(), VarType::Date);
    EXPECT_DOUBLE_EQ(row->FieldByName(QStringLiteral("PATGeburtsdatum")).AsDateTime(), Clock::nowDateTime());
    EXPECT_EQ(row->FieldByName(QStringLiteral("PATRead")).AsInteger(), 1);
    EXPECT_EQ(db.Conn()
                  .PSQueryValue(QStringLiteral("SELECT PATGeburtsdatum || '' FROM tblPatienten"), Variant())
                  .toString(),
              QStringLiteral("2024-03-01 14:30:05"));
    EXPECT_THROW(row->FieldByName(QStringLiteral("PATFehlt")), EDBConnectionException);
    EXPECT_EQ(row->FindField(QStringLiteral("PATFehlt")), nullptr);
}

TEST_F(TnvDBConnectionTest, DateLiteralsFollowTheDialect) {
    const TDateTime value = TDateTimeUtils::EncodeDate(2024, 3, 1) + (14 * 3600 + 30 * 60 + 5) / 86400.0;
    EXPECT_EQ(db.Conn().PSEncodeDateTime(value), QStringLiteral("'2024-03-01 14:30:05'"));
    EXPECT_EQ(db.Conn().PSEncodeDate(value), QStringLiteral("'2024-03-01 00:00:00'"));
}

TEST_F(TnvDBConnectionTest, OpenQueryExLeavesOutSoftlyDeletedRows) {
    InsertPatient(1, QStringLiteral("Huber"));
    InsertPatient(2, QStringLiteral("Maier"), 1);
    const auto query =
        db.Conn().PSOpenQueryEx(QStringLiteral("SELECT * FROM tblPatienten WHERE PATID > %d"), {0}, true);
    ASSERT_FALSE(query->Eof());
    EXPECT_EQ(query->FieldByName(QStringLiteral("PATName")).AsString(), QStringLiteral("Huber"));
    query->Next();
    EXPECT_TRUE(query->Eof());
    EXPECT_EQ(db.Conn()
                  .PSQueryValueEx(QStringLiteral("SELECT Count(*) FROM tblPatienten"), {}, Variant(), false)
                  .toInt64(),
              2);
}

TEST_F(TnvDBConnectionTest, DeleteFlagKindsComeFromTheTables) {
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByTableName(QStringLiteral("tblPatienten")), dfkDeleted);
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByTableName(QStringLiteral("TBLDOKUMENTE")), dfkDeleted);
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByPrefix(QStringLiteral("doc")), dfkDeleted);
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByTableName(QStringLiteral("sysTableIDs")), dfkNone);
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByTableName(QStringLiteral("tblGibtsNicht")), dfkNone);
    db.Conn().UpdateDeleteState(QStringLiteral("PAT"), QStringLiteral("tblPatienten"), dfkVisibleState);
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByPrefix(QStringLiteral("PAT")), dfkVisibleState);
}

TEST_F(TnvDBConnectionTest, DeleteFlagKindsWithoutReadingTheStructure) {
    db.Conn().SetAutoReadDataStructure(false);
    db.Reconnect();
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByTableName(QStringLiteral("tblDokumente")), dfkDeleted);
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByPrefix(QStringLiteral("DOC")), dfkDeleted);
    EXPECT_EQ(db.Conn().PSGetDeleteFlagKindByTableName(QStringLiteral("sysTableIDs")), dfkNone);
}

TEST_F(TnvDBConnectionTest, SystemIdentityComesFromTheOwnRowOfSysSystems) {
    db.Exec(QStringLiteral("CREATE TABLE sysSystems(SYSID INT PRIMARY KEY, SYSName VARCHAR(80), "
                           "SYSDeleteTimestamp DATETIME, SYSMySystem VARCHAR(1), SYSNotebook VARCHAR(1), "
                           "SYSActive VARCHAR(1), SYSGUID VARCHAR(40))"));
    db.Reconnect();
    EXPECT_EQ(db.Conn().PSSystemID(), 0);
    EXPECT_EQ(db.Conn().SystemName(), QStringLiteral("Default System"));

    db.Exec(QStringLiteral("INSERT INTO sysSystems VALUES(3, 'Praxis', NULL, 'J', 'J', 'J', '{G}')"));
    db.Reconnect();
    EXPECT_EQ(db.Conn().PSSystemID(), 3);
    EXPECT_EQ(db.Conn().SystemName(), QStringLiteral("Praxis"));
    EXPECT_EQ(db.Conn().SystemGUID(), QStringLiteral("{G}"));
    // the flags are read from other column names than the table has
    EXPECT_FALSE(db.Conn().IsNotebook());
    EXPECT_FALSE(db.Conn().IsSystemActive());
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten")), 30000001);
    EXPECT_FALSE(db.Conn().PSReplicate(QStringLiteral("tblPatienten")));

    db.Conn().SetDefaultSystemID(5);
    db.Reconnect();
    EXPECT_EQ(db.Conn().PSSystemID(), 5);
}

TEST_F(TnvDBConnectionTest, ReplicationIsActiveWithTwoLiveSystems) {
    testsupport::FixedClock clock("2024-03-01 10:00:00");
    db.Exec(QStringLiteral("CREATE TABLE sysSystems(SYSID INT PRIMARY KEY, SYSMySystem VARCHAR(1), "
                           "SYSDeleteTimestamp DATETIME)"));
    db.Exec(QStringLiteral("INSERT INTO sysSystems VALUES(1, 'J', NULL)"));
    db.Exec(QStringLiteral("INSERT INTO sysSystems VALUES(2, 'N', '2024-03-02 00:00:00')"));
    db.Reconnect();
    EXPECT_FALSE(db.Conn().PSGetReplicationActive());
    db.Exec(QStringLiteral("UPDATE sysSystems SET SYSDeleteTimestamp='2024-02-01 00:00:00' WHERE SYSID=2"));
    db.Conn().CheckReplication();
    EXPECT_TRUE(db.Conn().PSGetReplicationActive());
    EXPECT_TRUE(db.Conn().PSReplicate(QStringLiteral("tblPatienten")));
    for (const char16_t* table : {u"sysREChangeBlocks", u"sysTableIDs", u"SYSSYSTEMS"}) {
        EXPECT_FALSE(db.Conn().PSReplicate(QString::fromUtf16(table)));
        EXPECT_FALSE(db.Conn().PSShallReplicate(QString::fromUtf16(table), rmReplicate));
    }
    EXPECT_FALSE(db.Conn().PSShallReplicate(QStringLiteral("tblPatienten"), rmNone));
    db.Conn().PSSetReplicationActive(false);
    EXPECT_TRUE(db.Conn().PSShallReplicate(QStringLiteral("tblPatienten"), rmReplicate));
}

TEST_F(TnvDBConnectionTest, PooledClonesAreReusedAfterRelease) {
    db.Conn().SetName(QStringLiteral("conn"));
    InsertPatient(1, QStringLiteral("Huber"));
    InvDBConnection& first = db.Conn().PSGetPooledClone();
    EXPECT_NE(&first, static_cast<InvDBConnection*>(&db.Conn()));
    EXPECT_EQ(first.PSPropertyValueByName(QStringLiteral("Name")).toString(), QStringLiteral("conn_POOL1"));
    EXPECT_EQ(first.PSQueryValue(QStringLiteral("SELECT PATName FROM tblPatienten"), Variant()).toString(),
              QStringLiteral("Huber"));
    InvDBConnection& second = db.Conn().PSGetPooledClone();
    EXPECT_NE(&first, &second);
    // a clone asks its parent's pool
    InvDBConnection& third = first.PSGetPooledClone();
    EXPECT_NE(&third, &first);
    EXPECT_NE(&third, &second);
    first.PSReleaseToPool();
    EXPECT_EQ(&db.Conn().PSGetPooledClone(), &first);
}

TEST_F(TnvDBConnectionTest, TableNamesAndExistence) {
    QStringList names;
    db.Conn().PSGetTableNames(names, false);
    EXPECT_EQ(names, (QStringList{QStringLiteral("sysTableIDs"), QStringLiteral("tblDokumente"),
                                  QStringLiteral("tblPatienten")}));
    EXPECT_TRUE(db.Conn().PSTableExists(QStringLiteral("TBLPATIENTEN")));
    EXPECT_FALSE(db.Conn().PSTableExists(QStringLiteral("tblNeu")));
    db.Exec(QStringLiteral("CREATE TABLE tblNeu(NEUID INT)"));
    EXPECT_TRUE(db.Conn().PSTableExists(QStringLiteral("tblNeu"), true));
    EXPECT_EQ(db.Conn().PSGetTablePrefix(QStringLiteral("tblNeu")), QStringLiteral("NEU"));
}

TEST_F(TnvDBConnectionTest, EngineErrorsPassThroughWithTheirText) {
    try {
        db.Conn().PSExecuteStatement(QStringLiteral("SELECT * FROM tblGibtsNicht"));
        FAIL();
    } catch (const EnvDBException&) {
        FAIL() << "engine errors are not wrapped";
    } catch (const std::exception& e) {
        EXPECT_NE(QString::fromUtf8(e.what()).indexOf(QLatin1String("no such table")), -1);
    }
}

TEST_F(TnvDBConnectionTest, ReadingAMissingRowGivesAnEmptyList) {
    InsertPatient(10000001, QStringLiteral("Huber"));
    const auto missing =
        TnvRecordReader::ReadRecord(db.Conn(), QStringLiteral("SELECT * FROM tblPatienten WHERE PATID=1"));
    EXPECT_EQ(missing->Count(), 0);
    EXPECT_EQ(missing->GetAsIdentifier(QStringLiteral("PATID")), 0);

    const auto found = TnvRecordReader::ReadRecord(
        db.Conn(), QStringLiteral("SELECT * FROM tblPatienten WHERE PATID=10000001"));
    EXPECT_EQ(found->GetAsIdentifier(QStringLiteral("patid")), 10000001);
    EXPECT_EQ(found->GetAsString(QStringLiteral("PATName")), QStringLiteral("Huber"));
    EXPECT_TRUE(found->GetIsNull(QStringLiteral("PATNotiz")));
    ASSERT_NE(found->FindValue(QStringLiteral("PATName")), nullptr);
    EXPECT_EQ(found->FindValue(QStringLiteral("PATName"))->FieldType(), ftString);
    EXPECT_EQ(found->FindValue(QStringLiteral("PATAnlageAm"))->FieldType(), ftDateTime);
}

} // namespace
