#pragma once

#include "TConnectionSource.h"
#include "TScaleForm.h"
#include "TSettingsPreferences.h"

#include <QList>
#include <functional>
#include <optional>

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QGroupBox;

namespace norvik {
class InvDBConnection;
class TnvValidatedEdit;
} // namespace norvik

// The page where the practice sets itself up: its therapists, the DaMe outbox folder and the
// letter's template. It is one page of a wizard frame with Cancel and Finish; nothing is
// written before Finish. One instance exists at a time, made by OpenSettings; it frees itself
// when it closes.
class TSettingsForm : public norvik::TScaleForm {
    Q_OBJECT

public:
    enum class TWizardButton { Cancel, Finish };

    static inline const QString Title = QStringLiteral("Einstellungen");
    static inline const QString Description =
        QStringLiteral("Ändern Sie hier die Einstellungen für den Export / Versand der Dokumente.");
    static inline const QString EmptyNameError = QStringLiteral("Der Wert darf nicht leer bleiben.");
    static inline const QString NoDatabaseError =
        QStringLiteral("Die Datenbank konnte nicht geöffnet werden.");
    // around and between the groups
    static constexpr int PageMargin = 16;
    static inline const QString TemplateWriteError =
        QStringLiteral("Das Musterdokument konnte nicht gespeichert werden:\n%1");

    explicit TSettingsForm(TConnectionSource AConnection, QWidget* AParent = nullptr);
    ~TSettingsForm() override;

    // the open settings page, or nullptr
    static TSettingsForm* Instance();

    void SetOnCheckUpdate(std::function<void()> AEvent) { FOnCheckUpdate = std::move(AEvent); }
    // reads the therapists and the DaMe block and shows them; database failures pass through
    void LoadPreferences();
    const TSettingsPreferences& Preferences() const { return FPreferences; }

    // the wizard frame's buttons: Cancel closes without writing, Finish writes and closes
    void actButtonClick(TWizardButton AButton);
    // false, with the message shown, when the database refused; the page then stays open
    bool SaveAndClose();

protected:
    void closeEvent(QCloseEvent* AEvent) override;
    void resizeEvent(QResizeEvent* AEvent) override;
    void keyPressEvent(QKeyEvent* AEvent) override;

private:
    TConnectionSource FConnection;
    std::function<void()> FOnCheckUpdate;
    TSettingsPreferences FPreferences;

    norvik::TnvValidatedEdit* edtTPTZusatzText1;
    QLineEdit* edtTPTZusatzText2;
    QLineEdit* edtTPTDaMeFachgebiet;
    QLineEdit* edtTPTDaMeCode;
    QLabel* lblTPTPosition;
    QPushButton* cmdPrev;
    QPushButton* cmdNext;
    QPushButton* cmdRemove;
    QLineEdit* edtExportFolder;
    QLineEdit* edtExecutable;
    QLineEdit* edtDOCXTemplate;
    QPushButton* cmdSaveTemplate;
    QCheckBox* chkAutoOpen;
    QLabel* HTMLabel3;
    QPushButton* cmdCheckUpdate;
    QPushButton* cmdCancel;
    QPushButton* cmdFinish;
    QGridLayout* pnlGroups;
    // therapists, DaMe, template, update
    QList<QGroupBox*> FGroups;
    // unset until the groups are first arranged
    std::optional<bool> FTwoColumns;

    void CreateComponents();
    QWidget* CreateHeader();
    QWidget* CreatePage();
    QGroupBox* CreateTherapistGroup();
    QGroupBox* CreateDaMeGroup();
    QGroupBox* CreateTemplateGroup();
    QGroupBox* CreateUpdateGroup();
    QWidget* CreateButtonBar();
    // the width the page needs for the groups in two columns, its scroll bar included
    int TwoColumnWidth() const;
    // two columns with therapists and DaMe on the left, else all four one under the other
    void ArrangeGroups(bool ATwoColumns);

    TTherapistTexts EditTexts() const;
    TDaMeSettings DaMeTexts() const;
    void ShowTPT();
    // shows the therapist that a browse button led to
    void ShowTPTAfter(QPushButton* APressed);
    void UpdateButtons();

    void edtTPTZusatzText1PropertiesEditValueChanged(const QString& AText);
    void cmdNextClick();
    void cmdPrevClick();
    void cmdRemoveClick();
    void edtExportFolderButtonClick();
    void edtExecutableButtonClick();
    void edtDOCXTemplateButtonClick();
    void cmdSaveTemplateClick();
    void cmdCheckUpdateClick();
};

// Creates the settings page if there is none, sets its update check, reads its values and
// gives it back; pushing it onto the main window is up to the caller. nullptr, with the
// message shown, when the values could not be read.
TSettingsForm* OpenSettings(const TConnectionSource& AConnection,
                            const std::function<void()>& AOnCheckUpdate);
