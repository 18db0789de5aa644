#include "FeedbackDatabaseTest.h"
#include "FixedClock.h"
#include "IDaMeExportMessages.h"
#include "SystemUtils.h"
#include "TDaMeExport.h"
#include "TFeedbackDocument.h"
#include "TestEnvironment.h"
#include "TnvDiagnosticReport.h"
#include "VariantJSON.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace {

struct RecordedMessage {
    QString Kind;
    QString Text;
    QString Details;
};

class RecordingMessages : public IDaMeExportMessages {
public:
    void ShowError(const QString& AText) override { Messages.append({QStringLiteral("error"), AText, {}}); }
    void ShowErrorWithDetails(const QString& AText, const QString& ADetails) override {
        Messages.append({QStringLiteral("error"), AText, ADetails});
    }
    void ShowInformation(const QString& AText) override {
        Messages.append({QStringLiteral("information"), AText, {}});
    }

    QList<RecordedMessage> Messages;
};

const QString Success = QStringLiteral("Das Dokument wurde erfolgreich bereitgestellt.");
const QString NotProvided = QStringLiteral("Es konnte das Dokument nicht bereitgestellt werden.");

QByteArray ReadFile(const QString& APath) {
    QFile file(APath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class DaMeExportTest : public FeedbackDatabaseTest {
protected:
    testsupport::FixedClock clock{"2026-03-03 14:05:00"};
    testsupport::TempDir folder;
    QString outbox;
    TDaMeExportOptions options;
    RecordingMessages messages;
    QByteArray standardOutput;

    void SetUp() override {
        FeedbackDatabaseTest::SetUp();
        outbox = folder.filePath(QStringLiteral("outbox"));
        QDir().mkpath(outbox);
        state.FConfig->SetValueAsString(QStringLiteral("ExportFolder"), outbox);
        state.FCatalogue.CreateQuestions(QString());
    }

    bool Export() {
        TFeedbackDocument letter(state);
        letter.BuildDocument(QString(), QString());
        QBuffer device(&standardOutput);
        device.open(QIODevice::WriteOnly | QIODevice::Append);
        return TDaMeExport::cmdExportClick(state, letter.Document(), Conn(), options, messages, device);
    }

    QStringList OutboxFiles() const { return QDir(outbox).entryList(QDir::Files); }
    QString OutboxFile() const { return QDir(outbox).filePath(OutboxFiles().value(0)); }
};

struct CommandLineCase {
    QStringList Arguments;
    bool ReturnToCaller;
    // nullptr: the option is absent
    const char* ResultCopyPath;
};

class ExportOptionsTest : public testing::TestWithParam<CommandLineCase> {
protected:
    void TearDown() override {
        norvik::FillCmdParams({});
        norvik::InitResultToConsole();
    }
};

} // namespace

TEST_P(ExportOptionsTest, AreReadFromTheCommandLine) {
    const CommandLineCase& c = GetParam();
    norvik::FillCmdParams(QStringList{QStringLiteral("orvenna")} + c.Arguments);
    norvik::InitResultToConsole();
    const TDaMeExportOptions options = TDaMeExportOptions::FromCommandLine();
    EXPECT_EQ(options.ReturnToCaller, c.ReturnToCaller);
    EXPECT_EQ(options.ConsoleAllocated, c.ReturnToCaller);
    ASSERT_EQ(options.ResultCopyPath.has_value(), c.ResultCopyPath != nullptr);
    if (c.ResultCopyPath) {
        EXPECT_EQ(*options.ResultCopyPath, QString::fromUtf8(c.ResultCopyPath));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Options, ExportOptionsTest,
    testing::Values(
        CommandLineCase{{}, false, nullptr}, CommandLineCase{{QStringLiteral("/rc:1")}, true, nullptr},
        CommandLineCase{{QStringLiteral("/RC:1")}, true, nullptr},
        CommandLineCase{{QStringLiteral("/rc:0")}, false, nullptr},
        CommandLineCase{{QStringLiteral("/rc:2")}, false, nullptr},
        CommandLineCase{{QStringLiteral("/rc")}, false, nullptr},
        CommandLineCase{{QStringLiteral("/rf")}, false, ""},
        CommandLineCase{{QStringLiteral("/rf:C:\\praxis\\ergebnis.pdf")}, false, "C:\\praxis\\ergebnis.pdf"},
        CommandLineCase{{QStringLiteral("/rf:/tmp/a.pdf"), QStringLiteral("/rc:1")}, true, "/tmp/a.pdf"}));

TEST_F(DaMeExportTest, WritesTheOutboxFileAndStoresItAsDocument) {
    ASSERT_TRUE(Export());
    ASSERT_EQ(OutboxFiles().size(), 1);
    const QByteArray file = ReadFile(OutboxFile());
    EXPECT_TRUE(file.startsWith("UNA:+.? 'UNB+ANSI:1+ABC+XYZ+260303+1405+1'UNH+0+MEDRPT:1:901:UN'"
                                "BGM+63+++20260303++123415051980+19800515'NAD+PAT++Muster:Eva:Mag?.:"))
        << file.left(200).toStdString();
    const qsizetype lineEnd = file.indexOf("\r\n");
    EXPECT_EQ(file.mid(lineEnd + 2, 5), QByteArray("%PDF-"));

    ASSERT_EQ(Count(QStringLiteral("tblDokumente")), 1);
    const auto row = Row(QStringLiteral("SELECT * FROM tblDokumente"));
    EXPECT_EQ(row->GetAsBytes(QStringLiteral("DOCDokumentPDF")), file);
    EXPECT_EQ(row->GetAsIdentifier(QStringLiteral("PATID")),
              state.FPAT->GetAsIdentifier(QStringLiteral("PATID")));
    EXPECT_NE(row->GetAsIdentifier(QStringLiteral("PATID")), 0);
    EXPECT_NE(row->GetAsIdentifier(QStringLiteral("ADRID")), 0);
    EXPECT_EQ(Count(QStringLiteral("tblTherapeuten")), 1);
    EXPECT_TRUE(standardOutput.isEmpty());
    ASSERT_EQ(messages.Messages.size(), 1);
    EXPECT_EQ(messages.Messages[0].Kind, QStringLiteral("information"));
    EXPECT_EQ(messages.Messages[0].Text, Success);
    EXPECT_EQ(state.FExport->GetAsString(QStringLiteral("ResultFileName")), OutboxFile());
}

TEST_F(DaMeExportTest, ReturnToCallerPrintsTheFileAndStoresNoDocument) {
    options.ReturnToCaller = true;
    options.ConsoleAllocated = true;
    ASSERT_TRUE(Export());
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
    ASSERT_TRUE(standardOutput.endsWith('\n'));
    EXPECT_EQ(standardOutput.count('\n'), 1);
    const norvik::Variant answer = norvik::JSONVariant(QString::fromUtf8(standardOutput));
    ASSERT_TRUE(answer.isJSON());
    EXPECT_EQ(answer.json()->VCount, 1);
    EXPECT_EQ(QByteArray::fromBase64(answer[QStringLiteral("document")].toString().toLatin1()),
              ReadFile(OutboxFile()));
    EXPECT_EQ(messages.Messages.last().Text, Success);
}

TEST_F(DaMeExportTest, ReturnToCallerWithoutConsolePrintsNothing) {
    options.ReturnToCaller = true;
    ASSERT_TRUE(Export());
    EXPECT_EQ(OutboxFiles().size(), 1);
    EXPECT_TRUE(standardOutput.isEmpty());
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
    EXPECT_EQ(messages.Messages.last().Text, Success);
}

TEST_F(DaMeExportTest, ResultPathGetsACopyAndNoDocumentIsStored) {
    const QString target = folder.writeFile(QStringLiteral("ergebnis.pdf"), "alter Inhalt");
    options.ResultCopyPath = target;
    ASSERT_TRUE(Export());
    EXPECT_EQ(ReadFile(target), ReadFile(OutboxFile()));
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
    EXPECT_TRUE(standardOutput.isEmpty());
}

TEST_F(DaMeExportTest, ResultPathAndReturnToCallerCopyAndPrint) {
    const QString target = folder.filePath(QStringLiteral("ergebnis.pdf"));
    options.ResultCopyPath = target;
    options.ReturnToCaller = true;
    options.ConsoleAllocated = true;
    ASSERT_TRUE(Export());
    EXPECT_EQ(ReadFile(target), ReadFile(OutboxFile()));
    EXPECT_TRUE(standardOutput.startsWith("{\"document\":\""));
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
}

TEST_F(DaMeExportTest, NineDigitNumberFailsWithTheBirthDateLine) {
    state.edtPATSVNr = QStringLiteral("123415058");
    EXPECT_FALSE(Export());
    ASSERT_EQ(messages.Messages.size(), 1);
    EXPECT_EQ(messages.Messages[0].Kind, QStringLiteral("error"));
    EXPECT_EQ(messages.Messages[0].Text, NotProvided);
    EXPECT_TRUE(messages.Messages[0].Details.contains(
        QStringLiteral("- Geburtsdatum wurde beim Patienten nicht angegeben.")))
        << messages.Messages[0].Details.toStdString();
    EXPECT_TRUE(OutboxFiles().isEmpty());
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
    // stored before the export was tried, and kept
    EXPECT_EQ(Count(QStringLiteral("tblPatienten")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblAdressen")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblTherapeuten")), 1);
}

TEST_F(DaMeExportTest, VanishedOutboxFailsAndWritesNothing) {
    QDir(outbox).removeRecursively();
    EXPECT_FALSE(Export());
    ASSERT_EQ(messages.Messages.size(), 1);
    EXPECT_EQ(messages.Messages[0].Text, NotProvided);
    EXPECT_TRUE(messages.Messages[0].Details.startsWith(QStringLiteral("- Verzeichnis \"")))
        << messages.Messages[0].Details.toStdString();
    EXPECT_FALSE(QFileInfo::exists(outbox));
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
}

TEST_F(DaMeExportTest, MissingMailboxesAreAllListed) {
    state.edtDOCMailbox.clear();
    state.edtTHPTherapistMailbox.clear();
    state.edtTHPTherapistField.clear();
    EXPECT_FALSE(Export());
    ASSERT_EQ(messages.Messages.size(), 1);
    EXPECT_EQ(messages.Messages[0].Details,
              QStringLiteral("- Arzt konnte nicht gefunden werden.\r\n"
                             "- beim Therapeuten wurde kein Übermittlungscode eingegeben.\r\n"
                             "- beim Therapeuten wurde kein Fachgebiet eingegeben."));
}

TEST_F(DaMeExportTest, SecondPressAfterAFailureUpdatesTheStoredRows) {
    state.edtDOCMailbox.clear();
    ASSERT_FALSE(Export());
    const qint64 patient = state.FPAT->GetAsIdentifier(QStringLiteral("PATID"));
    const qint64 address = state.FADR->GetAsIdentifier(QStringLiteral("ADRID"));
    EXPECT_EQ(state.FADR->GetAsString(QStringLiteral("ADRDaMeCode")), QString());
    state.edtDOCMailbox = QStringLiteral("XYZ");
    state.edtPATStreet = QStringLiteral("Hauptstraße 3");
    ASSERT_TRUE(Export());
    EXPECT_EQ(Count(QStringLiteral("tblPatienten")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblAdressen")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblTherapeuten")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 1);
    EXPECT_EQ(state.FPAT->GetAsIdentifier(QStringLiteral("PATID")), patient);
    EXPECT_EQ(state.FADR->GetAsIdentifier(QStringLiteral("ADRID")), address);
    EXPECT_EQ(state.FADR->GetAsString(QStringLiteral("ADRDaMeCode")), QStringLiteral("XYZ"));
    EXPECT_EQ(state.FPAT->GetAsString(QStringLiteral("PATPrivStrasse")), QStringLiteral("Hauptstraße 3"));
}

TEST_F(DaMeExportTest, TwoExportsGiveTwoFilesAndTwoDocuments) {
    ASSERT_TRUE(Export());
    ASSERT_TRUE(Export());
    EXPECT_EQ(OutboxFiles().size(), 2);
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 2);
    EXPECT_EQ(Count(QStringLiteral("tblPatienten")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblAdressen")), 1);
}

TEST(DaMeExportAnswerTest, IsOneJsonLineWithTheBase64OfTheBytes) {
    EXPECT_EQ(TDaMeExport::DocumentAnswer(QByteArray("\xfb\xff\x00\r\n", 5)),
              QByteArray("{\"document\":\"+/8ADQo=\"}\n"));
    EXPECT_EQ(TDaMeExport::DocumentAnswer(QByteArray()), QByteArray("{\"document\":\"\"}\n"));
}
