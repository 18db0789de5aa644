#include "TnvSQLiteParser.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

const QString ClosingError =
    QStringLiteral("ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein");

struct RewriteCase {
    const char16_t* in;
    const char16_t* out;
};

void PrintTo(const RewriteCase& c, std::ostream* os) {
    *os << QString::fromUtf16(c.in).toStdString();
}

class ParseSQLTest : public ::testing::TestWithParam<RewriteCase> {};

TEST_P(ParseSQLTest, Rewrites) {
    TnvSQLiteParser parser;
    QString result;
    const bool balanced = parser.ParseSQL(QString::fromUtf16(GetParam().in), result);
    EXPECT_EQ(result, QString::fromUtf16(GetParam().out));
    EXPECT_EQ(balanced, !result.startsWith(ClosingError));
}

INSTANTIATE_TEST_SUITE_P(
    Dialect, ParseSQLTest,
    ::testing::Values(
        RewriteCase{u"SELECT TOP 5 a FROM t", u"SELECT a FROM t LIMIT 5"},
        RewriteCase{u"SELECT ISNULL(a,0) FROM t", u"SELECT IFNULL(a,0) FROM t"},
        RewriteCase{u"SELECT SUM(a) FROM t", u"SELECT TOTAL(a) FROM t"},
        RewriteCase{u"SELECT * FROM t WHERE x IN (SELECT TOP 1 y FROM u)",
                    u"SELECT * FROM t WHERE x IN (SELECT y FROM u LIMIT 1)"},
        RewriteCase{u"SELECT 'TOP 5' FROM t", u"SELECT 'TOP 5' FROM t"},
        // letter case and levels
        RewriteCase{u"select top 5 a from t", u"select a from t LIMIT 5"},
        RewriteCase{u"SELECT * FROM t WHERE x IN (select top 2 y from u)",
                    u"SELECT * FROM t WHERE x IN (select y from u LIMIT 2)"},
        RewriteCase{u"SELECT * FROM t WHERE x IN (SELECT TOP 5 a)",
                    u"SELECT * FROM t WHERE x IN (SELECT a LIMIT 5)"},
        RewriteCase{u"SELECT TOP 3 * FROM t WHERE x IN (SELECT TOP 1 y FROM u) ORDER BY a",
                    u"SELECT * FROM t WHERE x IN (SELECT y FROM u LIMIT 1) ORDER BY a LIMIT 3"},
        RewriteCase{u"SELECT TOP 10 a FROM t WHERE b = (SELECT MAX(c) FROM u)",
                    u"SELECT a FROM t WHERE b = (SELECT MAX(c) FROM u) LIMIT 10"},
        RewriteCase{u"select isnull(a,0), Sum(b) from t", u"select IFNULL(a,0), TOTAL(b) from t"},
        RewriteCase{u"SELECT ISNULL(SUM(a),0) FROM t", u"SELECT IFNULL(TOTAL(a),0) FROM t"},
        // words are read whole
        RewriteCase{u"SELECT TOPIC, SUMME, ISNULLX FROM t", u"SELECT TOPIC, SUMME, ISNULLX FROM t"},
        RewriteCase{u"SELECT a_SUM FROM t", u"SELECT a_SUM FROM t"},
        // strings stay as they are
        RewriteCase{u"SELECT 'ISNULL(' FROM t", u"SELECT 'ISNULL(' FROM t"},
        RewriteCase{u"SELECT a FROM t WHERE b = ')'", u"SELECT a FROM t WHERE b = ')'"},
        RewriteCase{u"SELECT 'it''s TOP 5 SUM(' FROM t", u"SELECT 'it''s TOP 5 SUM(' FROM t"},
        RewriteCase{u"SELECT 'Grüße' FROM tblPatienten WHERE PATName LIKE '%ö%'",
                    u"SELECT 'Grüße' FROM tblPatienten WHERE PATName LIKE '%ö%'"},
        // a word at the very end has no delimiter behind it and is never looked at
        RewriteCase{u"SELECT a FROM t ORDER BY SUM", u"SELECT a FROM t ORDER BY SUM"},
        // a word across a string, or one left out as a limit, is no keyword: nothing else is cut away
        RewriteCase{u"SELECT S''UM(a) FROM t", u"SELECT S''UM(a) FROM t"},
        RewriteCase{u"SELECT a FROM t WHERE b=T'x'OP 5", u"SELECT a FROM t WHERE b=T'x'OP 5"},
        RewriteCase{u"SELECT a FROM t WHERE b='x'TOP 5", u"SELECT a FROM t WHERE b='x' LIMIT 5"},
        RewriteCase{u"SELECT TOP TOP 5 a FROM t", u"SELECT 5 a FROM t LIMIT TOP"},
        // double quotes are no string quotes here
        RewriteCase{u"SELECT \"TOP 5\" FROM t", u"SELECT \" FROM t LIMIT 5"}, RewriteCase{u"", u""},
        RewriteCase{u"UPDATE t SET a = 1", u"UPDATE t SET a = 1"},
        // unbalanced brackets
        RewriteCase{u"SELECT a) FROM t",
                    u"ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein"},
        RewriteCase{u"SELECT a FROM t) (",
                    u"ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein"},
        RewriteCase{u"SELECT (a FROM t",
                    u"ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein (offen 1)"},
        RewriteCase{u"SELECT ((a) FROM t",
                    u"ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein (offen 1)"},
        RewriteCase{u"SELECT (((a",
                    u"ERROR: Die Anzahl der geöffneten und geschlossenen Klammern stimmt überein (offen 3)"},
        RewriteCase{u"SELECT '(' FROM t", u"SELECT '(' FROM t"}));

TEST(TnvSQLiteParserTest, ErrorTextsAreTheSystemsWords) {
    EXPECT_EQ(TnvSQLiteParser::UnbalancedClosingText(), ClosingError);
    EXPECT_EQ(TnvSQLiteParser::UnbalancedOpeningText(2), ClosingError + QStringLiteral(" (offen 2)"));
}

TEST(TnvSQLiteParserTest, OneParserServesManyStatements) {
    TnvSQLiteParser parser;
    EXPECT_EQ(parser.ParseSQL(QStringLiteral("SELECT (((a")), ClosingError + QStringLiteral(" (offen 3)"));
    EXPECT_EQ(parser.ParseSQL(QStringLiteral("SELECT a) FROM t")), ClosingError);
    EXPECT_EQ(parser.ParseSQL(QStringLiteral("SELECT 'x FROM t")), QStringLiteral("SELECT 'x FROM t"));
    EXPECT_EQ(parser.ParseSQL(QStringLiteral("SELECT TOP 2 a FROM t")),
              QStringLiteral("SELECT a FROM t LIMIT 2"));
    EXPECT_EQ(parser.ParseSQL(QStringLiteral("SELECT a FROM t")), QStringLiteral("SELECT a FROM t"));
}

TEST(TnvSQLiteParserTest, ReplacementsCanBeAddedAndRemoved) {
    TnvSQLiteParser parser;
    parser.AddReplace(QStringLiteral("len"), QStringLiteral("LEN"), QStringLiteral("LENGTH"));
    parser.RemoveReplace(QStringLiteral("sum"));
    EXPECT_EQ(parser.ParseSQL(QStringLiteral("SELECT Len(a), SUM(b) FROM t")),
              QStringLiteral("SELECT LENGTH(a), SUM(b) FROM t"));
}

TEST(TnvSQLiteParserTest, LongStatementIsRewrittenWhole) {
    QString sql = QStringLiteral("SELECT TOP 1 a FROM t WHERE b IN (");
    QString expected = QStringLiteral("SELECT a FROM t WHERE b IN (");
    for (int i = 0; i < 5000; ++i) {
        sql += QStringLiteral("ISNULL(c,%1),").arg(i);
        expected += QStringLiteral("IFNULL(c,%1),").arg(i);
    }
    sql += QStringLiteral("0)");
    expected += QStringLiteral("0) LIMIT 1");
    EXPECT_EQ(TnvSQLiteParser().ParseSQL(sql), expected);
}

} // namespace
