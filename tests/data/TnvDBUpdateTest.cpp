#include "DBExceptions.h"
#include "StructureTestDatabase.h"
#include "StructureText.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace norvik;
using structuretest::BuiltInStructure;
using structuretest::StructureTestDatabase;

namespace {

const QString Header = QStringLiteral("[Header]\r\nExportFormatVersion=3\r\n[HeaderEnd]\r\n\r\n\r\n");

QString Structure(const QStringList& ALines) {
    return Header + ALines.join(QStringLiteral("\r\n"));
}

// The target as the database writes it back: SQLite keeps the primary key inline, so a key
// index never reads back, and the unique index on the address key reads back as the key's.
QStringList TargetBlocks(const QString& AText) {
    QStringList lines;
    for (const QString& line : StructureText::SplitLines(AText)) {
        if (!StructureText::IsRelevant(line) ||
            (line.startsWith(QLatin1String("I:")) && line.section(u';', 1, 1) == u"P"))
            continue;
        lines.append(line == QLatin1String("I:iADRID;U;ADRID") ? QStringLiteral("I:iADRID;P;ADRID") : line);
    }
    // SQLite lists the newest index of a table first
    lines.move(lines.indexOf(QStringLiteral("I:iADRID;P;ADRID")),
               lines.indexOf(QStringLiteral("I:iADRSuchname;;ADRSuchname")));
    return lines;
}

QStringList RelevantLines(const QString& AText) {
    QStringList lines = StructureText::SplitLines(AText);
    lines.removeIf([](const QString& line) { return !StructureText::IsRelevant(line); });
    return lines;
}

TEST(TnvDBUpdateTest, NewDatabaseGetsEveryTableOfTheBuiltInStructure) {
    StructureTestDatabase db;
    const QStringList statements = db.Check(BuiltInStructure());
    EXPECT_EQ(statements.filter(QStringLiteral("CREATE TABLE")).size(), 7);
    EXPECT_EQ(RelevantLines(db.StructureText()).join(u'\n').toStdString(),
              TargetBlocks(BuiltInStructure()).join(u'\n').toStdString());
}

TEST(TnvDBUpdateTest, SecondCheckRunsNoStatement) {
    StructureTestDatabase db;
    db.Check(BuiltInStructure());
    EXPECT_EQ(db.Check(BuiltInStructure()), QStringList());
}

TEST(TnvDBUpdateTest, CreateTableStatementStandsAsTheSystemWritesIt) {
    StructureTestDatabase db;
    const QStringList statements = db.Check(
        Structure({QStringLiteral("T:sysTableIDs"), QStringLiteral("F:TIDTableName;S;64;;;"),
                   QStringLiteral("F:TIDCount;I;0;;;"), QStringLiteral("I:iTIDTableName;U;TIDTableName")}));
    EXPECT_EQ(
        statements,
        (QStringList{QStringLiteral("CREATE TABLE sysTableIDs(\r\n"
                                    " TIDTableName VARCHAR(64) COLLATE NOCASE  NULL, \r\n"
                                    " TIDCount INT NULL)"),
                     QStringLiteral("CREATE UNIQUE INDEX iTIDTableName ON sysTableIDs(TIDTableName)")}));
}

TEST(TnvDBUpdateTest, KeyFieldStandsInlineAndItsIndexIsNotCreated) {
    StructureTestDatabase db;
    const QStringList statements =
        db.Check(Structure({QStringLiteral("T:tblDokumente"), QStringLiteral("F:DOCID;I;0;P;;"),
                            QStringLiteral("F:PATID;I;0;;0;"), QStringLiteral("I:iDOCID;P;DOCID"),
                            QStringLiteral("I:iDOCPATID;;PATID")}));
    EXPECT_EQ(statements, (QStringList{QStringLiteral("CREATE TABLE tblDokumente(\r\n"
                                                      " DOCID INT NOT NULL PRIMARY KEY, \r\n"
                                                      " PATID INT DEFAULT 0)"),
                                       QStringLiteral("CREATE INDEX iDOCPATID ON tblDokumente(PATID)")}));
}

// a database as an older program version left it
void CreateOldPatients(StructureTestDatabase& db) {
    db.Exec(QStringLiteral(
        "CREATE TABLE tblPatienten (PATID INT NOT NULL PRIMARY KEY, "
        "PATSuchname VARCHAR(30) COLLATE NOCASE NULL, PATVorname VARCHAR(30) COLLATE NOCASE NULL, "
        "PATNotiz TEXT COLLATE NOCASE NULL)"));
    db.Exec(QStringLiteral("CREATE INDEX iPATVorname ON tblPatienten(PATVorname)"));
    for (int i = 1; i <= 3; ++i)
        db.Exec(QStringLiteral(
                    "INSERT INTO tblPatienten VALUES (%1, 'Muster Eva (15058%1)', 'Eva%1', 'Notiz %1')")
                    .arg(i));
    db.Exec(QStringLiteral("CREATE TABLE tblAlt (x INT)"));
    db.Exec(QStringLiteral("INSERT INTO tblAlt VALUES (7)"));
}

TEST(TnvDBUpdateTest, OlderDatabaseIsBroughtUpToDateKeepingEveryRow) {
    StructureTestDatabase db;
    CreateOldPatients(db);
    const QStringList statements = db.Check(BuiltInStructure());
    EXPECT_TRUE(statements.contains(QStringLiteral("ALTER TABLE tblPatienten RENAME TO tblPatienten__")));
    EXPECT_TRUE(statements.contains(QStringLiteral("DROP INDEX IF EXISTS iPATVorname")));
    EXPECT_EQ(
        db.Column(QStringLiteral("SELECT PATSuchname || '|' || PATVorname || '|' || PATNotiz || '|' || "
                                 "PATVisibleState || '|' || PATAnlageAm FROM tblPatienten ORDER BY PATID")),
        (QStringList{QStringLiteral("Muster Eva (150581)|Eva1|Notiz 1|0|30.12.1899"),
                     QStringLiteral("Muster Eva (150582)|Eva2|Notiz 2|0|30.12.1899"),
                     QStringLiteral("Muster Eva (150583)|Eva3|Notiz 3|0|30.12.1899")}));
    // the text column grew, the field only the database had is kept behind the others
    QStringList lines = RelevantLines(db.StructureText());
    EXPECT_TRUE(lines.contains(QStringLiteral("F:PATSuchname;S;60;;;")));
    EXPECT_TRUE(lines.contains(QStringLiteral("F:PATNotiz;M;1;;;")));
    EXPECT_EQ(db.Count(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'iPATVorname'")), 0);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'tblPatienten__'")),
              0);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT x FROM tblAlt")), 7);
    EXPECT_EQ(db.Check(BuiltInStructure()), QStringList());
}

TEST(TnvDBUpdateTest, RebuildStatementsComeInTheirOrder) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, b VARCHAR(5))"));
    db.Exec(QStringLiteral("CREATE INDEX ib ON t(b)"));
    db.Exec(QStringLiteral("INSERT INTO t VALUES (1, 'abcde')"));
    const QStringList statements = db.Check(
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;S;10;;;"),
                   QStringLiteral("F:c;I;0;;4;"), QStringLiteral("I:ib;;b")}));
    EXPECT_EQ(
        statements,
        (QStringList{QStringLiteral("BEGIN TRANSACTION"), QStringLiteral("ALTER TABLE t RENAME TO t__"),
                     QStringLiteral("DROP INDEX IF EXISTS ib"),
                     QStringLiteral("CREATE TABLE t(\r\n a INT NULL, \r\n b VARCHAR(10) COLLATE NOCASE  "
                                    "NULL, \r\n c INT DEFAULT 4)"),
                     QStringLiteral("CREATE INDEX ib ON t(b)"),
                     QStringLiteral("INSERT INTO t (a, b) SELECT a, b FROM t__"),
                     QStringLiteral("DROP TABLE t__"), QStringLiteral("END TRANSACTION")}));
    EXPECT_EQ(db.Column(QStringLiteral("SELECT a || b || c FROM t")), QStringList{QStringLiteral("1abcde4")});
}

struct FieldChangeCase {
    const char* title;
    const char* database;
    const char* target;
    bool allowDropBlob;
    bool rebuild;
};

class FieldChangeTest : public testing::TestWithParam<FieldChangeCase> {};

TEST_P(FieldChangeTest, RebuildsOnlyWhenTheRulesSaySo) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, f %1)").arg(QString::fromLatin1(GetParam().database)));
    const QStringList statements =
        db.Check(Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"),
                            QStringLiteral("F:f;") + QString::fromLatin1(GetParam().target)}),
                 [](TnvDBUpdate& update) { update.AllowDropBlob = GetParam().allowDropBlob; });
    EXPECT_EQ(statements.contains(QStringLiteral("ALTER TABLE t RENAME TO t__")), GetParam().rebuild)
        << statements.join(u'|').toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    Rules, FieldChangeTest,
    testing::Values(FieldChangeCase{"TextNeverShrinks", "VARCHAR(100)", "S;80;;;", false, false},
                    FieldChangeCase{"TextGrows", "VARCHAR(80)", "S;100;;;", false, true},
                    FieldChangeCase{"Same", "VARCHAR(80)", "S;80;;;", false, false},
                    FieldChangeCase{"BlobLengthDiffers", "IMAGE", "B;2;;;", false, false},
                    FieldChangeCase{"FieldBecomesBlob", "INT", "B;1;;;", false, false},
                    FieldChangeCase{"FieldBecomesBlobAllowed", "INT", "B;1;;;", true, true},
                    FieldChangeCase{"MemoToMemoWithDefault", "TEXT", "M;1;;'x';", false, true},
                    FieldChangeCase{"BlobBecomesInteger", "IMAGE", "I;0;;;", false, true},
                    FieldChangeCase{"NewDefault", "INT", "I;0;;0;", false, true},
                    FieldChangeCase{"TypeNameCaseIgnored", "int", "i;0;;;", false, false},
                    FieldChangeCase{"BigIntAlwaysDiffers", "BIGINT", "G;0;;;", false, true}),
    [](const testing::TestParamInfo<FieldChangeCase>& info) { return std::string(info.param.title); });

TEST(TnvDBUpdateTest, VersionBelowTwoComparesNoDefaults) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT DEFAULT 5, k INT NOT NULL PRIMARY KEY)"));
    const QString lines = QStringLiteral("T:t\r\nF:a;I;0\r\nF:k;I;0;P");
    EXPECT_EQ(db.Check(lines), QStringList());
    EXPECT_EQ(db.Check(QStringLiteral("[Header]\r\nExportFormatVersion=1\r\n[HeaderEnd]\r\n") + lines),
              QStringList());
    EXPECT_FALSE(
        db.Check(QStringLiteral("[Header]\r\nExportFormatVersion=2\r\n[HeaderEnd]\r\n") + lines).isEmpty());
}

TEST(TnvDBUpdateTest, ExtraFieldCausesNothingEvenWhenDeletingIsAllowed) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, extra INT)"));
    EXPECT_EQ(db.Check(Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;")}),
                       [](TnvDBUpdate& update) { update.ProtectFromDelete = false; }),
              QStringList());
}

TEST(TnvDBUpdateTest, RebuildWithoutProtectionDropsFieldsOnlyTheDatabaseHas) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, extra INT)"));
    db.Exec(QStringLiteral("INSERT INTO t VALUES (1, 2)"));
    db.Check(Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;I;0;;;")}),
             [](TnvDBUpdate& update) { update.ProtectFromDelete = false; });
    EXPECT_EQ(
        RelevantLines(db.StructureText()),
        (QStringList{QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;I;0;;;")}));
    EXPECT_EQ(db.Count(QStringLiteral("SELECT a FROM t")), 1);
}

TEST(TnvDBUpdateTest, TableOnlyInTheDatabaseStaysUnlessDeletingIsAllowed) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE zzAlt (a INT)"));
    const QString target = Structure({QStringLiteral("T:a"), QStringLiteral("F:x;I;0;;;")});
    db.Check(target);
    EXPECT_EQ(db.Count(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'zzAlt'")), 1);
    EXPECT_EQ(db.Check(target, [](TnvDBUpdate& update) { update.ProtectFromDelete = false; }),
              QStringList{QStringLiteral("DROP TABLE zzAlt")});
    EXPECT_EQ(db.Count(QStringLiteral("SELECT COUNT(*) FROM sqlite_master WHERE name = 'zzAlt'")), 0);
}

TEST(TnvDBUpdateTest, IndexWithOtherFieldsIsDroppedAndCreated) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, b INT)"));
    db.Exec(QStringLiteral("CREATE INDEX ia ON t(a)"));
    db.Exec(QStringLiteral("CREATE INDEX iOld ON t(b)"));
    const QString target =
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;I;0;;;"),
                   QStringLiteral("I:ia;U;a;b"), QStringLiteral("I:ib;;B")});
    EXPECT_EQ(db.Check(target), (QStringList{QStringLiteral("DROP INDEX ia"),
                                             QStringLiteral("CREATE UNIQUE INDEX ia ON t(a, b)"),
                                             QStringLiteral("CREATE INDEX ib ON t(B)")}));
    // a change of the kind alone has no effect; an extra index is only dropped when allowed
    const QString plain =
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;I;0;;;"),
                   QStringLiteral("I:ia;;A;B"), QStringLiteral("I:ib;;b")});
    EXPECT_EQ(db.Check(plain), QStringList());
    EXPECT_EQ(db.Check(plain, [](TnvDBUpdate& update) { update.ProtectFromDelete = false; }),
              QStringList{QStringLiteral("DROP INDEX iOld")});
}

TEST(TnvDBUpdateTest, KeyIndexWithOtherFieldsIsReportedAndKept) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (k INT NOT NULL PRIMARY KEY, b INT)"));
    db.Exec(QStringLiteral("CREATE UNIQUE INDEX ik ON t(k)"));
    QStringList errors;
    const QStringList statements =
        db.Check(Structure({QStringLiteral("T:t"), QStringLiteral("F:k;I;0;P;;"),
                            QStringLiteral("F:b;I;0;;;"), QStringLiteral("I:ik;U;k;b")}),
                 [&errors](TnvDBUpdate& update) {
                     update.OnError = [&errors](TnvDBUpdate&, const QString& message, int code) {
                         errors.append(QString::number(code) + u':' + message);
                     };
                 });
    EXPECT_EQ(statements, QStringList());
    EXPECT_EQ(errors, QStringList{QStringLiteral(
                          "3:Could not change index \"ik\" of the primary key\r\nin the table \"t\"")});
}

TEST(TnvDBUpdateTest, ChecksOnlyTheTablesAsked) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE a (x INT)"));
    db.Exec(QStringLiteral("CREATE TABLE b (x INT)"));
    TnvDBUpdate update;
    update.Connection = &db.Conn();
    update.Structure = StructureText::SplitLines(
        Structure({QStringLiteral("T:a"), QStringLiteral("F:x;I;0;;;"), QStringLiteral("F:y;I;0;;;"),
                   QStringLiteral("T:b"), QStringLiteral("F:x;I;0;;;"), QStringLiteral("F:y;I;0;;;")}));
    QStringList statements;
    update.OnRunSQL = [&statements](TnvDBUpdate&, const QString& statement, bool&) {
        statements.append(statement);
    };
    update.OnException = [](TnvDBUpdate&, const std::exception&) {};
    const QStringList only{QStringLiteral("B")};
    update.PerformCheck(&only);
    // "a" is not looked at, so it counts as missing and its creation fails
    EXPECT_TRUE(statements.contains(QStringLiteral("ALTER TABLE b RENAME TO b__")));
}

TEST(TnvDBUpdateTest, FailingStatementLeavesByExceptionOrGoesToOnException) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT)"));
    db.Exec(QStringLiteral("CREATE TABLE t__ (a INT)"));
    const QString target =
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;I;0;;;")});
    EXPECT_ANY_THROW(db.Check(target));
    // the rebuild was rolled back: the table stands as before
    EXPECT_EQ(RelevantLines(db.StructureText()).filter(QStringLiteral("F:b")), QStringList());
    int exceptions = 0;
    db.Check(target, [&exceptions](TnvDBUpdate& update) {
        update.OnException = [&exceptions](TnvDBUpdate&, const std::exception&) { ++exceptions; };
    });
    EXPECT_GT(exceptions, 0);
}

TEST(TnvDBUpdateTest, MissingStructureEndsTheCheckAtOnce) {
    StructureTestDatabase db;
    TnvDBUpdate update;
    update.Connection = &db.Conn();
    update.FileName = db.FilePath() + QStringLiteral(".missing");
    int statements = 0;
    update.OnRunSQL = [&statements](TnvDBUpdate&, const QString&, bool&) { ++statements; };
    update.PerformCheck();
    EXPECT_EQ(statements, 0);
    EXPECT_TRUE(update.Protocol().isEmpty());
}

TEST(TnvDBUpdateTest, TargetFromFileIsDeletedWhenAsked) {
    StructureTestDatabase db;
    testsupport::TempDir dir;
    const QString file =
        dir.writeFile(QStringLiteral("struc.txt"),
                      Structure({QStringLiteral("T:a"), QStringLiteral("F:x;I;0;;;")}).toLatin1());
    TnvDBUpdate update;
    update.Connection = &db.Conn();
    update.FileName = file;
    update.AutoDeleteNewFile = true;
    update.LogFile = dir.filePath(QStringLiteral("protocol.log"));
    update.PerformCheck();
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(update.ExportFormatVersion(), 3);
    EXPECT_EQ(update.Protocol().first(), QStringLiteral("ExportFormatVersion = 3"));
    EXPECT_EQ(update.Protocol().last(), QStringLiteral("CREATE TABLE a(\r\n x INT NULL)"));
    EXPECT_TRUE(QFile::exists(update.LogFile));
}

TEST(TnvDBUpdateTest, TransactionAroundTheWholeCheck) {
    StructureTestDatabase db;
    const QStringList statements =
        db.Check(BuiltInStructure(), [](TnvDBUpdate& update) { update.UseTransactions = true; });
    EXPECT_EQ(statements.filter(QStringLiteral("CREATE TABLE")).size(), 7);
    EXPECT_FALSE(db.Conn().PSInTransaction());
    EXPECT_EQ(db.Check(BuiltInStructure()), QStringList());
}

// --- other dialects: the same walk, watched through OnRunSQL

TEST(TnvDBUpdateDialectTest, MSSQLCreatesTheKeyAsConstraint) {
    StructureTestDatabase db(qsmMSSQL);
    const QStringList statements =
        db.Check(Structure({QStringLiteral("T:t"), QStringLiteral("F:k;I;0;P;;"),
                            QStringLiteral("F:n;S;20;;;U"), QStringLiteral("I:ik;P;k")}),
                 {}, true);
    EXPECT_EQ(
        statements,
        (QStringList{
            QStringLiteral("CREATE TABLE t(\r\n k INT NOT NULL, \r\n n NVARCHAR(20) COLLATE NOCASE  NULL)"),
            QStringLiteral("ALTER TABLE t ADD CONSTRAINT ik PRIMARY KEY CLUSTERED (k) ON [PRIMARY]")}));
}

TEST(TnvDBUpdateDialectTest, CompositeKeyOfTheServerGroupGetsAKeyLine) {
    StructureTestDatabase db(qsmMSAccess);
    const QStringList statements = db.Check(
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;P;;"), QStringLiteral("F:b;I;0;P;;")}), {},
        true);
    EXPECT_EQ(statements,
              QStringList{QStringLiteral(
                  "CREATE TABLE t(\r\n a INT NOT NULL, \r\n b INT NOT NULL, \r\nPRIMARY KEY (a, b))")});
}

TEST(TnvDBUpdateDialectTest, SybaseAddsAndModifiesInPlace) {
    StructureTestDatabase db(qsmSYBASE);
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, b VARCHAR(10))"));
    db.Exec(QStringLiteral("CREATE INDEX ib ON t(b)"));
    const QStringList statements = db.Check(
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;S;20;;;"),
                   QStringLiteral("F:c;I;0;;0;"), QStringLiteral("I:ib;;b")}),
        {}, true);
    EXPECT_EQ(statements,
              (QStringList{QStringLiteral("DROP INDEX ib"),
                           QStringLiteral("ALTER TABLE t\r\n  MODIFY b VARCHAR(20) COLLATE NOCASE  NULL"),
                           QStringLiteral("ALTER TABLE t\r\n  ADD c INT DEFAULT 0"),
                           QStringLiteral("CREATE INDEX ib ON t(b)")}));
}

TEST(TnvDBUpdateDialectTest, MySQLAddsWithItsOwnStatementAndSkipsDeletedBesideVisibleState) {
    StructureTestDatabase db(qsmMySQL);
    db.Exec(QStringLiteral("CREATE TABLE t (PATID INT, PATVisibleState INT)"));
    const QStringList statements =
        db.Check(Structure({QStringLiteral("T:t"), QStringLiteral("F:PATID;I;0;;;"),
                            QStringLiteral("F:PATVisibleState;I;0;;;"), QStringLiteral("F:PATDeleted;S;1;;;"),
                            QStringLiteral("F:PATNeu;B;1;;;")}),
                 {}, true);
    EXPECT_EQ(statements, QStringList{QStringLiteral("ALTER TABLE t ADD PATNeu BLOB NULL;")});
}

TEST(TnvDBUpdateDialectTest, ExtractStepCopiesThroughHelperColumns) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT, b VARCHAR(10))"));
    const QStringList statements = db.Check(
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;F;0;;;"), QStringLiteral("F:b;S;20;;;")}),
        [](TnvDBUpdate& update) { update.ChangeFields = cfChangeExtract; }, true);
    EXPECT_EQ(statements,
              (QStringList{QStringLiteral("ALTER TABLE t\r\n  ADD aZZZZZ FLOAT NULL"),
                           QStringLiteral("ALTER TABLE t\r\n  ADD bZZZZZ VARCHAR(20) COLLATE NOCASE  NULL"),
                           QStringLiteral("UPDATE t SET aZZZZZ = a, \r\nbZZZZZ = b"),
                           QStringLiteral("ALTER TABLE t\r\n  DROP COLUMN a"),
                           QStringLiteral("ALTER TABLE t\r\n  ADD a FLOAT NULL"),
                           QStringLiteral("ALTER TABLE t\r\n  DROP COLUMN b"),
                           QStringLiteral("ALTER TABLE t\r\n  ADD b VARCHAR(20) COLLATE NOCASE  NULL"),
                           QStringLiteral("UPDATE t SET a = aZZZZZ, \r\nb = bZZZZZ"),
                           QStringLiteral("ALTER TABLE t\r\n  DROP COLUMN aZZZZZ"),
                           QStringLiteral("ALTER TABLE t\r\n  DROP COLUMN bZZZZZ")}));
}

TEST(TnvDBUpdateDialectTest, KeyFieldsThatCannotChangeAreReported) {
    StructureTestDatabase db(qsmPostGre);
    db.Exec(QStringLiteral("CREATE TABLE t (k INT NOT NULL PRIMARY KEY, old INT)"));
    QStringList errors;
    const QStringList statements = db.Check(
        Structure({QStringLiteral("T:t"), QStringLiteral("F:k;S;10;P;;")}),
        [&errors](TnvDBUpdate& update) {
            update.ProtectFromDelete = false;
            update.OnError = [&errors](TnvDBUpdate&, const QString&, int code) {
                errors.append(QString::number(code));
            };
        },
        true);
    EXPECT_EQ(errors, QStringList{QStringLiteral("1")});
    EXPECT_EQ(statements, QStringList{QStringLiteral("ALTER TABLE t\r\n  DROP COLUMN old")});
}

} // namespace

namespace {

// The rebuild's own "END TRANSACTION" also ends the transaction around the whole check: the
// rebuilt table is committed with its rows, and the end of the check, finding no transaction
// left to commit, reports the check as failed.
TEST(TnvDBUpdateTest, RebuildInsideTheWholeCheckTransactionKeepsItsRows) {
    StructureTestDatabase db;
    db.Exec(QStringLiteral("CREATE TABLE t (a INT)"));
    db.Exec(QStringLiteral("INSERT INTO t VALUES (5)"));
    const QString target =
        Structure({QStringLiteral("T:t"), QStringLiteral("F:a;I;0;;;"), QStringLiteral("F:b;I;0;;3;")});
    try {
        db.Check(target, [](TnvDBUpdate& update) { update.UseTransactions = true; });
        ADD_FAILURE() << "the check reported no failure";
    } catch (const EnvDBException& e) {
        EXPECT_TRUE(
            QString::fromUtf8(e.what()).startsWith(QStringLiteral("Update of the data structure failed. (")))
            << e.what();
    }
    EXPECT_FALSE(db.Conn().PSInTransaction());
    EXPECT_EQ(db.Column(QStringLiteral("SELECT a || '/' || b FROM t")), QStringList{QStringLiteral("5/3")});
}

} // namespace
