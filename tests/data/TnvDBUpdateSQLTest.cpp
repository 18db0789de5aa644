#include "TnvDBUpdateSQL.h"

#include "DBExceptions.h"

#include <gtest/gtest.h>

using namespace norvik;

namespace {

struct DefinitionCase {
    const char* title;
    TServerQueryMode mode;
    const char* spec;
    const char16_t* definition;
};

class ColumnDefinitionTest : public testing::TestWithParam<DefinitionCase> {};

TEST_P(ColumnDefinitionTest, BuildsTheTextBehindTheFieldName) {
    EXPECT_EQ(TnvDBUpdateSQL::ColumnDefinition(QString::fromLatin1(GetParam().spec), GetParam().mode),
              QString::fromUtf16(GetParam().definition));
}

INSTANTIATE_TEST_SUITE_P(
    Dialects, ColumnDefinitionTest,
    testing::Values(
        DefinitionCase{"Text", qsmSQLite, "S;64;;;", u" VARCHAR(64) COLLATE NOCASE  NULL"},
        DefinitionCase{"TextDefault", qsmSQLite, "S;1;;'N';", u" VARCHAR(1) COLLATE NOCASE  DEFAULT 'N'"},
        DefinitionCase{"Integer", qsmSQLite, "I;0;;0;", u" INT DEFAULT 0"},
        DefinitionCase{"Int64", qsmSQLite, "G;0;;;", u" BIGINT NULL"},
        DefinitionCase{"Date", qsmSQLite, "d;0;;'30.12.1899';", u" DATETIME DEFAULT '30.12.1899'"},
        DefinitionCase{"Float", qsmSQLite, "F;0;;;", u" FLOAT NULL"},
        DefinitionCase{"Money", qsmSQLite, "C;0;;;", u" MONEY NULL"},
        DefinitionCase{"Blob", qsmSQLite, "B;1;;;", u" IMAGE NULL"},
        DefinitionCase{"Memo", qsmSQLite, "M;1;;;", u" TEXT COLLATE NOCASE  NULL"},
        DefinitionCase{"KeyText", qsmSQLite, "S;10;P;;", u" VARCHAR(10) COLLATE NOCASE NOT NULL"},
        DefinitionCase{"KeyIntegerTakesNoDefault", qsmSQLite, "I;0;p;5;", u" INT NOT NULL"},
        DefinitionCase{"KeyMoney", qsmSQLite, "C;0;P;;", u" FLOAT NOT NULL"},
        DefinitionCase{"KeyBlob", qsmSQLite, "B;1;P;;", u" BLOB NOT NULL"},
        DefinitionCase{"KeyMemo", qsmSQLite, "M;1;P;;", u" TEXT COLLATE NOCASE NOT NULL"},
        DefinitionCase{"AccessMemo", qsmMSAccess, "M;1;;;", u" MEMO NULL"},
        DefinitionCase{"AccessKeyBlob", qsmMSAccess, "B;1;P;;", u" IMAGE NOT NULL"},
        DefinitionCase{"AccessKeyMemo", qsmMSAccess, "M;1;P;;", u" MEMO NOT NULL"},
        DefinitionCase{"AccessKeyMoney", qsmMSAccess, "C;0;P;;", u" FLOAT NOT NULL"},
        DefinitionCase{"MSSQLNational", qsmMSSQL, "S;20;;;U", u" NVARCHAR(20) COLLATE NOCASE  NULL"},
        DefinitionCase{"MSSQLNationalMemo", qsmMSSQL, "M;1;;;u", u" NTEXT COLLATE NOCASE  NULL"},
        DefinitionCase{"SQLiteIgnoresNational", qsmSQLite, "S;20;;;U", u" VARCHAR(20) COLLATE NOCASE  NULL"},
        DefinitionCase{"MSSQLKeyMoney", qsmMSSQL, "C;0;P;;", u" MONEY NOT NULL"},
        DefinitionCase{"MSSQLKeyBlob", qsmMSSQL, "B;1;P;;", u" IMAGE NOT NULL"},
        DefinitionCase{"SybaseMemo", qsmSYBASE, "M;1;;;", u" TEXT  NULL"},
        DefinitionCase{"AnywhereKeyMoney", qsmSQLANYWHERE, "C;0;P;;", u" MONEY NOT NULL"},
        DefinitionCase{"MySQLBlob", qsmMySQL, "B;1;;;", u" BLOB NULL"},
        DefinitionCase{"MySQLKeyBlob", qsmMySQL, "B;1;P;;", u" BLOB NOT NULL"},
        DefinitionCase{"PostgresBlob", qsmPostGre, "B;1;;;", u" OID NULL"},
        DefinitionCase{"PostgresDate", qsmPostGre, "D;0;;;", u" TIMESTAMP NULL"},
        DefinitionCase{"PostgresShortensLongText", qsmPostGre, "S;255;;;",
                       u" VARCHAR(254) COLLATE NOCASE  NULL"},
        DefinitionCase{"PostgresKeyDate", qsmPostGre, "D;0;P;;", u" TIMESTAMP NOT NULL"},
        DefinitionCase{"PostgresKeyMemo", qsmPostGre, "M;1;P;;", u" MEMO NOT NULL"},
        DefinitionCase{"OtherDialectPlainField", qsmORACLE, "I;0;;;", u" INT NULL"}),
    [](const testing::TestParamInfo<DefinitionCase>& info) { return std::string(info.param.title); });

TEST(ColumnDefinitionErrorTest, UnknownTypeLetterRaises) {
    try {
        TnvDBUpdateSQL::ColumnDefinition(QStringLiteral("X;0;;;"), qsmSQLite);
        FAIL() << "no exception";
    } catch (const EnvDBException& e) {
        EXPECT_STREQ(e.what(), "The field type \"X\" could not be interpreted");
    }
    EXPECT_THROW(TnvDBUpdateSQL::ColumnDefinition(QString(), qsmSQLite), EnvDBException);
}

TEST(ColumnDefinitionErrorTest, KeyFieldOfAnUninvolvedDialectRaises) {
    try {
        TnvDBUpdateSQL::ColumnDefinition(QStringLiteral("I;0;P;;"), qsmORACLE);
        FAIL() << "no exception";
    } catch (const EnvDBException& e) {
        EXPECT_STREQ(e.what(), "Database not involved \"qsmORACLE\".");
    }
}

TEST(ColumnDefinitionTest, CallerMayReplaceLengthAndKey) {
    EXPECT_EQ(
        TnvDBUpdateSQL::ColumnDefinition(QStringLiteral("S;30;;;"), qsmSQLite, true, QStringLiteral("99")),
        QStringLiteral(" VARCHAR(99) COLLATE NOCASE  NULL"));
    EXPECT_EQ(
        TnvDBUpdateSQL::ColumnDefinition(QStringLiteral("I;0;;0;"), qsmSQLite, true, {}, QStringLiteral("P")),
        QStringLiteral(" INT NOT NULL"));
    EXPECT_EQ(TnvDBUpdateSQL::ColumnDefinition(QStringLiteral("I;0;;0;"), qsmSQLite, false),
              QStringLiteral(" INT NULL"));
}

struct IndexCase {
    const char* title;
    TServerQueryMode mode;
    const char* kind;
    const char16_t* create;
    const char16_t* drop;
};

class IndexStatementTest : public testing::TestWithParam<IndexCase> {};

TEST_P(IndexStatementTest, BuildsCreateAndDrop) {
    EXPECT_EQ(TnvDBUpdateSQL::CreateIndex(QStringLiteral("t"), QStringLiteral("n"),
                                          QString::fromLatin1(GetParam().kind), QStringLiteral("a;b"),
                                          GetParam().mode),
              QString::fromUtf16(GetParam().create));
    EXPECT_EQ(TnvDBUpdateSQL::DropIndex(QStringLiteral("t"), QStringLiteral("n"), false, GetParam().mode),
              QString::fromUtf16(GetParam().drop));
}

INSTANTIATE_TEST_SUITE_P(
    Dialects, IndexStatementTest,
    testing::Values(
        IndexCase{"Plain", qsmSQLite, "", u"CREATE INDEX n ON t(a, b)", u"DROP INDEX n"},
        IndexCase{"Unique", qsmSQLite, "u", u"CREATE UNIQUE INDEX n ON t(a, b)", u"DROP INDEX n"},
        IndexCase{"SQLiteKey", qsmSQLite, "P", u"", u"DROP INDEX n"},
        IndexCase{"AccessKey", qsmMSAccess, "P", u"ALTER TABLE t ADD CONSTRAINT n PRIMARY KEY (a, b)",
                  u"DROP INDEX n ON t"},
        IndexCase{"MSSQLKey", qsmMSSQL, "P",
                  u"ALTER TABLE t ADD CONSTRAINT n PRIMARY KEY CLUSTERED (a, b) ON [PRIMARY]",
                  u"DROP INDEX t.n"},
        IndexCase{"SybaseKey", qsmSYBASE, "P", u"CREATE UNIQUE INDEX n ON t(a, b)", u"DROP INDEX n"},
        IndexCase{"MySQLKey", qsmMySQL, "P", u"CREATE UNIQUE INDEX n ON t(a, b)", u"DROP INDEX n ON t"}),
    [](const testing::TestParamInfo<IndexCase>& info) { return std::string(info.param.title); });

TEST(IndexStatementTest, MySQLKeepsTheKeyIndex) {
    EXPECT_EQ(TnvDBUpdateSQL::DropIndex(QStringLiteral("t"), QStringLiteral("n"), true, qsmMySQL), QString());
}

} // namespace
