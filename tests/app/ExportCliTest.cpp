#include "CliProcess.h"
#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace {

const QString Cli = QStringLiteral(ORVENNA_CLI_PATH);

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// the value of a "name=value" line of the output
QString LineValue(const QByteArray& output, const QString& name) {
    const QRegularExpression line(QStringLiteral("^%1=(.*)$").arg(name), QRegularExpression::MultilineOption);
    return line.match(QString::fromUtf8(output)).captured(1);
}

// The machine-wide database of the sandbox, new for each test, and an outbox folder.
class ExportCliTest : public testing::Test {
protected:
    testsupport::TempDir folder;
    QString outbox = folder.filePath(QStringLiteral("outbox"));
    QString database;

    void SetUp() override {
        RemoveDatabase();
        const ProcessRun open = runProgram(Cli, {QStringLiteral("open-database")});
        ASSERT_EQ(open.exitCode, 0) << open.err.toStdString();
        database = LineValue(open.out, QStringLiteral("database"));
        ASSERT_FALSE(database.isEmpty());
    }
    void TearDown() override { RemoveDatabase(); }

    static void RemoveDatabase() {
        QDir(QDir(testsupport::sandboxPath()).filePath(QStringLiteral("common/quillnote")))
            .removeRecursively();
    }

    void ConfigureOutbox() {
        QDir().mkpath(outbox);
        const ProcessRun set = runProgram(
            Cli, {QStringLiteral("config"), QStringLiteral("set"), QStringLiteral("--db"), database,
                  QStringLiteral("--code"), QStringLiteral("DAME"), QStringLiteral("--user"),
                  QStringLiteral("SYSTEM"), QStringLiteral("ExportFolder=") + outbox});
        ASSERT_EQ(set.exitCode, 0) << set.err.toStdString();
    }

    ProcessRun Export(const QStringList& arguments) {
        return runProgram(Cli,
                          QStringList{QStringLiteral("--now"), QStringLiteral("2026-03-03 14:05:00"),
                                      QStringLiteral("export")} +
                              arguments,
                          {}, folder.path());
    }

    QString Query(const QString& sql) {
        return runProgram(Cli, {QStringLiteral("db"), QStringLiteral("query"), QStringLiteral("--db"),
                                database, sql})
            .outText();
    }

    QStringList OutboxFiles() const { return QDir(outbox).entryList(QDir::Files); }
};

} // namespace

TEST_F(ExportCliTest, DemoFeedbackGoesToTheOutboxAndIntoTheDatabase) {
    ConfigureOutbox();
    const ProcessRun run = Export({QStringLiteral("--demo")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QString file = LineValue(run.out, QStringLiteral("outbox"));
    EXPECT_EQ(QFileInfo(file).absolutePath(), QFileInfo(outbox).absoluteFilePath());
    EXPECT_EQ(OutboxFiles().size(), 1);
    EXPECT_TRUE(ReadFile(file).startsWith("UNA:+.? 'UNB+ANSI:1+ME200002+ME100001+260303+1405+1'"));
    EXPECT_TRUE(run.outText().contains(QStringLiteral("Das Dokument wurde erfolgreich bereitgestellt.")));

    const QString document = LineValue(run.out, QStringLiteral("document"));
    ASSERT_FALSE(document.isEmpty());
    EXPECT_EQ(
        Query(QStringLiteral("SELECT DOCID, DOCThema, DOCDatum FROM tblDokumente")),
        QStringLiteral("DOCID\tDOCThema\tDOCDatum\n%1\tRückmeldebogen\t2026-03-03 00:00:00\n").arg(document));
    EXPECT_EQ(Query(QStringLiteral("SELECT PATSuchname FROM tblPatienten")),
              QStringLiteral("PATSuchname\nMusterfrau Eva (010180)\n"));
    EXPECT_EQ(Query(QStringLiteral("SELECT TPTZusatzText1, TPTDaMeCode FROM tblTherapeuten")),
              QStringLiteral("TPTZusatzText1\tTPTDaMeCode\nAnna Berger\tME200002\n"));
}

TEST_F(ExportCliTest, ReturnToCallerPrintsOnlyTheDocumentLine) {
    ConfigureOutbox();
    const ProcessRun run = Export({QStringLiteral("--demo"), QStringLiteral("--rc"), QStringLiteral("1")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    ASSERT_EQ(run.out.count('\n'), 1) << run.out.toStdString();
    const QJsonObject answer = QJsonDocument::fromJson(run.out).object();
    EXPECT_EQ(answer.keys(), QStringList{QStringLiteral("document")});
    const QString file = LineValue(run.err, QStringLiteral("outbox"));
    EXPECT_EQ(QByteArray::fromBase64(answer.value(QStringLiteral("document")).toString().toLatin1()),
              ReadFile(file));
    EXPECT_EQ(Query(QStringLiteral("SELECT COUNT(*) FROM tblDokumente")), QStringLiteral("COUNT(*)\n0\n"));
}

TEST_F(ExportCliTest, ReturnToCallerOtherThanOneStoresTheDocument) {
    ConfigureOutbox();
    const ProcessRun run = Export({QStringLiteral("--demo"), QStringLiteral("--rc"), QStringLiteral("0")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_FALSE(run.out.contains("{\"document\""));
    EXPECT_FALSE(LineValue(run.out, QStringLiteral("document")).isEmpty());
    EXPECT_EQ(Query(QStringLiteral("SELECT COUNT(*) FROM tblDokumente")), QStringLiteral("COUNT(*)\n1\n"));
}

TEST_F(ExportCliTest, ResultPathGetsTheFile) {
    ConfigureOutbox();
    const QString target = folder.filePath(QStringLiteral("ergebnis.pdf"));
    const ProcessRun run = Export({QStringLiteral("--demo"), QStringLiteral("--rf"), target,
                                   QStringLiteral("--rc"), QStringLiteral("0")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(ReadFile(target), ReadFile(LineValue(run.out, QStringLiteral("outbox"))));
    EXPECT_EQ(LineValue(run.out, QStringLiteral("document")), QString());
    EXPECT_EQ(Query(QStringLiteral("SELECT COUNT(*) FROM tblDokumente")), QStringLiteral("COUNT(*)\n0\n"));
}

TEST_F(ExportCliTest, MissingOutboxStopsBeforeAnythingIsStored) {
    const ProcessRun run = Export({QStringLiteral("--demo")});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(QString::fromUtf8(run.err).contains(
        QStringLiteral("Es wurde der DaMe Exportpfad nicht oder falsch definiert. Bitte konfigurieren Sie "
                       "das Rückmeldesystem.")))
        << run.err.toStdString();
    EXPECT_EQ(Query(QStringLiteral("SELECT COUNT(*) FROM tblPatienten")), QStringLiteral("COUNT(*)\n0\n"));
    EXPECT_FALSE(QFileInfo::exists(outbox));
}

TEST_F(ExportCliTest, IncompletePageNamesTheFailedFields) {
    ConfigureOutbox();
    const QString content =
        folder.writeFile(QStringLiteral("content.json"),
                         R"({"patient":{"lastname":"Gruber","firstname":"Josef","ssnr":"123415058"},
            "referrer":{"name":"Dr. Martina Steiner","mailbox":"ME100001"},
            "referral":{"diagnosis":"Gonarthrose","therapist":"Thomas Leitner","therapistextension":"Physiotherapeut",
                        "therapistfield":"63","therapistmailbox":"ME200003","start":"2026-02-02"}})");
    const ProcessRun run = Export({QStringLiteral("--content"), content});
    EXPECT_EQ(run.exitCode, 1);
    const QString errors = QString::fromUtf8(run.err);
    EXPECT_TRUE(errors.contains(QStringLiteral("Die Seite \"Patientendaten\" ist nicht vollständig:\n"
                                               "- SVNr (10-stellig): Die SVNr ist syntaktisch falsch.")))
        << run.err.toStdString();
    EXPECT_TRUE(
        errors.contains(QStringLiteral("Die Seite \"Überweiser / Überweisung\" ist nicht vollständig:\n"
                                       "- Behandlung Ende: Der Wert darf nicht leer bleiben.\n")))
        << run.err.toStdString();
    EXPECT_FALSE(errors.contains(QStringLiteral("Nachname")));
    EXPECT_TRUE(OutboxFiles().isEmpty());
    EXPECT_EQ(Query(QStringLiteral("SELECT COUNT(*) FROM tblPatienten")), QStringLiteral("COUNT(*)\n0\n"));
}

TEST_F(ExportCliTest, NeedsContentOrDemo) {
    EXPECT_EQ(Export({}).exitCode, 2);
    EXPECT_EQ(Export({QStringLiteral("--demo"), QStringLiteral("--content"), QStringLiteral("{}")}).exitCode,
              2);
}

TEST_F(ExportCliTest, TemplateThatIsNoDocxFailsBeforeAnythingIsStored) {
    ConfigureOutbox();
    const QString broken = folder.writeFile(QStringLiteral("vorlage.docx"), "kein Word-Dokument");
    const ProcessRun run = Export({QStringLiteral("--demo"), QStringLiteral("--template"), broken});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_FALSE(run.err.isEmpty());
    EXPECT_TRUE(OutboxFiles().isEmpty());
    EXPECT_EQ(Query(QStringLiteral("SELECT COUNT(*) FROM tblPatienten")), QStringLiteral("COUNT(*)\n0\n"));
}
