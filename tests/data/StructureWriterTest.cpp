#include "SQLiteStructureReader.h"
#include "StructureTestDatabase.h"

#include <gtest/gtest.h>

using namespace norvik;
using structuretest::StructureTestDatabase;

namespace {

struct TypeCase {
    const char* declared;
    const char* line;
};

class DeclaredTypeTest : public testing::TestWithParam<TypeCase> {};

TEST_P(DeclaredTypeTest, ReadsBackAsTypeAndLength) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (x %1)").arg(QString::fromLatin1(GetParam().declared)));
    EXPECT_EQ(SQLiteStructureReader::FieldLines(db.Conn(), QStringLiteral("t")),
              QStringList{QString::fromLatin1(GetParam().line)});
}

INSTANTIATE_TEST_SUITE_P(
    Types, DeclaredTypeTest,
    testing::Values(TypeCase{"VARCHAR(80) COLLATE NOCASE", "F:x;S;80;;;"}, TypeCase{"char(3)", "F:x;S;3;;;"},
                    TypeCase{"TEXT COLLATE NOCASE", "F:x;M;1;;;"}, TypeCase{"IMAGE", "F:x;B;1;;;"},
                    TypeCase{"BIGINT", "F:x;I;0;;;"}, TypeCase{"smallint", "F:x;I;0;;;"},
                    TypeCase{"INT DEFAULT 0", "F:x;I;0;;0;"},
                    TypeCase{"DATETIME DEFAULT '30.12.1899'", "F:x;D;0;;'30.12.1899';"},
                    TypeCase{"timestamp", "F:x;D;0;;;"}, TypeCase{"double", "F:x;F;0;;;"},
                    TypeCase{"NUMERIC", "F:x;F;0;;;"}, TypeCase{"MONEY", "F:x;C;0;;;"},
                    TypeCase{"varbinary(20)", "F:x;B;1;;;"}, TypeCase{"BLOB", "F:x;BLOB;0;;;"},
                    TypeCase{"INT NOT NULL PRIMARY KEY", "F:x;I;0;P;;"}, TypeCase{"", "F:x;;0;;;"}));

TEST(StructureWriterTest, OnlyTheFirstFieldOfACompositeKeyIsMarked) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, b INT, PRIMARY KEY (a, b))"));
    EXPECT_EQ(SQLiteStructureReader::FieldLines(db.Conn(), QStringLiteral("t")),
              (QStringList{QStringLiteral("F:a;I;0;P;;"), QStringLiteral("F:b;I;0;;;")}));
}

TEST(StructureWriterTest, IndexLinesLeaveOutTheImpliedKeyIndex) {
    StructureTestDatabase db;
    db.Exec(
        QStringLiteral("CREATE TABLE tblAdressen (ADRID INT NOT NULL PRIMARY KEY, ADRSuchname VARCHAR(80), "
                       "ADRPLZ VARCHAR(10))"));
    db.Exec(QStringLiteral("CREATE UNIQUE INDEX iADRID ON tblAdressen(ADRID)"));
    db.Exec(QStringLiteral("CREATE INDEX iADRSuchname ON tblAdressen(ADRSuchname, ADRPLZ)"));
    db.Exec(QStringLiteral("CREATE UNIQUE INDEX iADRPLZ ON tblAdressen(ADRPLZ)"));
    QStringList lines = SQLiteStructureReader::IndexLines(db.Conn(), QStringLiteral("tblAdressen"));
    lines.sort();
    EXPECT_EQ(lines, (QStringList{QStringLiteral("I:iADRID;P;ADRID"), QStringLiteral("I:iADRPLZ;U;ADRPLZ"),
                                  QStringLiteral("I:iADRSuchname;;ADRSuchname;ADRPLZ")}));
}

TEST(StructureWriterTest, TableBlockHasTableFieldsAndIndexes) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral(
        "CREATE TABLE sysTableIDs (TIDTableName VARCHAR(64) COLLATE NOCASE NULL, TIDCount INT NULL)"));
    db.Exec(QStringLiteral("CREATE UNIQUE INDEX iTIDTableName ON sysTableIDs(TIDTableName)"));
    TnvDBUpdate update;
    update.Connection = &db.Conn();
    QString text;
    update.GetTableStructure(QStringLiteral("sysTableIDs"), text);
    EXPECT_EQ(text, QStringLiteral("T:sysTableIDs\r\nF:TIDTableName;S;64;;;\r\nF:TIDCount;I;0;;;\r\n"
                                   "I:iTIDTableName;U;TIDTableName\r\n"));
    update.GetTableStructure(QStringLiteral("missing"), text);
    EXPECT_EQ(text, QString());
}

TEST(StructureWriterTest, AllTablesInOrderWithAnEmptyLineBehindEach) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE tblB (x INT)"));
    db.Exec(QStringLiteral("CREATE TABLE TBLa (y IMAGE)"));
    db.Exec(QStringLiteral("CREATE TABLE dtproperties (z INT)"));
    QStringList statuses;
    TnvDBUpdate update;
    update.Connection = &db.Conn();
    update.OnStatus = [&statuses](TnvDBUpdate&, const QString&, const QString& status, TStatusCode) {
        statuses.append(status);
    };
    QStringList tables;
    update.GetTableNames(tables);
    EXPECT_EQ(tables, (QStringList{QStringLiteral("TBLa"), QStringLiteral("tblB")}));
    QString text;
    update.GetDBStructure(tables, text);
    EXPECT_EQ(text, QStringLiteral("T:TBLa\r\nF:y;B;1;;;\r\n\r\r\nT:tblB\r\nF:x;I;0;;;\r\n\r\r\n"));
    EXPECT_EQ(statuses,
              (QStringList{QStringLiteral("analysing database"), QStringLiteral("analysing table TBLa"),
                           QStringLiteral("analysing table tblB"), QStringLiteral(" ")}));
}

TEST(StructureWriterTest, TableMasksChooseAndIgnoreTables) {
    StructureTestDatabase db;
    for (const char* table : {"tblA", "tblB", "sysC", "information_x"})
        db.Exec(QStringLiteral("CREATE TABLE %1 (x INT)").arg(QString::fromLatin1(table)));
    TnvDBUpdate update;
    update.Connection = &db.Conn();
    update.Tables = QStringList{QStringLiteral("TBL?"), QStringLiteral("info*")};
    update.IgnoreTables.append(QStringLiteral("*b"));
    QStringList tables;
    update.GetTableNames(tables);
    EXPECT_EQ(tables, QStringList{QStringLiteral("tblA")});
}

} // namespace
