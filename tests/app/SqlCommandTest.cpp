#include "CliProcess.h"

#include <gtest/gtest.h>

namespace {

const QString Cli = QStringLiteral(ORVENNA_CLI_PATH);

ProcessRun runSql(const QString& statement) {
    return runProgram(Cli, {QStringLiteral("sql"), statement});
}

struct SqlCase {
    const char* title;
    const char16_t* statement;
    const char16_t* out;
};

class SqlCommandTest : public testing::TestWithParam<SqlCase> {};

TEST_P(SqlCommandTest, PrintsTheStatementForSQLite) {
    const ProcessRun run = runSql(QString::fromUtf16(GetParam().statement));
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.outText(), QString::fromUtf16(GetParam().out));
    EXPECT_TRUE(run.err.isEmpty()) << run.err.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Statements, SqlCommandTest,
    testing::Values(SqlCase{"Top", u"SELECT TOP 5 a FROM t", u"SELECT a FROM t LIMIT 5\n"},
                    SqlCase{"Functions", u"select isnull(sum(a),0) from t",
                            u"select IFNULL(TOTAL(a),0) from t\n"},
                    SqlCase{"SubQuery", u"SELECT * FROM t WHERE x IN (SELECT TOP 1 y FROM u)",
                            u"SELECT * FROM t WHERE x IN (SELECT y FROM u LIMIT 1)\n"},
                    SqlCase{"Umlauts", u"SELECT 'TOP 5 Grüße' FROM t", u"SELECT 'TOP 5 Grüße' FROM t\n"},
                    SqlCase{"Empty", u"", u"\n"}),
    [](const testing::TestParamInfo<SqlCase>& info) { return std::string(info.param.title); });

TEST(SqlCommandErrorTest, UnbalancedClosingBracketFails) {
    const ProcessRun run = runSql(QStringLiteral("SELECT a) FROM t"));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
    EXPECT_EQ(
        QString::fromUtf8(run.err),
        QStringLiteral("sql: ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein\n"));
}

TEST(SqlCommandErrorTest, UnbalancedOpeningBracketFailsWithTheLevel) {
    const ProcessRun run = runSql(QStringLiteral("SELECT ((a"));
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.out.isEmpty()) << run.out.toStdString();
    EXPECT_TRUE(QString::fromUtf8(run.err).endsWith(QStringLiteral("überein (offen 2)\n")))
        << run.err.toStdString();
}

TEST(SqlCommandErrorTest, StatementIsRequired) {
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("sql")},
          QStringList{QStringLiteral("sql"), QStringLiteral("a"), QStringLiteral("b")}}) {
        const ProcessRun run = runProgram(Cli, arguments);
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TRUE(run.err.startsWith("orvenna-cli: sql: ")) << run.err.toStdString();
    }
}

} // namespace
