#include "WizardFormFixture.h"

#include "InsertUpdateRoutines.h"
#include "InvDBConnection.h"
#include "SystemUtils.h"
#include "TnvDBConfig.h"
#include "TnvRecordReader.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTest>
#include <cstdio>
#include <unistd.h>

using namespace norvik;

void WizardFormFixture::SetUp() {
    StartWith({});
    QDir(TmodData::DataFolder()).removeRecursively();
    Data = std::make_unique<TmodData>();
    ASSERT_NE(Data->GetConnection(), nullptr);
    SetExportFolder(Outbox.path());
}

void WizardFormFixture::TearDown() {
    delete Form.data();
    ProcessDeletes();
    Data.reset();
    QDir(TmodData::DataFolder()).removeRecursively();
    StartWith({});
}

void WizardFormFixture::StartWith(QStringList AArguments) {
    AArguments.prepend(QStringLiteral("orvenna"));
    FillCmdParams(AArguments);
    InitResultToConsole();
}

void WizardFormFixture::SetExportFolder(const QString& AFolder) {
    auto values = TnvNamedValues::Create();
    values->SetValueAsString(QStringLiteral("ExportFolder"), AFolder);
    TnvDBConfig::SaveConfig(Conn(), QStringLiteral("DAME"), QStringLiteral("SYSTEM"), *values);
}

TFeedbackWizardForm& WizardFormFixture::Open(const QString& AQuestions, const QString& AContent) {
    Form = TFeedbackWizardForm::OpenWizard([this] { return Data->GetConnection(); }, AQuestions, AContent);
    Show(*Form);
    return *Form;
}

void WizardFormFixture::Show(QWidget& AWindow) {
    AWindow.resize(1000, 660);
    AWindow.show();
    QApplication::setActiveWindow(&AWindow);
    EXPECT_TRUE(QTest::qWaitForWindowActive(&AWindow));
}

qint64 WizardFormFixture::Count(const QString& ATableName) {
    return Conn()
        .PSQueryValue(QStringLiteral("SELECT COUNT(*) FROM %1").arg(ATableName), Variant(0))
        .toInt64();
}

InvNamedValuesPtr WizardFormFixture::Row(const QString& ASQL) {
    return TnvRecordReader::ReadRecord(Conn(), ASQL);
}

qint64 WizardFormFixture::AddTherapist(const QString& AName, const QString& AJobTitle, const QString& AField,
                                       const QString& AMailbox) {
    return InsertRecord(Conn(), QStringLiteral("tblTherapeuten"),
                        {QStringLiteral("TPTZusatzText1"), QStringLiteral("TPTZusatzText2"),
                         QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("TPTDaMeCode")},
                        {Variant(AName), Variant(AJobTitle), Variant(AField), Variant(AMailbox)});
}

void WizardFormFixture::Click(const QString& AName) {
    QTest::mouseClick(&Child<QAbstractButton>(AName), Qt::LeftButton);
}

void WizardFormFixture::Type(const QString& AName, const QString& AText) {
    TypeInto(Child<QWidget>(AName), AText);
}

void WizardFormFixture::TypeInto(QWidget& AControl, const QString& AText) {
    // a combo box is typed into through its edit
    auto* box = qobject_cast<QComboBox*>(&AControl);
    QWidget* target = box ? box->lineEdit() : &AControl;
    QTest::mouseClick(target, Qt::LeftButton);
    target->setFocus();
    // the test keyboard knows ASCII keys only; other letters come as the text of a key
    QString ascii;
    for (const QChar letter : AText) {
        if (letter.unicode() < 0x80) {
            ascii += letter;
            continue;
        }
        QTest::keyClicks(target, ascii);
        ascii.clear();
        QTest::sendKeyEvent(QTest::Click, target, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
    QTest::keyClicks(target, ascii);
}

void WizardFormFixture::ProcessDeletes() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool WizardFormFixture::WaitFor(const std::function<bool()>& ACondition, int AMilliseconds) {
    QElapsedTimer timer;
    timer.start();
    while (!ACondition()) {
        if (timer.elapsed() > AMilliseconds)
            return false;
        QTest::qWait(10);
    }
    return true;
}

void WizardFormFixture::TypePatient(const QString& ASVNr) {
    Type(QStringLiteral("edtPATTitle1"), QStringLiteral("Mag."));
    Type(QStringLiteral("edtPATFirstname"), QStringLiteral("Eva"));
    Type(QStringLiteral("edtPATLastname"), QStringLiteral("Muster"));
    Type(QStringLiteral("edtPATGender"), QStringLiteral("Weiblich"));
    Type(QStringLiteral("edtPATStreet"), QStringLiteral("Hauptstraße 1"));
    Type(QStringLiteral("edtPATZIPCity"), QStringLiteral("A-1010 Wien"));
    Type(QStringLiteral("edtPATSVNr"), ASVNr);
    Type(QStringLiteral("edtPATAssurance"), QStringLiteral("ÖGK"));
}

void WizardFormFixture::TypeReferral() {
    Type(QStringLiteral("edtDOCName"), QStringLiteral("Dr. Martina Steiner"));
    Type(QStringLiteral("edtDOCStreet"), QStringLiteral("Annenstraße 12"));
    Type(QStringLiteral("edtDOCZIPCity"), QStringLiteral("8020 Graz"));
    Type(QStringLiteral("edtDOCMailbox"), QStringLiteral("XYZ"));
    Type(QStringLiteral("edtTHPDiagnosis"), QStringLiteral("Gonarthrose"));
    Type(QStringLiteral("edtTHPStart"), QStringLiteral("02.02.2026"));
    Type(QStringLiteral("edtTHPEnd"), QStringLiteral("27.02.2026"));
    // without a stored therapist the user types one
    if (Edit(QStringLiteral("edtTHPTherapist")).text().isEmpty()) {
        Type(QStringLiteral("edtTHPTherapist"), QStringLiteral("Anna Berger"));
        Type(QStringLiteral("edtTHPTherapistExtension"), QStringLiteral("Physiotherapeutin"));
        Type(QStringLiteral("edtTHPTherapistField"), QStringLiteral("63"));
        Type(QStringLiteral("edtTHPTherapistMailbox"), QStringLiteral("ABC"));
    }
}

void WizardFormFixture::TypeAnswers() {
    TypeInto(*Form->FirstQuestionField(), QStringLiteral("besser"));
    Type(QStringLiteral("memContent"), QStringLiteral("Heimübungen fortsetzen."));
}

void WizardFormFixture::TypeCompleteFeedback() {
    TypePatient();
    Next();
    TypeReferral();
    Next();
    TypeAnswers();
    Next();
}

QStringList WizardFormFixture::OutboxFiles() const {
    return QDir(Outbox.path()).entryList(QDir::Files);
}

QByteArray WizardFormFixture::ReadFile(const QString& APath) {
    QFile file(APath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

StandardOutputCapture::StandardOutputCapture() {
    FFile.open();
    std::fflush(stdout);
    FSaved = dup(STDOUT_FILENO);
    dup2(FFile.handle(), STDOUT_FILENO);
}

StandardOutputCapture::~StandardOutputCapture() {
    Take();
}

QByteArray StandardOutputCapture::Take() {
    if (FSaved < 0)
        return {};
    std::fflush(stdout);
    dup2(FSaved, STDOUT_FILENO);
    close(FSaved);
    FSaved = -1;
    QFile written(FFile.fileName());
    return written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
}

void PrintTo(const QString& AText, std::ostream* AOut) {
    *AOut << '"' << AText.toStdString() << '"';
}
