#include "CliProcess.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>
#include <ostream>

namespace {

const QString Cli = QStringLiteral(ORVENNA_CLI_PATH);

class DbCommandTest : public testing::Test {
protected:
    testsupport::TempDir dir;
    QString file = dir.filePath(QStringLiteral("quillnote.s3db"));

    ProcessRun db(const QString& action, const QStringList& rest) {
        return runProgram(Cli,
                          QStringList{QStringLiteral("db"), action, QStringLiteral("--db"), file} + rest);
    }
    void SetUp() override {
        for (const QString& sql :
             {QStringLiteral(
                  "CREATE TABLE sysTableIDs(TIDTableName VARCHAR(64) COLLATE NOCASE NULL, TIDCount INT)"),
              QStringLiteral("CREATE TABLE tblPatienten(PATID INT PRIMARY KEY, PATName VARCHAR(80), "
                             "PATAnlageAm DATETIME, PATBild IMAGE)")})
            ASSERT_EQ(db(QStringLiteral("exec"), {sql}).exitCode, 0);
    }
};

struct HashCase {
    const char16_t* name;
    const char* hash;
};

// names the case in test output
void PrintTo(const HashCase& c, std::ostream* os) {
    *os << QString::fromUtf16(c.name).toStdString();
}

class HashNameTest : public testing::TestWithParam<HashCase> {};

TEST_P(HashNameTest, PrintsEightUpperCaseHexDigits) {
    const ProcessRun run =
        runProgram(Cli, {QStringLiteral("hash-name"), QString::fromUtf16(GetParam().name)});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, QByteArray(GetParam().hash) + '\n');
}

INSTANTIATE_TEST_SUITE_P(Names, HashNameTest,
                         testing::Values(HashCase{u"ID", "6F96F2D2"}, HashCase{u"AnlageAm", "C9AC1D77"},
                                         HashCase{u"VisibleState", "194BF397"},
                                         HashCase{u"visiblestate", "194BF397"}));

TEST(HashNameErrorTest, NeedsExactlyOneName) {
    EXPECT_EQ(runProgram(Cli, {QStringLiteral("hash-name")}).exitCode, 2);
}

TEST_F(DbCommandTest, ExecPrintsTheRowsAffected) {
    const ProcessRun insert =
        db(QStringLiteral("exec"), {QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(?, ?)"),
                                    QStringLiteral("10000001"), QStringLiteral("Müller")});
    EXPECT_EQ(insert.exitCode, 0) << insert.err.toStdString();
    EXPECT_EQ(insert.outText(), QStringLiteral("1\n"));
    db(QStringLiteral("exec"),
       {QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(2, 'Maier')")});
    EXPECT_EQ(
        db(QStringLiteral("exec"), {QStringLiteral("UPDATE tblPatienten SET PATName=PATName")}).outText(),
        QStringLiteral("2\n"));
}

TEST_F(DbCommandTest, QueryPrintsAHeaderAndOneTabSeparatedLinePerRow) {
    db(QStringLiteral("exec"),
       {QStringLiteral("INSERT INTO tblPatienten VALUES(1, ?, '2024-03-01 14:30:05', NULL)"),
        QStringLiteral("Müller")});
    db(QStringLiteral("exec"),
       {QStringLiteral("INSERT INTO tblPatienten VALUES(2, ?, NULL, X'0102')"), QStringLiteral("Tab\there")});
    db(QStringLiteral("exec"), {QStringLiteral("INSERT INTO tblPatienten VALUES(3, 'Maier', NULL, NULL)")});
    const ProcessRun run =
        db(QStringLiteral("query"),
           {QStringLiteral("SELECT TOP 2 * FROM tblPatienten WHERE PATID < ? ORDER BY PATID"),
            QStringLiteral("10")});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.outText(), QStringLiteral("PATID\tPATName\tPATAnlageAm\tPATBild\n"
                                            "1\tMüller\t2024-03-01 14:30:05\t\n"
                                            "2\tTab\\there\t\tAQI=\n"));
}

TEST_F(DbCommandTest, QueryMatchesUmlautsAcrossCase) {
    db(QStringLiteral("exec"),
       {QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(1, 'Müller')")});
    db(QStringLiteral("exec"),
       {QStringLiteral("INSERT INTO tblPatienten (PATID, PATName) VALUES(2, 'Mueller')")});
    const ProcessRun run = db(QStringLiteral("query"), {QStringLiteral("SELECT PATID FROM tblPatienten WHERE "
                                                                       "PATName LIKE ?"),
                                                        QStringLiteral("%MÜL%")});
    EXPECT_EQ(run.outText(), QStringLiteral("PATID\n1\n"));
}

TEST_F(DbCommandTest, QueryOfNoRowPrintsTheHeaderOnly) {
    const ProcessRun run =
        db(QStringLiteral("query"), {QStringLiteral("SELECT PATID, PATName FROM tblPatienten")});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.outText(), QStringLiteral("PATID\tPATName\n"));
}

TEST_F(DbCommandTest, GenIDPrintsTheFirstIDOfTheRange) {
    EXPECT_EQ(db(QStringLiteral("genid"), {QStringLiteral("tblPatienten")}).outText(),
              QStringLiteral("10000001\n"));
    EXPECT_EQ(db(QStringLiteral("genid"), {QStringLiteral("tblPatienten"), QStringLiteral("10")}).outText(),
              QStringLiteral("10000002\n"));
    EXPECT_EQ(db(QStringLiteral("genid"), {QStringLiteral("tblPatienten")}).outText(),
              QStringLiteral("10000012\n"));
}

TEST_F(DbCommandTest, DatabaseErrorsFailWithTheEnginesText) {
    const ProcessRun run = db(QStringLiteral("query"), {QStringLiteral("SELECT * FROM tblFehlt")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.out.isEmpty());
    EXPECT_TRUE(run.err.contains("db: no such table: tblFehlt")) << run.err.toStdString();
}

struct UsageCase {
    const char* title;
    QStringList arguments;
};

class DbCommandUsageTest : public testing::TestWithParam<UsageCase> {};

TEST_P(DbCommandUsageTest, IsAUsageError) {
    const ProcessRun run = runProgram(Cli, QStringList{QStringLiteral("db")} + GetParam().arguments);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_TRUE(run.out.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Arguments, DbCommandUsageTest,
    testing::Values(
        UsageCase{"NoAction", {}},
        UsageCase{"UnknownAction", {QStringLiteral("drop"), QStringLiteral("--db"), QStringLiteral("x")}},
        UsageCase{"NoFile", {QStringLiteral("query"), QStringLiteral("SELECT 1")}},
        UsageCase{"NoStatement", {QStringLiteral("exec"), QStringLiteral("--db"), QStringLiteral("x")}},
        UsageCase{"BadCount",
                  {QStringLiteral("genid"), QStringLiteral("--db"), QStringLiteral("x"),
                   QStringLiteral("tbl"), QStringLiteral("zehn")}}),
    [](const testing::TestParamInfo<UsageCase>& info) { return std::string(info.param.title); });

} // namespace
