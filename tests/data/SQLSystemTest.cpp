#include "SQLSystem.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

struct WhereCase {
    const char16_t* sql;
    const char16_t* condition;
    const char16_t* expected;
};

class AddWhereTest : public ::testing::TestWithParam<WhereCase> {};

TEST_P(AddWhereTest, AddsTheCondition) {
    QString result;
    AddWhere(QString::fromUtf16(GetParam().sql), QString::fromUtf16(GetParam().condition), result);
    EXPECT_EQ(result, QString::fromUtf16(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, AddWhereTest,
    ::testing::Values(
        WhereCase{u"SELECT * FROM tblPatienten", u"(PATVisibleState=0)",
                  u"SELECT * FROM tblPatienten WHERE (PATVisibleState=0)"},
        WhereCase{u"SELECT * FROM t WHERE a = 1", u"b = 2", u"SELECT * FROM t WHERE a = 1 AND b = 2"},
        WhereCase{u"SELECT * FROM t ORDER BY a", u" x=0 ", u"SELECT * FROM t WHERE x=0 ORDER BY a"},
        WhereCase{u"SELECT TOP 200 a FROM t WHERE b LIKE '%x%' ORDER BY a", u"(TPTVisibleState=0)",
                  u"SELECT TOP 200 a FROM t WHERE b LIKE '%x%' AND (TPTVisibleState=0) ORDER BY a"},
        // an OR list is bracketed, so that deleted rows stay hidden
        WhereCase{
            u"SELECT * FROM tblPatienten WHERE PATName = 'a' OR PATName = 'b'", u"(PATVisibleState=0)",
            u"SELECT * FROM tblPatienten WHERE (PATName = 'a' OR PATName = 'b') AND (PATVisibleState=0)"},
        WhereCase{u"SELECT * FROM t WHERE a = 1", u"b = 2 or c = 3",
                  u"SELECT * FROM t WHERE a = 1 AND (b = 2 or c = 3)"},
        WhereCase{u"SELECT * FROM t WHERE (a OR b)", u"c", u"SELECT * FROM t WHERE (a OR b) AND c"},
        WhereCase{u"SELECT * FROM t WHERE a = 'x OR y'", u"c", u"SELECT * FROM t WHERE a = 'x OR y' AND c"},
        // an empty condition leaves the statement as it is, blanks and all
        WhereCase{u"SELECT  *  FROM t", u"", u"SELECT  *  FROM t"},
        WhereCase{u"SELECT  *  FROM t", u" \t ", u"SELECT  *  FROM t"}));

TEST(AddWhereTest, ReturnsTheStatement) {
    EXPECT_EQ(AddWhere(QStringLiteral("SELECT a FROM t"), QStringLiteral("b")),
              QStringLiteral("SELECT a FROM t WHERE b"));
}

struct TableCase {
    const char16_t* sql;
    const char16_t* table;
};

class FindSourceTableTest : public ::testing::TestWithParam<TableCase> {};

TEST_P(FindSourceTableTest, FindsTheFirstTable) {
    EXPECT_EQ(FindSourceTable(QString::fromUtf16(GetParam().sql)), QString::fromUtf16(GetParam().table));
}

INSTANTIATE_TEST_SUITE_P(
    Cases, FindSourceTableTest,
    ::testing::Values(TableCase{u"SELECT * FROM tblPatienten WHERE PATID = 1", u"tblPatienten"},
                      TableCase{u"select count(*) from tblTherapeuten", u"tblTherapeuten"},
                      TableCase{u"SELECT p.* FROM tblPatienten p JOIN tblAdressen a ON a.ADRID = p.PATADRID",
                                u"tblPatienten"},
                      TableCase{u"SELECT a FROM tblA, tblB", u"tblA"},
                      TableCase{u"SELECT a FROM tblA,tblB", u"tblA"},
                      TableCase{u"SELECT * FROM [tblDokumente] WHERE DOCID = 3", u"tblDokumente"},
                      TableCase{u"SELECT * FROM \"tblDokumente\"", u"tblDokumente"},
                      TableCase{u"SELECT * FROM (SELECT * FROM tblDokumente UNION SELECT * FROM tblArchiv) q",
                                u"tblDokumente"},
                      TableCase{u"SELECT * FROM (SELECT * FROM (SELECT a FROM tblInnen) x) y", u"tblInnen"},
                      TableCase{u"SELECT * FROM (tblA JOIN tblB ON tblA.x = tblB.x)", u"tblA"},
                      TableCase{u"SELECT 1", u""}, TableCase{u"", u""}, TableCase{u"DELETE FROM", u""}));

TEST(FindSourceTableTest, DeeplyNestedSubSelectsEndTheSearch) {
    QString sql = QStringLiteral("tblTief");
    for (int i = 0; i < 100; ++i)
        sql = QStringLiteral("SELECT * FROM (") + sql + QStringLiteral(")");
    EXPECT_EQ(FindSourceTable(sql), QString());
}

} // namespace
