#include "TSQLObject.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

TEST(TSQLObjectTest, SplitsTheClauses) {
    const TSQLObject sql(
        QStringLiteral("SELECT a, b FROM t WHERE x = 1 GROUP BY a, b HAVING COUNT(*) > 1 ORDER BY a"));
    EXPECT_EQ(sql.Select(), QStringLiteral("a, b"));
    EXPECT_EQ(sql.From(), QStringLiteral("t"));
    EXPECT_EQ(sql.Where(), QStringLiteral("x = 1"));
    EXPECT_EQ(sql.GroupBy(), QStringLiteral("a, b"));
    EXPECT_EQ(sql.Having(), QStringLiteral("COUNT(*) > 1"));
    EXPECT_EQ(sql.OrderBy(), QStringLiteral("a"));
    EXPECT_EQ(sql.InsertInto(), QString());
    EXPECT_EQ(sql.SourceQueryCount(), 0);
}

struct TextCase {
    const char16_t* in;
    const char16_t* out;
};

class TSQLObjectTextTest : public ::testing::TestWithParam<TextCase> {};

TEST_P(TSQLObjectTextTest, WritesTheClausesBackInTheirOrder) {
    EXPECT_EQ(TSQLObject(QString::fromUtf16(GetParam().in)).Text(), QString::fromUtf16(GetParam().out));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, TSQLObjectTextTest,
    ::testing::Values(
        TextCase{u"SELECT a FROM t WHERE x = 1", u"SELECT a FROM t WHERE x = 1"},
        TextCase{u"select a from t order by a where x=1", u"SELECT a FROM t WHERE x=1 ORDER BY a"},
        TextCase{u"SELECT a, COUNT(*) FROM t ORDER BY a HAVING COUNT(*) > 1 GROUP BY a",
                 u"SELECT a, COUNT(*) FROM t GROUP BY a HAVING COUNT(*) > 1 ORDER BY a"},
        TextCase{u"SELECT\ta\r\n   FROM  t\n", u"SELECT a FROM t"},
        TextCase{u"insert into x (a, b) select a, b from t", u"INSERT INTO x (a, b) SELECT a, b FROM t"},
        // texts and brackets keep their words, blanks and letter case
        TextCase{u"SELECT a FROM t WHERE b = 'x  FROM  y order by z'",
                 u"SELECT a FROM t WHERE b = 'x  FROM  y order by z'"},
        TextCase{u"SELECT a FROM t WHERE x IN (SELECT y FROM u WHERE z = 1 order by y)",
                 u"SELECT a FROM t WHERE x IN (SELECT y FROM u WHERE z = 1 ORDER BY y)"},
        TextCase{u"SELECT TOP 200 a FROM t", u"SELECT TOP 200 a FROM t"},
        // nothing is lost of statements that are no plain SELECT
        TextCase{u"UPDATE t SET a = 1 WHERE b = 2", u"UPDATE t SET a = 1 WHERE b = 2"},
        TextCase{u"SELECT a FROM t UNION SELECT b FROM u WHERE c = 1",
                 u"SELECT a FROM t UNION SELECT b FROM u WHERE c = 1"},
        TextCase{u"SELECT a FROM t WHERE x = 1 WHERE y = 2", u"SELECT a FROM t WHERE x = 1 WHERE y = 2"},
        TextCase{u"", u""}));

TEST(TSQLObjectTest, SubSelectInFromGivesTheSourceQueries) {
    const TSQLObject sql(
        QStringLiteral("SELECT * FROM (SELECT a FROM t WHERE b = 1 UNION SELECT a FROM u) q WHERE a > 1"));
    ASSERT_EQ(sql.SourceQueryCount(), 2);
    EXPECT_EQ(sql.GetSourceQuery(0), QStringLiteral("SELECT a FROM t WHERE b = 1"));
    EXPECT_EQ(sql.GetSourceQuery(1), QStringLiteral("SELECT a FROM u"));
    EXPECT_EQ(sql.SourceQueries(), (QStringList{sql.GetSourceQuery(0), sql.GetSourceQuery(1)}));
    EXPECT_EQ(sql.GetSourceQuery(2), QString());
    EXPECT_EQ(sql.From(), QStringLiteral("(SELECT a FROM t WHERE b = 1\r\nUNION\r\nSELECT a FROM u) q"));
    EXPECT_EQ(sql.Text(),
              QStringLiteral(
                  "SELECT * FROM (SELECT a FROM t WHERE b = 1\r\nUNION\r\nSELECT a FROM u) q WHERE a > 1"));
}

TEST(TSQLObjectTest, SubSelectKeepsItsOrderBy) {
    const TSQLObject sql(QStringLiteral("SELECT * FROM (select a from t order by a) q"));
    ASSERT_EQ(sql.SourceQueryCount(), 1);
    EXPECT_EQ(sql.GetSourceQuery(0), QStringLiteral("select a from t ORDER BY a"));
}

TEST(TSQLObjectTest, UnionAllKeepsItsAll) {
    const TSQLObject sql(QStringLiteral("SELECT * FROM (SELECT a FROM t UNION ALL SELECT a FROM u)"));
    EXPECT_EQ(sql.Text(), QStringLiteral("SELECT * FROM (SELECT a FROM t\r\nUNION\r\nALL SELECT a FROM u)"));
}

TEST(TSQLObjectTest, SubSelectMayStartWithBlanksAndAnyCase) {
    const TSQLObject sql(QStringLiteral("SELECT * FROM ( \r\n\tselect a FROM t) q"));
    ASSERT_EQ(sql.SourceQueryCount(), 1);
    EXPECT_EQ(sql.GetSourceQuery(0), QStringLiteral("select a FROM t"));
}

TEST(TSQLObjectTest, WordThatOnlyBeginsWithSelectIsNoSubSelect) {
    EXPECT_EQ(TSQLObject(QStringLiteral("SELECT * FROM (SELECTED a) q")).SourceQueryCount(), 0);
    EXPECT_EQ(TSQLObject(QStringLiteral("SELECT * FROM (SELECT(1)) q")).SourceQueryCount(), 0);
}

TEST(TSQLObjectTest, BracketsThatAreNoSelectStayInFrom) {
    const TSQLObject sql(QStringLiteral("SELECT * FROM (t JOIN u ON t.a = u.a)"));
    EXPECT_EQ(sql.SourceQueryCount(), 0);
    EXPECT_EQ(sql.From(), QStringLiteral("(t JOIN u ON t.a = u.a)"));
}

TEST(TSQLObjectTest, ClearSourceQueriesDropsTheSubSelect) {
    TSQLObject sql(QStringLiteral("SELECT * FROM (SELECT a FROM t) q"));
    sql.ClearSourceQueries();
    EXPECT_EQ(sql.SourceQueryCount(), 0);
    EXPECT_EQ(sql.Text(), QStringLiteral("SELECT * FROM q"));
}

TEST(TSQLObjectTest, ClearSourceQueriesKeepsTheRestOfFromAsItIs) {
    TSQLObject sql(QStringLiteral("SELECT * FROM (SELECT a FROM t)q JOIN u ON u.n = 'a  $$$  b'"));
    sql.ClearSourceQueries();
    EXPECT_EQ(sql.From(), QStringLiteral("q JOIN u ON u.n = 'a  $$$  b'"));
}

TEST(TSQLObjectTest, ClausesCanBeChanged) {
    TSQLObject sql(QStringLiteral("SELECT a FROM t ORDER BY a"));
    sql.ClearOrderBy();
    sql.SetWhere(QStringLiteral("b = 1"));
    sql.SetFrom(QStringLiteral("(SELECT a FROM u) x"));
    EXPECT_EQ(sql.SourceQueryCount(), 1);
    EXPECT_EQ(sql.Text(), QStringLiteral("SELECT a FROM (SELECT a FROM u) x WHERE b = 1"));
}

TEST(TSQLObjectTest, FormattedOutputPutsEachClauseOnItsOwnLine) {
    TSQLObject sql(QStringLiteral("SELECT a FROM t WHERE b = 1 ORDER BY a"));
    sql.SetFormatOutput(true);
    sql.SetIndent(2);
    EXPECT_EQ(sql.Text(), QStringLiteral("  SELECT a\r\n  FROM t\r\n  WHERE b = 1\r\n  ORDER BY a"));
}

} // namespace
