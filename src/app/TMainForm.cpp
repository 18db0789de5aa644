#include "TMainForm.h"

#include "AppUtils.h"
#include "Clock.h"
#include "InvDBConnection.h"
#include "NamedMessages.h"
#include "SystemUtils.h"
#include "TDockingPanel.h"
#include "TFeedbackWizardForm.h"
#include "TImageCollection.h"
#include "TScaleForm.h"
#include "TSettingsForm.h"
#include "TWelcomeForm.h"
#include "TmodData.h"
#include "TnvDBConfig.h"
#include "TnvDialogs.h"
#include "TnvNamedMessageEvent.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

using namespace norvik;

namespace {

// a page asks its own question only if it is one of the program's forms
bool PageAgreesToClose(QWidget* APage) {
    auto* form = qobject_cast<TScaleForm*>(APage);
    return !form || form->CloseQuery();
}

// the first control that a Tab on the page would reach
QWidget* FirstTabControl(QWidget* APage) {
    for (QWidget* control = APage->nextInFocusChain(); control && control != APage;
         control = control->nextInFocusChain()) {
        if (APage->isAncestorOf(control) && control->isEnabled() && control->isVisibleTo(APage) &&
            (control->focusPolicy() & Qt::TabFocus) && !control->focusProxy())
            return control;
    }
    return nullptr;
}

// A page that comes to the top takes the focus as a form does: the control that had it
// last, else its first control, so that the user can type at once.
void FocusPage(QWidget* APage, QWidget* ALastFocused) {
    QWidget* target = ALastFocused ? ALastFocused : APage->focusWidget();
    if (!target || target == APage || !APage->isAncestorOf(target) || !target->isEnabled() ||
        !target->isVisibleTo(APage))
        target = FirstTabControl(APage);
    (target ? target : APage)->setFocus();
}

// the pages ask for the connection at each use and keep none
InvDBConnection* ProcessConnection() {
    TmodData* data = TmodData::Instance();
    return data ? data->GetConnection() : nullptr;
}

// the settings page on the process's database; nothing sets its update check yet
QWidget* OpenProcessSettings() {
    return OpenSettings(ProcessConnection, {});
}

// the wizard on the process's database; a failure to read its data is reported, and no page opens
QWidget* OpenProcessWizard(const QString& AQuestions, const QString& AContent) {
    try {
        return TFeedbackWizardForm::OpenWizard(ProcessConnection, AQuestions, AContent);
    } catch (const std::exception& e) {
        TnvDialogs::ShowError(nullptr, QString::fromUtf8(e.what()));
        return nullptr;
    }
}

// The welcome page's choices lead to the main window's screens. The lists are not there yet,
// so their choices do nothing.
QWidget* WelcomePageFor(TMainForm& AMainForm) {
    TWelcomeForm* page = TWelcomeForm::GetWelcomeForm(AMainForm.Data());
    QPointer<TMainForm> mainForm = &AMainForm;
    page->SetOnStartWizard([mainForm](QObject*) {
        if (mainForm)
            mainForm->OpenWizard();
    });
    page->SetOnStartConfig([mainForm](QObject*) {
        if (mainForm)
            mainForm->OpenSettingsPage();
    });
    return page;
}

// a list that cannot be read is reported, and the page stays as it was
void RefreshWelcomePage(QWidget* APage) {
    auto* page = qobject_cast<TWelcomeForm*>(APage);
    if (!page)
        return;
    try {
        page->RefreshLastPage();
    } catch (const std::exception& e) {
        TnvDialogs::ShowErrorWithDetails(
            page, QStringLiteral("Die letzten Rückmeldebögen konnten nicht gelesen werden."),
            QString::fromUtf8(e.what()));
    }
}

} // namespace

TMainFormHooks& TMainForm::Hooks() {
    static TMainFormHooks hooks = DefaultHooks();
    return hooks;
}

TMainFormHooks TMainForm::DefaultHooks() {
    return {WelcomePageFor, RefreshWelcomePage, OpenProcessSettings, OpenProcessWizard,
            TnvDialogs::ShowError};
}

const TImageCollection& TMainForm::Images() {
    static const TImageCollection img32x16(
        QSize(32, 16), {{QStringLiteral("cloud-employee"), QStringLiteral(":/images/cloud-employee.svg")},
                        {QStringLiteral("people-doctor"), QStringLiteral(":/images/people-doctor.svg")},
                        {QStringLiteral("contact-card"), QStringLiteral(":/images/contact-card.svg")}});
    return img32x16;
}

QIcon TMainForm::ProgramIcon() {
    return QIcon(QStringLiteral(":/images/orvenna.svg"));
}

TMainForm::TMainForm(TmodData& AData, QWidget* AParent)
    : QWidget(AParent)
    , FData(AData) {
    setAttribute(Qt::WA_DeleteOnClose);
    CreateComponents();
    if (HasAppParam(QStringLiteral("C")))
        SetApplicationTitle(GetAppParam(QStringLiteral("C")));
    setWindowTitle(Caption);
    setWindowIcon(ProgramIcon());
    lblVersion->setText(VersionText());
    CenterOnScreen();
    DecideFirstPages();
}

TMainForm::~TMainForm() {
    // the pages go with the window; their ends are no longer news to it
    for (QWidget* page : std::as_const(FForms))
        disconnect(page, nullptr, this, nullptr);
    FForms.clear();
}

void TMainForm::CreateComponents() {
    setMinimumSize(MinimumWidth, MinimumHeight);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    dckMain = new TDockingPanel(this);
    dckMain->setObjectName(QStringLiteral("dckMain"));
    layout->addWidget(dckMain, 1);
    auto* pnlFooter = new QWidget(this);
    pnlFooter->setObjectName(QStringLiteral("pnlFooter"));
    // the warm grey of the pages, set off from them by a thin line
    pnlFooter->setAttribute(Qt::WA_StyledBackground);
    pnlFooter->setStyleSheet(
        QStringLiteral("QWidget#pnlFooter { background: #F4F1EC; border-top: 1px solid #E2DDD5; }"
                       "QLabel#lblVersion { color: #6F787C; }"));
    auto* footerLayout = new QHBoxLayout(pnlFooter);
    lblVersion = new QLabel(pnlFooter);
    lblVersion->setObjectName(QStringLiteral("lblVersion"));
    footerLayout->addStretch();
    footerLayout->addWidget(lblVersion);
    layout->addWidget(pnlFooter);
    tmrRefreshLastPage = new QTimer(this);
    tmrRefreshLastPage->setInterval(RefreshLastPageDelay);
    connect(tmrRefreshLastPage, &QTimer::timeout, this, &TMainForm::tmrRefreshLastPageTimer);
}

void TMainForm::CenterOnScreen() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) {
        resize(StartWidth, StartHeight);
        return;
    }
    const QRect available = screen->availableGeometry();
    resize(QSize(StartWidth, StartHeight).boundedTo(available.size()).expandedTo(minimumSize()));
    move(available.center() - rect().center());
}

QString TMainForm::VersionText() const {
    return VersionFormat.arg(Clock::today().year()).arg(GetFileVersionText());
}

void TMainForm::DecideFirstPages() {
    const bool direct = HasCmdParam(QStringLiteral("v")) || GetCmdParam(QStringLiteral("nodb")) == u"1";
    if (direct) {
        FBaseForm = OpenWizard();
    } else {
        FBaseForm = AddPage(CreateWelcomePage());
        RefreshLastPage();
        if (!ExportFolderExists())
            OpenSettingsPage();
    }
    // a direct start with nothing to open would leave a dead window
    if (FForms.isEmpty())
        PostNamedMessage(this, NamedMessages::CloseMyApplication);
}

QWidget* TMainForm::CreateWelcomePage() {
    FBaseIsWelcome = bool(Hooks().WelcomePage);
    // until there is a welcome page, an empty page keeps the window with its footer
    return FBaseIsWelcome ? Hooks().WelcomePage(*this) : new QWidget;
}

bool TMainForm::ExportFolderExists() {
    InvDBConnection* conn = FData.GetConnection();
    if (!conn)
        return false;
    const QString folder = TnvDBConfig::LoadConfig(*conn, QStringLiteral("DAME"), QStringLiteral("SYSTEM"))
                               ->GetValueAsString(QStringLiteral("ExportFolder"), QString());
    return !folder.isEmpty() && QFileInfo(folder).isDir();
}

QWidget* TMainForm::OpenWizard() {
    QWidget* page = nullptr;
    if (ExportFolderExists()) {
        if (Hooks().Wizard) {
            const QString questions = HasCmdParam(QStringLiteral("q")) ? GetCmdParam(QStringLiteral("q"))
                                                                       : QStringLiteral("questions.json");
            const QString content = HasCmdParam(QStringLiteral("v")) ? GetCmdParam(QStringLiteral("v"))
                                                                     : QStringLiteral("content.json");
            page = Hooks().Wizard(questions, content);
        }
    } else {
        ShowError(ExportFolderError);
        page = Hooks().SettingsPage ? Hooks().SettingsPage() : nullptr;
    }
    return AddPage(page);
}

QWidget* TMainForm::OpenSettingsPage() {
    return Hooks().SettingsPage ? AddPage(Hooks().SettingsPage()) : nullptr;
}

void TMainForm::ShowError(const QString& AText) {
    if (Hooks().ShowError)
        Hooks().ShowError(this, AText);
}

QWidget* TMainForm::AddPage(QWidget* AForm) {
    if (!AForm)
        return nullptr;
    AForm->setAttribute(Qt::WA_DeleteOnClose);
    connect(AForm, &QObject::destroyed, this, [this, AForm] { Notification(AForm); });
    // The former page stays as it is beneath the new one, so the new one must cover it, and
    // the covered page takes neither keys nor clicks: a Tab never lands on one of its controls.
    if (!FForms.isEmpty())
        CoverPage(FForms.last());
    FForms.append(AForm);
    AForm->setAutoFillBackground(true);
    dckMain->DockForm(AForm, false, true);
    AForm->raise();
    QTimer::singleShot(0, AForm, [AForm] { FocusPage(AForm, nullptr); });
    return AForm;
}

void TMainForm::CoverPage(QWidget* APage) {
    // disabling hands the focus on; it comes back to this control when the page is uncovered
    FLastFocused.insert(APage, APage->focusWidget());
    APage->setEnabled(false);
}

void TMainForm::UncoverPage(QWidget* APage) {
    APage->setEnabled(true);
    QPointer<QWidget> lastFocused = FLastFocused.take(APage);
    // after the page that covered it is gone entirely
    QTimer::singleShot(0, APage, [APage, lastFocused] { FocusPage(APage, lastFocused); });
}

void TMainForm::Notification(QWidget* AForm) {
    FLastFocused.remove(AForm);
    if (FForms.isEmpty())
        return;
    if (FForms.last() == AForm)
        FForms.removeLast();
    else
        FForms.removeOne(AForm);
    if (FForms.size() == 1 && FForms.first() == FBaseForm && FBaseIsWelcome)
        tmrRefreshLastPage->start();
    if (!FForms.isEmpty()) {
        QWidget* top = FForms.last();
        dckMain->DockForm(top, false, true);
        UncoverPage(top);
    } else
        PostNamedMessage(this, NamedMessages::CloseMyApplication);
}

QWidget* TMainForm::CloseTopPage(bool ARefresh) {
    if (FForms.size() < 2) {
        close();
        return nullptr;
    }
    QWidget* closing = FForms.last();
    if (!closing->close())
        return closing;
    // the page is freed later; for the stack it is gone now
    disconnect(closing, nullptr, this, nullptr);
    FForms.removeLast();
    QWidget* top = FForms.last();
    dckMain->DockForm(top, true, true);
    top->show();
    UncoverPage(top);
    if (ARefresh && top == FBaseForm && FBaseIsWelcome)
        RefreshLastPage();
    return top;
}

void TMainForm::tmrRefreshLastPageTimer() {
    tmrRefreshLastPage->stop();
    RefreshLastPage();
}

void TMainForm::RefreshLastPage() {
    if (FBaseForm && FBaseIsWelcome && Hooks().RefreshWelcomePage)
        Hooks().RefreshWelcomePage(FBaseForm);
}

bool TMainForm::FormCloseQuery() {
    while (FForms.size() > 1) {
        QWidget* top = FForms.last();
        // a page that says no at its own close stays on top
        if (!PageAgreesToClose(top) || CloseTopPage(false) == top)
            break;
    }
    const bool canClose = FForms.size() < 2;
    if (canClose && FForms.size() == 1) {
        QWidget* base = FForms.takeFirst();
        disconnect(base, nullptr, this, nullptr);
        delete base;
        FBaseForm = nullptr;
    }
    return canClose;
}

void TMainForm::closeEvent(QCloseEvent* AEvent) {
    if (FormCloseQuery())
        AEvent->accept();
    else
        AEvent->ignore();
}

bool TMainForm::event(QEvent* AEvent) {
    if (AEvent->type() == NamedMessageType(NamedMessages::CloseMyApplication)) {
        close();
        return true;
    }
    return QWidget::event(AEvent);
}
