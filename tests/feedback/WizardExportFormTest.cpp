#include "InvDBConnection.h"
#include "TMainForm.h"
#include "TPrintLayoutView.h"
#include "WizardFormFixture.h"

#include <QDir>
#include <QFile>
#include <QPdfDocument>
#include <QPdfSelection>
#include <QTest>
#include <QToolButton>

namespace {

const QString Success = QStringLiteral("Das Dokument wurde erfolgreich bereitgestellt.");

// the message line of the typed feedback on 3 March 2026 at 14:05, in Windows-1252
const QByteArray TypedFeedbackLine = "UNA:+.? 'UNB+ANSI:1+ABC+XYZ+260303+1405+1'UNH+0+MEDRPT:1:901:UN'"
                                     "BGM+63+++20260303++123815051980+19800515'"
                                     "NAD+PAT++Muster:Eva:Mag?.:Hauptstra\xDF"
                                     "e 1+++Wien++1010\r\n";

const QString DirectStartContent = QStringLiteral(
    R"({"patient":{"lastname":"Muster","firstname":"Eva","street":"Hauptstraße 1","zipcity":"A-1010 Wien",)"
    R"("gender":"female","title":"Mag.","assurance":"ÖGK","ssnr":"1238150580"},)"
    R"("referrer":{"mailbox":"XYZ","name":"Dr. Martina Steiner","street":"Annenstraße 12","zipcity":"8020 Graz"},)"
    R"("referral":{"diagnosis":"Gonarthrose","therapist":"Anna Berger","therapistextension":"Physiotherapeutin",)"
    R"("therapistfield":"63","therapistmailbox":"ABC","start":"2026-02-02","end":"2026-02-27"},)"
    R"("presets":{"q02":"01"}})");

class WizardExportFormTest : public WizardFormFixture {
protected:
    void SetUp() override {
        WizardFormFixture::SetUp();
        AddTherapist(QStringLiteral("Anna Berger"), QStringLiteral("Physiotherapeutin"), QStringLiteral("63"),
                     QStringLiteral("ABC"));
    }

    QString OutboxFile() const { return QDir(Outbox.path()).filePath(OutboxFiles().value(0)); }

    // the PDF behind the message line, as a reader opens it
    QString PdfText(const QByteArray& AFile) {
        const QByteArray pdf = AFile.mid(AFile.indexOf("\r\n") + 2);
        const QString path = Outbox.filePath(QStringLiteral("letter-probe.bin"));
        QFile probe(path);
        EXPECT_TRUE(probe.open(QIODevice::WriteOnly));
        probe.write(pdf);
        probe.close();
        QPdfDocument document;
        EXPECT_EQ(document.load(path), QPdfDocument::Error::None);
        EXPECT_EQ(document.pageCount(), 1);
        const QString text = document.pageCount() > 0 ? document.getAllText(0).text() : QString();
        QFile::remove(path);
        return text;
    }
};

TEST_F(WizardExportFormTest, AFeedbackTypedByHandIsStoredAndSent) {
    Open();
    TypeCompleteFeedback();
    ASSERT_EQ(Form->ActivePageIndex(), TFeedbackWizardForm::PublishPage);
    const QString letter = Form->Letter().Document().body().plainText();
    EXPECT_TRUE(letter.contains(
        QStringLiteral("Danke für die Überweisung Ihrer Patientin  Eva Muster (1238150580).")))
        << letter.toStdString();
    EXPECT_TRUE(letter.contains(QStringLiteral("Behandlungszeitraum: 02.02.2026 bis 27.02.2026.")));
    EXPECT_TRUE(letter.contains(QStringLiteral("\tBeschwerdesymptomatik: \tbesser")));
    EXPECT_TRUE(letter.contains(QStringLiteral("Heimübungen fortsetzen.")));

    Click(QStringLiteral("cmdExport"));
    ProcessDeletes();

    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Dialogs.Texts(QStringLiteral("information")), QStringList{Success});
    EXPECT_TRUE(Dialogs.Texts(QStringLiteral("error")).isEmpty());
    ASSERT_EQ(OutboxFiles().size(), 1);
    const QByteArray file = ReadFile(OutboxFile());
    EXPECT_EQ(file.left(file.indexOf("\r\n") + 2), TypedFeedbackLine);
    const QString pdfText = PdfText(file);
    EXPECT_TRUE(pdfText.contains(QStringLiteral("Physiotherapeutischer Bericht"))) << pdfText.toStdString();
    EXPECT_TRUE(pdfText.contains(QStringLiteral("Dr. Martina Steiner")));

    ASSERT_EQ(Count(QStringLiteral("tblTherapeuten")), 1);
    const auto therapist = Row(QStringLiteral("SELECT * FROM tblTherapeuten"));
    EXPECT_EQ(therapist->GetAsString(QStringLiteral("TPTZusatzText1")), QStringLiteral("Anna Berger"));
    EXPECT_EQ(therapist->GetAsString(QStringLiteral("TPTDaMeCode")), QStringLiteral("ABC"));

    ASSERT_EQ(Count(QStringLiteral("tblPatienten")), 1);
    const auto patient = Row(QStringLiteral("SELECT * FROM tblPatienten"));
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATSuchname")), QStringLiteral("Muster Eva (150580)"));
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATPrivStrasse")), QStringLiteral("Hauptstraße 1"));
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATPrivLand")), QStringLiteral("A"));
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATPrivPLZ")), QStringLiteral("1010"));
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATPrivOrtsname")), QStringLiteral("Wien"));
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATSVNR")), ValidSVNr);
    EXPECT_EQ(patient->GetAsInteger(QStringLiteral("PATGeschlecht")), 3);
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATTitel")), QStringLiteral("Mag."));
    EXPECT_EQ(patient->GetAsString(QStringLiteral("PATVersicherung")), QStringLiteral("ÖGK"));

    ASSERT_EQ(Count(QStringLiteral("tblAdressen")), 1);
    const auto address = Row(QStringLiteral("SELECT * FROM tblAdressen"));
    EXPECT_EQ(address->GetAsString(QStringLiteral("ADRSuchname")), QStringLiteral("Dr. Martina Steiner"));
    EXPECT_EQ(address->GetAsString(QStringLiteral("ADRStrasse")), QStringLiteral("Annenstraße 12"));
    EXPECT_EQ(address->GetAsString(QStringLiteral("ADRPLZ")), QStringLiteral("8020"));
    EXPECT_EQ(address->GetAsString(QStringLiteral("ADROrtsname")), QStringLiteral("Graz"));
    EXPECT_EQ(address->GetAsString(QStringLiteral("ADRDaMeCode")), QStringLiteral("XYZ"));

    ASSERT_EQ(Count(QStringLiteral("tblDokumente")), 1);
    const auto document = Row(QStringLiteral("SELECT * FROM tblDokumente"));
    EXPECT_EQ(document->GetAsString(QStringLiteral("DOCThema")), QStringLiteral("Rückmeldebogen"));
    EXPECT_EQ(document->GetAsString(QStringLiteral("DOCDiagName")), QStringLiteral("Gonarthrose"));
    EXPECT_EQ(document->GetAsBytes(QStringLiteral("DOCDokumentPDF")), file);
    EXPECT_EQ(document->GetAsIdentifier(QStringLiteral("PATID")),
              patient->GetAsIdentifier(QStringLiteral("PATID")));
    EXPECT_EQ(document->GetAsIdentifier(QStringLiteral("ADRID")),
              address->GetAsIdentifier(QStringLiteral("ADRID")));
}

TEST_F(WizardExportFormTest, ADirectStartHandsTheDocumentBackAndEndsTheProgram) {
    testsupport::TempDir caller;
    const QString content = caller.writeFile(QStringLiteral("content.json"), DirectStartContent.toUtf8());
    const QString copy = caller.filePath(QStringLiteral("result.pdf"));
    StartWith({QStringLiteral("/v:") + content, QStringLiteral("/rc:1"), QStringLiteral("/rf:") + copy});
    QPointer<TMainForm> mainForm = new TMainForm(*Data);
    Show(*mainForm);
    Form = TFeedbackWizardForm::Instance();
    ASSERT_FALSE(Form.isNull());
    ASSERT_EQ(mainForm->Pages(), QList<QWidget*>{Form.data()});
    EXPECT_EQ(Edit(QStringLiteral("edtPATLastname")).text(), QStringLiteral("Muster"));
    EXPECT_EQ(Child<QComboBox>(QStringLiteral("edtPATGender")).currentText(), QStringLiteral("Weiblich"));

    Next();
    Next();
    Next();
    ASSERT_EQ(Form->ActivePageIndex(), TFeedbackWizardForm::PublishPage);
    StandardOutputCapture output;
    Click(QStringLiteral("cmdFinish"));
    const QByteArray printed = output.Take();
    ProcessDeletes();

    EXPECT_TRUE(Form.isNull());
    EXPECT_TRUE(mainForm.isNull()) << "closing the only page ends the program";
    delete mainForm.data();
    ASSERT_EQ(OutboxFiles().size(), 1);
    const QByteArray file = ReadFile(OutboxFile());
    EXPECT_EQ(ReadFile(copy), file);
    ASSERT_TRUE(printed.startsWith("{\"document\":\"") && printed.endsWith("\"}\n"))
        << printed.left(80).toStdString();
    EXPECT_EQ(QByteArray::fromBase64(printed.mid(13, printed.size() - 16)), file);
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
    EXPECT_EQ(Count(QStringLiteral("tblPatienten")), 1);
    EXPECT_EQ(Dialogs.Texts(QStringLiteral("information")), QStringList{Success});
}

TEST_F(WizardExportFormTest, ASecondExportOfThePatientUpdatesThePatient) {
    Open();
    TypeCompleteFeedback();
    Click(QStringLiteral("cmdExport"));
    ProcessDeletes();
    ASSERT_TRUE(Form.isNull());

    Open();
    TypePatient();
    Edit(QStringLiteral("edtPATStreet")).clear();
    Type(QStringLiteral("edtPATStreet"), QStringLiteral("Ringstraße 5"));
    Next();
    TypeReferral();
    Next();
    Next();
    Click(QStringLiteral("cmdExport"));
    ProcessDeletes();

    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Count(QStringLiteral("tblPatienten")), 1);
    EXPECT_EQ(
        Row(QStringLiteral("SELECT * FROM tblPatienten"))->GetAsString(QStringLiteral("PATPrivStrasse")),
        QStringLiteral("Ringstraße 5"));
    EXPECT_EQ(Count(QStringLiteral("tblAdressen")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblTherapeuten")), 1);
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 2);
    EXPECT_EQ(OutboxFiles().size(), 2);
}

TEST_F(WizardExportFormTest, AnOutboxThatVanishedIsReportedAndNothingIsWritten) {
    Open();
    TypeCompleteFeedback();
    ASSERT_TRUE(QDir(Outbox.path()).removeRecursively());

    Click(QStringLiteral("cmdExport"));
    ProcessDeletes();

    ASSERT_FALSE(Form.isNull()) << "the wizard stays open";
    EXPECT_TRUE(Form->isVisible());
    ASSERT_EQ(Dialogs.Messages().size(), 1);
    EXPECT_EQ(Dialogs.Messages()[0].Kind, QStringLiteral("error"));
    EXPECT_EQ(Dialogs.Messages()[0].Text,
              QStringLiteral("Es konnte das Dokument nicht bereitgestellt werden."));
    EXPECT_TRUE(Dialogs.Messages()[0].Details.startsWith(QStringLiteral("- Verzeichnis \"")));
    EXPECT_FALSE(QDir(Outbox.path()).exists());
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 0);
    // the patient and the physician were stored before the export was tried
    EXPECT_EQ(Count(QStringLiteral("tblPatienten")), 1);
}

TEST_F(WizardExportFormTest, CancelStoresNothing) {
    Open();
    TypeCompleteFeedback();
    Click(QStringLiteral("cmdCancel"));
    ProcessDeletes();

    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(TFeedbackWizardForm::Instance(), nullptr);
    for (const QString& table :
         {QStringLiteral("tblPatienten"), QStringLiteral("tblAdressen"), QStringLiteral("tblDokumente")})
        EXPECT_EQ(Count(table), 0) << table.toStdString();
    EXPECT_EQ(Count(QStringLiteral("tblTherapeuten")), 1);
    EXPECT_TRUE(OutboxFiles().isEmpty());
    EXPECT_TRUE(Dialogs.Messages().isEmpty());
}

TEST_F(WizardExportFormTest, EscapeCancelsLikeTheCancelButton) {
    Open();
    TypePatient();
    QTest::keyClick(&Edit(QStringLiteral("edtPATLastname")), Qt::Key_Escape);
    ProcessDeletes();

    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Count(QStringLiteral("tblPatienten")), 0);
}

TEST_F(WizardExportFormTest, TheMainPartOfZoomSendsLikeExport) {
    Open();
    TypeCompleteFeedback();
    auto& zoom = Child<QToolButton>(QStringLiteral("cmdZoom"));
    EXPECT_EQ(zoom.popupMode(), QToolButton::MenuButtonPopup);
    zoom.click();
    ProcessDeletes();

    EXPECT_TRUE(Form.isNull());
    EXPECT_EQ(Count(QStringLiteral("tblDokumente")), 1);
}

TEST_F(WizardExportFormTest, PrintingAndSavingAPdfRecordNothing) {
    Open();
    TypeCompleteFeedback();
    Click(QStringLiteral("cmdPrint"));
    EXPECT_EQ(Dialogs.ExecCount(), 1);

    testsupport::TempDir saved;
    const QString first = saved.filePath(QStringLiteral("brief.pdf"));
    Dialogs.AnswerFile(first);
    Click(QStringLiteral("cmdExportPDF"));
    Dialogs.AnswerFile(QString());
    Click(QStringLiteral("cmdExportPDF"));

    ASSERT_EQ(Dialogs.FileRequests().size(), 2);
    const norvik::TFileDialogRequest& request = Dialogs.FileRequests()[0];
    EXPECT_EQ(request.DefaultSuffix, QStringLiteral("pdf"));
    EXPECT_TRUE(request.Filters.value(0).contains(QStringLiteral("*.pdf")));
    EXPECT_FALSE(request.MustExist);
    EXPECT_EQ(Dialogs.FileRequests()[1].Directory, saved.path())
        << "the dialog opens where the last PDF went";
    EXPECT_TRUE(ReadFile(first).startsWith("%PDF-"));
    EXPECT_FALSE(Form.isNull());
    for (const QString& table :
         {QStringLiteral("tblPatienten"), QStringLiteral("tblAdressen"), QStringLiteral("tblDokumente")})
        EXPECT_EQ(Count(table), 0) << table.toStdString();
    EXPECT_TRUE(OutboxFiles().isEmpty());
}

TEST_F(WizardExportFormTest, ClosingTheWizardOverTheWelcomePageRefreshesItsList) {
    int refreshes = 0;
    const TMainFormHooks saved = TMainForm::Hooks();
    TMainForm::Hooks().RefreshWelcomePage = [&refreshes](QWidget*) { ++refreshes; };
    QPointer<TMainForm> mainForm = new TMainForm(*Data);
    Show(*mainForm);
    const int atStart = refreshes;
    Form = qobject_cast<TFeedbackWizardForm*>(mainForm->OpenWizard());
    ASSERT_FALSE(Form.isNull());
    EXPECT_EQ(mainForm->Pages().size(), 2);

    Click(QStringLiteral("cmdCancel"));
    ProcessDeletes();
    EXPECT_EQ(mainForm->Pages().size(), 1);
    EXPECT_TRUE(mainForm->RefreshTimer().isActive());
    EXPECT_TRUE(WaitFor([&refreshes, atStart] { return refreshes == atStart + 1; }));
    delete mainForm.data();
    TMainForm::Hooks() = saved;
}

} // namespace
