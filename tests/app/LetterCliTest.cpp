#include "CliProcess.h"
#include "TestEnvironment.h"

#include <QFile>
#include <QProcess>
#include <gtest/gtest.h>

namespace {

const QString Cli = QStringLiteral(ORVENNA_CLI_PATH);

QByteArray ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString PdfText(const QString& path) {
    QProcess process;
    process.start(QStringLiteral("pdftotext"), {path, QStringLiteral("-")});
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAllStandardOutput()).simplified();
}

const QByteArray Content = R"({"patient":{"lastname":"Gruber","firstname":"Josef","gender":"male"},
    "referrer":{"name":"Dr. Martina Steiner","street":"Annenstraße 12","zipcity":"A-8020 Graz"},
    "referral":{"diagnosis":"Gonarthrose","therapist":"Thomas Leitner","therapistextension":"Physiotherapeut",
                "start":"2026-09-01","end":"2026-10-20"},
    "presets":{"q02":"01"}})";

} // namespace

TEST(LetterCli, TemplateWritesTheBuiltInDocx) {
    testsupport::TempDir folder;
    const QString target = folder.filePath(QStringLiteral("vorlage.docx"));
    const ProcessRun run = runProgram(Cli, {QStringLiteral("template"), QStringLiteral("--out"), target});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QByteArray docx = ReadFile(target);
    EXPECT_TRUE(docx.startsWith("PK\x03\x04"));
    EXPECT_TRUE(docx.contains("word/document.xml"));
}

TEST(LetterCli, TemplateWithoutTargetIsAUsageError) {
    EXPECT_EQ(runProgram(Cli, {QStringLiteral("template")}).exitCode, 2);
}

TEST(LetterCli, PdfFromOutboxKeepsTheBytesFromPdfOn) {
    testsupport::TempDir folder;
    const QByteArray pdf = "%PDF-1.4\n\x80\x81 binary\r\n%%EOF\n";
    const QString outbox = folder.writeFile(QStringLiteral("outbox.pdf"), "UNH+1+MEDRPT:D:96A:UN'\r\n" + pdf);
    const QString target = folder.filePath(QStringLiteral("brief.pdf"));
    const ProcessRun run =
        runProgram(Cli, {QStringLiteral("pdf-from-outbox"), outbox, QStringLiteral("--out"), target});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(ReadFile(target), pdf);
}

TEST(LetterCli, PdfFromOutboxWithoutPdfFails) {
    testsupport::TempDir folder;
    const QString outbox = folder.writeFile(QStringLiteral("outbox.pdf"), "UNH+1+MEDRPT:D:96A:UN'\r\n");
    const QString target = folder.filePath(QStringLiteral("brief.pdf"));
    const ProcessRun run =
        runProgram(Cli, {QStringLiteral("pdf-from-outbox"), outbox, QStringLiteral("--out"), target});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_FALSE(run.err.isEmpty());
    EXPECT_FALSE(QFile::exists(target));
}

TEST(LetterCli, LetterIsWrittenFromContentAndBuiltInCatalogue) {
    testsupport::TempDir folder;
    const QString content = folder.writeFile(QStringLiteral("content.json"), Content);
    const QString target = folder.filePath(QStringLiteral("brief.pdf"));
    const ProcessRun run =
        runProgram(Cli,
                   {QStringLiteral("letter"), QStringLiteral("--content"), content,
                    QStringLiteral("--questions"), QString(), QStringLiteral("--memo"),
                    QStringLiteral("Bitte um Folgeverordnung."), QStringLiteral("--pdf"), target},
                   {}, folder.path());
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QString text = PdfText(target);
    for (const char* expected :
         {"Dr. Martina Steiner", "Danke für die Überweisung Ihres Patienten Josef Gruber.",
          "Behandlungszeitraum: 01.09.2026 bis 20.10.2026.", "sehr gut", "Bitte um Folgeverordnung.",
          "Mit freundlichen Grüßen Thomas Leitner"})
        EXPECT_TRUE(text.contains(QString::fromUtf8(expected))) << expected << " in " << text.toStdString();
}

TEST(LetterCli, LetterAsDocxReadsAsTheSameLetterWhenUsedAsTemplate) {
    testsupport::TempDir folder;
    const QString content = folder.writeFile(QStringLiteral("content.json"), Content);
    const QString docx = folder.filePath(QStringLiteral("brief.docx"));
    const QString pdf = folder.filePath(QStringLiteral("brief.pdf"));
    const ProcessRun written = runProgram(Cli,
                                          {QStringLiteral("letter"), QStringLiteral("--content"), content,
                                           QStringLiteral("--questions"), QString(), QStringLiteral("--pdf"),
                                           pdf, QStringLiteral("--docx"), docx},
                                          {}, folder.path());
    ASSERT_EQ(written.exitCode, 0) << written.err.toStdString();
    const QByteArray bytes = ReadFile(docx);
    EXPECT_TRUE(bytes.startsWith("PK\x03\x04"));
    EXPECT_TRUE(bytes.contains("word/document.xml"));
    EXPECT_TRUE(bytes.contains("word/media/image1.png"));

    // the exported letter has no placeholders left, so as a template it gives the letter again
    const QString again = folder.filePath(QStringLiteral("nochmals.pdf"));
    const ProcessRun reread = runProgram(Cli,
                                         {QStringLiteral("letter"), QStringLiteral("--content"), content,
                                          QStringLiteral("--questions"), QString(),
                                          QStringLiteral("--template"), docx, QStringLiteral("--pdf"), again},
                                         {}, folder.path());
    ASSERT_EQ(reread.exitCode, 0) << reread.err.toStdString();
    EXPECT_EQ(PdfText(again), PdfText(pdf));
    EXPECT_TRUE(PdfText(again).contains(QStringLiteral("Josef Gruber")));
}

TEST(LetterCli, LetterWithoutAnyTargetIsAUsageError) {
    testsupport::TempDir folder;
    const QString content = folder.writeFile(QStringLiteral("content.json"), Content);
    EXPECT_EQ(runProgram(Cli, {QStringLiteral("letter"), QStringLiteral("--content"), content}).exitCode, 2);
}

TEST(LetterCli, DemoWritesTheLetterAndTheOutboxFileForTheSamePatient) {
    testsupport::TempDir folder;
    const ProcessRun run = runProgram(Cli, {QStringLiteral("--now"), QStringLiteral("2026-03-02 09:15:00"),
                                            QStringLiteral("demo"), QStringLiteral("--out"), folder.path()});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.outText().split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 2);
    ASSERT_TRUE(lines.at(0).startsWith(QStringLiteral("letter=")));
    ASSERT_TRUE(lines.at(1).startsWith(QStringLiteral("outbox=")));
    const QString letter = lines.at(0).mid(7);
    const QString outboxFile = lines.at(1).mid(7);

    EXPECT_TRUE(PdfText(letter).contains(QStringLiteral("Musterfrau")));
    EXPECT_TRUE(outboxFile.startsWith(folder.filePath(QStringLiteral("outbox/{"))));
    EXPECT_TRUE(outboxFile.endsWith(QStringLiteral("}.pdf")));

    // the outbox file is the message line, CR LF, and then exactly the letter's bytes
    const QByteArray outbox = ReadFile(outboxFile);
    const qsizetype lineEnd = outbox.indexOf("\r\n");
    ASSERT_GT(lineEnd, 0);
    const QByteArray message = outbox.left(lineEnd);
    EXPECT_TRUE(message.startsWith("UNA:+.? 'UNB+"));
    EXPECT_TRUE(message.contains("NAD+PAT++Musterfrau:Eva"));
    EXPECT_EQ(outbox.mid(lineEnd + 2), ReadFile(letter));
}

TEST(LetterCli, DemoWithoutTargetIsAUsageError) {
    const ProcessRun run = runProgram(Cli, {QStringLiteral("demo")});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_FALSE(run.err.isEmpty());
}
