#pragma once

#include <QHash>
#include <QSet>
#include <QWidget>
#include <functional>

class QKeyEvent;
class QMouseEvent;
class QToolButton;
class TEmptyTextGrid;
class TLastFeedbacksModel;
class TWelcomeTile;
class TmodData;

// what a choice of the welcome page calls; it gets the page as the sender
using TnvStartFormEvent = std::function<void(QObject* Sender)>;

// The home screen of a plain start: three large choices, the five latest feedbacks, and a
// button for the settings. It knows no other screen: each choice calls a hook that the main
// window sets, and a hook left unset makes its choice do nothing.
class TWelcomeForm : public QWidget {
    Q_OBJECT

public:
    static inline const QString Caption = QStringLiteral("Orvenna Rückmeldesystem für Physiotherapeuten");
    static inline const QString LastFeedbacksCaption = QStringLiteral("Ihre letzten Rückmeldebögen");
    static inline const QString NoFeedbacksText =
        QStringLiteral("<Es sind noch keine Rückmeldungen vorhanden>");
    static inline const QString NewFeedbackHtml = QStringLiteral(
        "<P align=\"center\"><FONT size=\"160%\">Neue Rückmeldung</FONT><FONT size=\"130%\"><br></FONT>"
        "<FONT size=\"100%\">Füllen Sie einen neuen Rückmeldebogen aus und senden diesen per DaMe oder "
        "MedicalNet an den Überweiser.</FONT></P>");
    static inline const QString FindFeedbackHtml = QStringLiteral(
        "<P align=\"center\"><FONT size=\"160%\">Rückmeldung suchen</FONT><FONT size=\"130%\"><br></FONT>"
        "<FONT size=\"100%\">Suchen Sie in den bereits erstellten und versandten Rückmeldebögen und "
        "öffnen diesen.</FONT></P>");
    static inline const QString FindPatientHtml = QStringLiteral(
        "<P align=\"center\"><FONT size=\"160%\">Patient suchen</FONT><FONT size=\"130%\"><br></FONT>"
        "<FONT size=\"100%\">Suchen Sie in den bereits gespeicherten Patienten und öffnen das "
        "Stammblatt.</FONT></P>");

    // The one welcome page of the process, made on the first call. It is not freed when it
    // closes; the main window frees it at the end.
    static TWelcomeForm* GetWelcomeForm(TmodData& AData);
    // the page made by GetWelcomeForm while it lives, else nullptr
    static TWelcomeForm* Instance();

    ~TWelcomeForm() override;

    // Reloads the list of the latest feedbacks. A failing query raises, and the list keeps
    // what it had.
    void RefreshLastPage();

    void SetOnStartWizard(TnvStartFormEvent AEvent) { FOnStartWizard = std::move(AEvent); }
    // the settings button can be pressed only while this hook is set
    void SetOnStartConfig(TnvStartFormEvent AEvent);
    void SetOnStartFeedbackList(TnvStartFormEvent AEvent) { FOnStartFeedbackList = std::move(AEvent); }
    void SetOnStartPatientList(TnvStartFormEvent AEvent) { FOnStartPatientList = std::move(AEvent); }

    TWelcomeTile* Tile(int AIndex) const { return FTiles.at(AIndex); }
    QToolButton* ConfigButton() const { return cmdConfig; }
    TEmptyTextGrid* Grid() const { return grdDOC; }

    void StartWizardClick(QObject* Sender);
    void cmdConfigClick(QObject* Sender);
    void StartFeedbackList(QObject* Sender);
    void StartPatientList(QObject* Sender);

protected:
    bool eventFilter(QObject* AWatched, QEvent* AEvent) override;

private:
    using TClickEvent = void (TWelcomeForm::*)(QObject* Sender);

    TmodData& FData;
    TnvStartFormEvent FOnStartWizard;
    TnvStartFormEvent FOnStartConfig;
    TnvStartFormEvent FOnStartFeedbackList;
    TnvStartFormEvent FOnStartPatientList;
    QList<TWelcomeTile*> FTiles;
    // the click event of each tile
    QHash<const QObject*, TClickEvent> FClickEvents;
    // the tiles that react to the mouse on their own face, not only on their parts
    QSet<const QObject*> FHoverTiles;
    QToolButton* cmdConfig;
    TEmptyTextGrid* grdDOC;
    TLastFeedbacksModel* tvDOC;

    explicit TWelcomeForm(TmodData& AData);
    void CreateComponents();
    QWidget* CreateTiles();
    TWelcomeTile* AddTile(const QString& AName, const QString& AHtml, const QString& APictureName,
                          TClickEvent AClick, bool AHoverOnTile);
    QWidget* CreateLastFeedbacks();
    QWidget* CreateFooter();

    // the parts of a tile pass their mouse to the tile
    void ElementMouseEnter(QObject* Sender);
    void ElementMouseLeave(QObject* Sender);
    void PanelMouseEnter(QObject* Sender);
    void PanelMouseLeave(QObject* Sender);
    // the first part of a tile
    static QWidget* HoverPictureOf(QObject* APanel);
    bool IsTile(const QObject* AObject) const;
    // a release of the left button over the object that was pressed
    static bool IsClick(QObject* AWatched, const QMouseEvent* AEvent);
    // Enter or the space bar on a focused tile, as on a button
    static bool IsChoiceKey(const QKeyEvent* AEvent);
    void Raise(const TnvStartFormEvent& AEvent);
};
