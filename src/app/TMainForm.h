#pragma once

#include <QHash>
#include <QIcon>
#include <QList>
#include <QPointer>
#include <QWidget>
#include <functional>

class QLabel;
class QTimer;
class TImageCollection;
class TmodData;

namespace norvik {
class TDockingPanel;
}

class TMainForm;

// The screens that the main window opens but does not know itself. A hook left unset means
// there is nothing of that kind to open yet.
struct TMainFormHooks {
    // the one welcome page of the process, already wired to the main window's operations
    std::function<QWidget*(TMainForm& AMainForm)> WelcomePage;
    // brings the welcome page's list of recent feedbacks up to date
    std::function<void(QWidget* AWelcomePage)> RefreshWelcomePage;
    std::function<QWidget*()> SettingsPage;
    // the wizard, given the catalogue and the content to prefill it with
    std::function<QWidget*(const QString& AQuestions, const QString& AContent)> Wizard;
    // shows an error message and returns when the user has read it
    std::function<void(QWidget* AParent, const QString& AText)> ShowError;
};

// The one top-level window. It has no content of its own: every screen is a page docked into
// dckMain, and the open pages form a stack. Opening a screen pushes it, closing one shows the
// page beneath, and the window closes when the stack is empty.
class TMainForm : public QWidget {
public:
    static inline const QString Caption = QStringLiteral("Orvenna Rückmeldesystem für Physiotherapeuten");
    // the year and the version are filled in
    static inline const QString VersionFormat = QStringLiteral("© %1 by Orvenna  | Version: %2");
    static inline const QString ExportFolderError =
        QStringLiteral("Es wurde der DaMe Exportpfad nicht oder falsch definiert. Bitte "
                       "konfigurieren Sie das Rückmeldesystem.");
    static constexpr int MinimumWidth = 735;
    static constexpr int MinimumHeight = 500;
    // the size the window opens with where the screen has room: the pages' forms fit it
    // without scrolling
    static constexpr int StartWidth = 1000;
    static constexpr int StartHeight = 700;
    static constexpr int RefreshLastPageDelay = 250;

    // the hooks of the process; the main window reads them when it opens a screen
    static TMainFormHooks& Hooks();
    // the hooks the process starts with: the welcome page, the settings page, the error message
    static TMainFormHooks DefaultHooks();
    // img32x16: the small pictures that screens find by name ("cloud-employee",
    // "people-doctor", "contact-card")
    static const TImageCollection& Images();
    static QIcon ProgramIcon();

    // puts up the first pages: see DecideFirstPages
    explicit TMainForm(TmodData& AData, QWidget* AParent = nullptr);
    ~TMainForm() override;

    // pushes the page and shows it over the former one; nullptr is not pushed
    QWidget* AddPage(QWidget* AForm);
    // the page on top afterwards; nullptr when fewer than two pages were open and the main
    // window was closed instead
    QWidget* CloseTopPage(bool ARefresh);
    // the wizard, or the settings page when the outbox is not set; pushed, and given back
    QWidget* OpenWizard();
    // pushes the settings page, if there is one to open
    QWidget* OpenSettingsPage();

    // the open pages, bottom first
    const QList<QWidget*>& Pages() const { return FForms; }
    TmodData& Data() const { return FData; }
    QWidget* BaseForm() const { return FBaseForm; }
    norvik::TDockingPanel* DockPanel() const { return dckMain; }
    QString VersionText() const;
    const QTimer& RefreshTimer() const { return *tmrRefreshLastPage; }

    // whether the configured DaMe outbox is an existing folder; asked anew each time
    bool ExportFolderExists();

protected:
    bool event(QEvent* AEvent) override;
    void closeEvent(QCloseEvent* AEvent) override;

private:
    TmodData& FData;
    norvik::TDockingPanel* dckMain;
    QLabel* lblVersion;
    QTimer* tmrRefreshLastPage;
    QPointer<QWidget> FBaseForm;
    bool FBaseIsWelcome = false;
    QList<QWidget*> FForms;
    // of each covered page, the control that had the focus when it was covered
    QHash<QWidget*, QPointer<QWidget>> FLastFocused;

    void CreateComponents();
    // opens at the start size, or at what the screen can hold, at the screen's centre
    void CenterOnScreen();
    // the welcome page on a plain start, with the settings page over it while the outbox is
    // not set; the wizard at once when another program started us
    void DecideFirstPages();
    QWidget* CreateWelcomePage();
    void Notification(QWidget* AForm);
    // a covered page takes neither keys nor clicks until it is on top again
    void CoverPage(QWidget* APage);
    void UncoverPage(QWidget* APage);
    void tmrRefreshLastPageTimer();
    void RefreshLastPage();
    bool FormCloseQuery();
    void ShowError(const QString& AText);
};
