#include "CliProcess.h"
#include "TestEnvironment.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

const QString Cli = QStringLiteral(ORVENNA_CLI_PATH);

ProcessRun run(const QStringList& arguments) {
    return runProgram(Cli, arguments);
}

QStringList outLines(const ProcessRun& result) {
    return result.outText().split(u'\n', Qt::SkipEmptyParts);
}

// points the machine-wide folder of the programs started by the test at a folder of its own
class SharedFolder {
public:
    SharedFolder()
        : FOld(qgetenv("ORVENNA_COMMON_APPDATA")) {
        qputenv("ORVENNA_COMMON_APPDATA", FDir.path().toUtf8());
    }
    ~SharedFolder() { qputenv("ORVENNA_COMMON_APPDATA", FOld); }
    SharedFolder(const SharedFolder&) = delete;
    SharedFolder& operator=(const SharedFolder&) = delete;
    QString path() const { return FDir.path(); }

private:
    testsupport::TempDir FDir;
    QByteArray FOld;
};

TEST(StructureCliTest, DbUpdateCreatesEverythingOnceAndPrintsEachStatement) {
    testsupport::TempDir dir;
    const QString db = dir.filePath(QStringLiteral("q.s3db"));
    const ProcessRun first =
        run({QStringLiteral("db"), QStringLiteral("update"), QStringLiteral("--db"), db});
    EXPECT_EQ(first.exitCode, 0) << first.err.toStdString();
    const QStringList statements = outLines(first);
    EXPECT_EQ(statements.filter(QRegularExpression(QStringLiteral("^CREATE TABLE "))).size(), 7);
    EXPECT_EQ(
        statements.first(),
        QStringLiteral("CREATE TABLE sysConfig(\\r\\n CFGUser VARCHAR(30) COLLATE NOCASE  NULL, "
                       "\\r\\n CFGCode VARCHAR(50) COLLATE NOCASE  NULL, \\r\\n CFGContents IMAGE NULL)"));
    EXPECT_EQ(statements.at(1), QStringLiteral("CREATE UNIQUE INDEX iCFGKey ON sysConfig(CFGUser, CFGCode)"));
    const ProcessRun second =
        run({QStringLiteral("db"), QStringLiteral("update"), QStringLiteral("--db"), db});
    EXPECT_EQ(second.exitCode, 0);
    EXPECT_TRUE(second.out.isEmpty()) << second.out.toStdString();
}

TEST(StructureCliTest, DbUpdateWithAStructureFileAndDbStructureShowsTheResult) {
    testsupport::TempDir dir;
    const QString db = dir.filePath(QStringLiteral("q.s3db"));
    const QString structure = dir.writeFile(QStringLiteral("s.txt"),
                                            "T:tblA\nF:AID;I;0;P;;\nF:AName;S;20;;'x';\nI:iAName;;AName\n");
    EXPECT_EQ(
        outLines(run({QStringLiteral("db"), QStringLiteral("update"), QStringLiteral("--db"), db,
                      QStringLiteral("--structure"), structure})),
        (QStringList{
            QStringLiteral("CREATE TABLE tblA(\\r\\n AID INT NOT NULL PRIMARY KEY, \\r\\n AName VARCHAR(20) "
                           "COLLATE NOCASE  DEFAULT 'x')"),
            QStringLiteral("CREATE INDEX iAName ON tblA(AName)")}));
    const ProcessRun shown =
        run({QStringLiteral("db"), QStringLiteral("structure"), QStringLiteral("--db"), db});
    EXPECT_EQ(shown.exitCode, 0);
    EXPECT_EQ(shown.outText(),
              QStringLiteral("T:tblA\r\nF:AID;I;0;P;;\r\nF:AName;S;20;;'x';\r\nI:iAName;;AName\r\n\r\r\n"));
}

TEST(StructureCliTest, DbUpdateWithAMissingStructureFileFails) {
    testsupport::TempDir dir;
    const ProcessRun result = run({QStringLiteral("db"), QStringLiteral("update"), QStringLiteral("--db"),
                                   dir.filePath(QStringLiteral("q.s3db")), QStringLiteral("--structure"),
                                   dir.filePath(QStringLiteral("missing.txt"))});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.out.isEmpty());
}

TEST(StructureCliTest, ConfigSetThenGetGivesSortedLinesAsTheReaderSeesThem) {
    testsupport::TempDir dir;
    const QString db = dir.filePath(QStringLiteral("q.s3db"));
    run({QStringLiteral("db"), QStringLiteral("update"), QStringLiteral("--db"), db});
    const QStringList target{QStringLiteral("--db"),   db,
                             QStringLiteral("--code"), QStringLiteral("DAME"),
                             QStringLiteral("--user"), QStringLiteral("SYSTEM")};
    EXPECT_EQ(
        run(QStringList{QStringLiteral("config"), QStringLiteral("set")} + target +
            QStringList{QStringLiteral("ExportFolder=\\\\server\\out"), QStringLiteral("DOCXTemplate=a=b")})
            .exitCode,
        0);
    EXPECT_EQ(run(QStringList{QStringLiteral("config"), QStringLiteral("set")} + target +
                  QStringList{QStringLiteral("Executable=x")})
                  .exitCode,
              0);
    const ProcessRun got = run(QStringList{QStringLiteral("config"), QStringLiteral("get")} + target);
    EXPECT_EQ(got.exitCode, 0);
    EXPECT_EQ(got.outText(), QStringLiteral("DOCXTemplate=a=b\nExecutable=x\nExportFolder=\\server\\out\n"));
    const ProcessRun other = run({QStringLiteral("config"), QStringLiteral("get"), QStringLiteral("--db"), db,
                                  QStringLiteral("--code"), QStringLiteral("NONE"), QStringLiteral("--user"),
                                  QStringLiteral("SYSTEM")});
    EXPECT_EQ(other.exitCode, 0);
    EXPECT_TRUE(other.out.isEmpty());
}

TEST(StructureCliTest, ConfigUsageErrors) {
    for (const QStringList& arguments :
         {QStringList{QStringLiteral("config"), QStringLiteral("get"), QStringLiteral("--db"),
                      QStringLiteral("x")},
          QStringList{QStringLiteral("config"), QStringLiteral("set"), QStringLiteral("--db"),
                      QStringLiteral("x"), QStringLiteral("--code"), QStringLiteral("C"),
                      QStringLiteral("--user"), QStringLiteral("U")},
          QStringList{QStringLiteral("config"), QStringLiteral("set"), QStringLiteral("--db"),
                      QStringLiteral("x"), QStringLiteral("--code"), QStringLiteral("C"),
                      QStringLiteral("--user"), QStringLiteral("U"), QStringLiteral("=v")},
          QStringList{QStringLiteral("config"), QStringLiteral("drop")}}) {
        const ProcessRun result = run(arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.err.startsWith("orvenna-cli: config: ")) << result.err.toStdString();
    }
}

TEST(StructureCliTest, OpenDatabaseChecksOnTheFirstStartOnly) {
    SharedFolder folder;
    const ProcessRun first = run({QStringLiteral("open-database")});
    EXPECT_EQ(first.exitCode, 0) << first.err.toStdString();
    const QString hash = outLines(run({QStringLiteral("hash-structure")})).value(0);
    EXPECT_EQ(outLines(first),
              (QStringList{
                  QStringLiteral("database=") + folder.path() + QStringLiteral("/quillnote/quillnote.s3db"),
                  QStringLiteral("settings=") + folder.path() + QStringLiteral("/quillnote/quillnote.ini"),
                  QStringLiteral("checked=yes"), QStringLiteral("hash=") + hash}));
    EXPECT_EQ(outLines(run({QStringLiteral("open-database")})).value(2), QStringLiteral("checked=no"));
    QFile::remove(folder.path() + QStringLiteral("/quillnote/quillnote.ini"));
    EXPECT_EQ(outLines(run({QStringLiteral("open-database")})).value(2), QStringLiteral("checked=yes"));
    EXPECT_EQ(outLines(run({QStringLiteral("open-database")})).value(2), QStringLiteral("checked=no"));
}

TEST(StructureCliTest, HashOfAFileIgnoresTheKindOfLineEnd) {
    testsupport::TempDir dir;
    const ProcessRun unix =
        run({QStringLiteral("hash-structure"), dir.writeFile(QStringLiteral("a.txt"), "T:a\nF:b;I;0;;;\n")});
    const ProcessRun windows =
        run({QStringLiteral("hash-structure"), dir.writeFile(QStringLiteral("b.txt"), "T:a\r\nF:b;I;0;;;")});
    EXPECT_EQ(unix.exitCode, 0);
    EXPECT_EQ(unix.outText(), windows.outText());
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[0-9A-F]{8}\n$")).match(unix.outText()).hasMatch())
        << unix.out.toStdString();
    EXPECT_NE(unix.outText(), run({QStringLiteral("hash-structure")}).outText());
    EXPECT_EQ(run({QStringLiteral("hash-structure"), dir.filePath(QStringLiteral("missing"))}).exitCode, 1);
}

} // namespace
