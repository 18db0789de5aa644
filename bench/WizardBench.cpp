#include "AppUtils.h"
#include "BuiltInResources.h"
#include "InsertUpdateRoutines.h"
#include "InvDBConnection.h"
#include "NamedMessages.h"
#include "SystemUtils.h"
#include "TFeedbackWizardForm.h"
#include "TMainForm.h"
#include "TPrintLayoutView.h"
#include "TmodData.h"
#include "TnvDBConfig.h"
#include "TnvDialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <memory>

// The two waits a therapist feels in the wizard, with the built-in template: from "Weiter" on
// the catalogue page to the letter drawn on the last page, and from "Dokument in dieser Form
// versenden" to the closed wizard. Each repetition is a new wizard with the demonstration
// content; the database, the outbox and all program folders lie in a temporary folder.
//
// With --shots=<folder> the program first saves the four pages of the main window, filled
// with the demonstration content, as wizard-page0.png to wizard-page3.png.
namespace {

using namespace norvik;

QTemporaryDir& Sandbox() {
    static QTemporaryDir dir;
    return dir;
}

// every program folder in the sandbox, before anything reads one
void RedirectProgramFolders() {
    const QDir root(Sandbox().path());
    for (const char* sub : {"common", "logs", "config", "outbox"})
        root.mkpath(QString::fromLatin1(sub));
    qputenv("ORVENNA_COMMON_APPDATA", root.filePath(QStringLiteral("common")).toUtf8());
    qputenv("ORVENNA_LOG_DIR", root.filePath(QStringLiteral("logs")).toUtf8());
    qputenv("XDG_CONFIG_HOME", root.filePath(QStringLiteral("config")).toUtf8());
}

// the demonstration practice: one therapist and the outbox set
void PrepareDatabase(TmodData& AData) {
    InvDBConnection& conn = *AData.GetConnection();
    InsertRecord(conn, QStringLiteral("tblTherapeuten"),
                 {QStringLiteral("TPTZusatzText1"), QStringLiteral("TPTZusatzText2"),
                  QStringLiteral("TPTDaMeFachgebiet"), QStringLiteral("TPTDaMeCode")},
                 {Variant(QStringLiteral("Anna Berger")), Variant(QStringLiteral("Physiotherapeutin")),
                  Variant(QStringLiteral("PHY")), Variant(QStringLiteral("ME200002"))});
    auto values = TnvNamedValues::Create();
    values->SetValueAsString(QStringLiteral("ExportFolder"),
                             QDir(Sandbox().path()).filePath(QStringLiteral("outbox")));
    TnvDBConfig::SaveConfig(conn, QStringLiteral("DAME"), QStringLiteral("SYSTEM"), *values);
}

// messages are answered at once, as a user who only presses OK
void AnswerAllDialogs() {
    TnvDialogs::THooks& hooks = TnvDialogs::Hooks();
    hooks.Error = [](QWidget*, const QString& AText) { qWarning("%s", qPrintable(AText)); };
    hooks.ErrorWithDetails = [](QWidget*, const QString& AText, const QString& ADetails) {
        qWarning("%s\n%s", qPrintable(AText), qPrintable(ADetails));
    };
    hooks.Information = [](QWidget*, const QString&) {};
}

TmodData& Data() {
    static TmodData data;
    return data;
}

void Click(QWidget& AForm, const char* AButton) {
    AForm.findChild<QAbstractButton*>(QString::fromLatin1(AButton))->click();
}

// a wizard with the demonstration content on the catalogue page, shown at its usual size
QPointer<TFeedbackWizardForm> WizardOnCataloguePage() {
    QPointer<TFeedbackWizardForm> wizard = TFeedbackWizardForm::OpenWizard(
        [] { return Data().GetConnection(); }, QString(), BuiltInResources::demoContent());
    wizard->resize(1000, 640);
    wizard->show();
    QApplication::processEvents();
    Click(*wizard, "cmdNext");
    Click(*wizard, "cmdNext");
    QApplication::processEvents();
    return wizard;
}

void CloseWizard(QPointer<TFeedbackWizardForm>& AWizard) {
    if (AWizard)
        AWizard->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void BM_NextToLetterShown(benchmark::State& run) {
    for (auto _ : run) {
        QPointer<TFeedbackWizardForm> wizard = WizardOnCataloguePage();
        auto* view = wizard->findChild<engine::TPrintLayoutView*>(QStringLiteral("RichEditControl"));
        QElapsedTimer timer;
        timer.start();
        Click(*wizard, "cmdNext");
        // whatever the page put behind the click runs before the letter is drawn
        QApplication::processEvents();
        view->repaint();
        run.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
        if (view->pageCount() < 1)
            run.SkipWithError("no letter was shown");
        CloseWizard(wizard);
    }
}
BENCHMARK(BM_NextToLetterShown)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);

void BM_SendToWizardClosed(benchmark::State& run) {
    for (auto _ : run) {
        QPointer<TFeedbackWizardForm> wizard = WizardOnCataloguePage();
        Click(*wizard, "cmdNext");
        QApplication::processEvents();
        QElapsedTimer timer;
        timer.start();
        Click(*wizard, "cmdExport");
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        run.SetIterationTime(double(timer.nsecsElapsed()) / 1e9);
        if (wizard)
            run.SkipWithError("the wizard did not close");
        CloseWizard(wizard);
    }
}
BENCHMARK(BM_SendToWizardClosed)
    ->UseManualTime()
    ->Iterations(1)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true)
    ->Unit(benchmark::kMillisecond);

// the main window of a direct start with the demonstration content, page by page
void SaveShots(const QString& AFolder) {
    QDir().mkpath(AFolder);
    const QString content = QDir(Sandbox().path()).filePath(QStringLiteral("content.json"));
    QFile file(content);
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.write(BuiltInResources::demoContent().toUtf8());
    file.close();
    FillCmdParams({QStringLiteral("orvenna"), QStringLiteral("/v:") + content});
    QPointer<TMainForm> mainForm = new TMainForm(Data());
    mainForm->resize(1000, 700);
    mainForm->show();
    QPointer<TFeedbackWizardForm> wizard = TFeedbackWizardForm::Instance();
    for (int page = 0; page < TFeedbackWizardForm::PageCount; ++page) {
        if (page > 0)
            Click(*wizard, "cmdNext");
        QApplication::processEvents();
        mainForm->grab().save(QDir(AFolder).filePath(QStringLiteral("wizard-page%1.png").arg(page)));
    }
    delete mainForm.data();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    FillCmdParams({QStringLiteral("orvenna")});
}

// takes --shots=<folder> off the arguments; empty when it isn't there
QString TakeShotsFolder(int& argc, char** argv) {
    const QByteArray flag = "--shots=";
    for (int i = 1; i < argc; ++i) {
        if (!QByteArray(argv[i]).startsWith(flag))
            continue;
        const QString folder = QString::fromLocal8Bit(argv[i] + flag.size());
        for (int j = i; j + 1 < argc; ++j)
            argv[j] = argv[j + 1];
        --argc;
        return folder;
    }
    return {};
}

} // namespace

int main(int argc, char** argv) {
    RedirectProgramFolders();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QString shots = TakeShotsFolder(argc, argv);
    FillCmdParams({QStringLiteral("orvenna")});
    QApplication app(argc, argv);
    norvik::SetApplicationTitle(QStringLiteral("Orvenna Rückmeldesystem"));
    RegisterNamedMessages();
    AnswerAllDialogs();
    PrepareDatabase(Data());
    if (!shots.isEmpty())
        SaveShots(shots);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
