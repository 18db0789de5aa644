#include "DBTestDatabase.h"
#include "DebugLog.h"
#include "TnvNextNumberCache.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace norvik;
using dbtest::DBTestDatabase;

namespace {

class TnvGenIDTest : public ::testing::Test {
protected:
    DBTestDatabase db;

    qint64 Counter(const QString& ATable) {
        return db.Count(
            QStringLiteral("SELECT TIDCount FROM sysTableIDs WHERE TIDTableName='%1'").arg(ATable));
    }
};

TEST_F(TnvGenIDTest, TheFirstIDOfATableIsTenMillionAndOne) {
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten")), 10000001);
    EXPECT_EQ(Counter(QStringLiteral("tblPatienten")), 1);
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten")), 10000002);
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblDokumente")), 10000001);
}

TEST_F(TnvGenIDTest, ARangeMovesTheCounterByItsSize) {
    db.Exec(QStringLiteral("INSERT INTO sysTableIDs VALUES('tblPatienten', 5)"));
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten"), 0, 10), 10000006);
    EXPECT_EQ(Counter(QStringLiteral("tblPatienten")), 15);
}

TEST_F(TnvGenIDTest, AnEmptyCountGoesOnFromZeroInTheSameRow) {
    db.Exec(QStringLiteral("INSERT INTO sysTableIDs VALUES('tblPatienten', NULL)"));
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten")), 10000001);
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten")), 10000002);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM sysTableIDs")), 1);
    EXPECT_EQ(Counter(QStringLiteral("tblPatienten")), 2);
}

TEST_F(TnvGenIDTest, BlanksAroundTheNameUseTheSameCounter) {
    db.Conn().PSGenID(QStringLiteral("tblPatienten"));
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("  tblPatienten ")), 10000002);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT Count(*) FROM sysTableIDs")), 1);
}

TEST_F(TnvGenIDTest, AnExplicitSystemGoesIntoTheID) {
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten"), 7), 70000001);
    EXPECT_EQ(db.Conn().PSGenID(QStringLiteral("tblPatienten"), -1, 0), 10000002);
}

TEST_F(TnvGenIDTest, ARolledBackTransactionLeavesTheCounter) {
    db.Conn().PSGenID(QStringLiteral("tblPatienten"));
    db.Conn().PSStartTransaction();
    db.Conn().PSGenID(QStringLiteral("tblPatienten"));
    db.Conn().PSEndTransaction(false);
    EXPECT_EQ(Counter(QStringLiteral("tblPatienten")), 1);
}

TEST_F(TnvGenIDTest, TheCacheTakesABatchPerRoundTrip) {
    TnvNextNumberCache cache;
    const QString session = db.Conn().PSSessionName();
    QList<qint64> ids;
    for (int i = 0; i < 4; ++i)
        ids.append(cache.GetNextNumber(db.Conn(), session, QStringLiteral("sysREChangeBlocks"), 0, 3));
    EXPECT_EQ(ids, (QList<qint64>{10000001, 10000002, 10000003, 10000004}));
    // two batches of three were taken from the database
    EXPECT_EQ(Counter(QStringLiteral("sysREChangeBlocks")), 6);

    cache.ResetCache();
    EXPECT_EQ(cache.GetNextNumber(db.Conn(), session, QStringLiteral("sysREChangeBlocks"), 0, 3), 10000007);
    // another session has its own batch
    EXPECT_EQ(
        cache.GetNextNumber(db.Conn(), QStringLiteral("other"), QStringLiteral("sysREChangeBlocks"), 0, 3),
        10000010);
}

TEST_F(TnvGenIDTest, TheCacheTracesItsStepsOnLevelEight) {
    testsupport::TempDir logDir;
    const QString logFile = logDir.filePath(QStringLiteral("app.log"));
    InitDebugState({QStringLiteral("orvenna"), QStringLiteral("/DEBUGLEVEL:8"),
                    QStringLiteral("/APPDEBUGFILE:") + logFile});
    TnvNextNumberCache cache;
    cache.GetNextNumber(db.Conn(), QStringLiteral("s"), QStringLiteral("tblX"), 0, 2);
    cache.GetNextNumber(db.Conn(), QStringLiteral("s"), QStringLiteral("tblX"), 0, 2);
    InitDebugState({QStringLiteral("orvenna")});

    QFile file(logFile);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString log = QString::fromLatin1(file.readAll());
    EXPECT_TRUE(log.contains(QStringLiteral("  TnvNextNumberCache.GetNextNumber: start: Session: s   "
                                            "TableName: tblX  ASystem: 0   ACount: 2\r\n")));
    EXPECT_EQ(log.count(QStringLiteral("  TnvNextNumberCache.GetNextNumber: try to find entry in cache\r\n")),
              2);
    EXPECT_TRUE(
        log.contains(QStringLiteral("  TnvNextNumberCache.GetNextNumber: entry found: NextID=1  LastID=-1")));
    EXPECT_EQ(log.count(QStringLiteral("  TnvNextNumberCache.GetNextNumber: load cache from database")), 1);
    EXPECT_TRUE(log.contains(QStringLiteral(
        "TnvNextNumberCache.GetNextNumber: Table=tblX   ACount=2  ASystem=0  Result=10000002 \r\n")));
}

} // namespace
