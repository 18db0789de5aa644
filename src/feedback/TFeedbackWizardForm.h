#pragma once

#include "TConnectionSource.h"
#include "TFeedbackDocument.h"
#include "TFeedbackWizardState.h"
#include "TScaleForm.h"

#include <QPointer>
#include <exception>
#include <functional>

class QAction;
class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QTimer;
class TWizardBindings;
class TWizardPatientPage;
class TWizardPublishPage;
class TWizardQuestionPage;
class TWizardReferralPage;

namespace norvik {
class InvDBConnection;
}

// The feedback wizard, a page of the main window: the patient, the referring physician with
// the referral and the therapist, the answers of the question catalogue, and the finished
// letter, which is printed, saved as a PDF, or sent to the DaMe outbox. "Weiter" stays
// disabled while a checked field of the page is wrong. One wizard exists at a time; it frees
// itself when it closes.
class TFeedbackWizardForm : public norvik::TScaleForm {
    Q_OBJECT

public:
    enum TPage { PatientPage, ReferralPage, ContentPage, PublishPage, PageCount };
    static constexpr int SetFocusDelay = 150;

    // The wizard as the main window opens it: made if there is none, with the therapists and
    // settings loaded, the catalogue built from AQuestions (a file or JSON text) and the
    // controls prefilled from AContent (likewise).
    static TFeedbackWizardForm* OpenWizard(const TConnectionSource& AConnection, const QString& AQuestions,
                                           const QString& AContent);
    // the open wizard, or nullptr
    static TFeedbackWizardForm* Instance();

    explicit TFeedbackWizardForm(TConnectionSource AConnection, QWidget* AParent = nullptr);
    ~TFeedbackWizardForm() override;

    // the therapists ordered by name and the settings block "DAME" of "SYSTEM"
    void LoadConfig();
    void CreateQuestions(const QString& ASource);
    void PrepareValues(const QString& AValues);

    void GoToPage(int AIndex);
    bool IsPageComplete(int AIndex) const;
    int ActivePageIndex() const { return FActivePageIndex; }

    // stores therapist, patient and physician, writes the outbox file and closes on success
    void cmdExportClick();
    void cmdPrintClick();
    void cmdExportPDFClick();
    void ZoomToPageWidth();
    void ZoomToPageHeight();

    TFeedbackWizardState& State() { return FState; }
    TFeedbackDocument& Letter() { return FLetter; }
    QComboBox* FirstQuestionField() const;

protected:
    // the form keeps the fonts of its design
    bool DoSetWindowFont() const override { return false; }
    bool event(QEvent* AEvent) override;
    void showEvent(QShowEvent* AEvent) override;
    void closeEvent(QCloseEvent* AEvent) override;
    void keyPressEvent(QKeyEvent* AEvent) override;

private:
    TConnectionSource FConnection;
    TFeedbackWizardState FState;
    TFeedbackDocument FLetter;
    TWizardBindings* FBindings;
    int FActivePageIndex = -1;
    // cleared while an Escape closes a search panel, so that it doesn't close the wizard too
    bool FCanClose = true;
    QPointer<QComboBox> FFirstQuestionField;

    QLabel* lblCaptions;
    QStackedWidget* cpWizard;
    TWizardPatientPage* crdPatient;
    TWizardReferralPage* crdDoctorReferral;
    TWizardQuestionPage* crdContent;
    TWizardPublishPage* crdPublish;
    QPushButton* cmdBack;
    QPushButton* cmdNext;
    QPushButton* cmdFinish;
    QPushButton* cmdCancel;
    QAction* acBack;
    QAction* acNext;
    QAction* acFinish;
    QAction* acCancel;
    QTimer* tmrSetFocus;

    norvik::InvDBConnection* Connection() const;
    void CreateComponents();
    QWidget* CreateNavigator();
    QPushButton* NavigatorButton(const QString& AName, const QString& AText, QAction* AAction);
    QAction* NavigatorAction(const QString& AName, void (TFeedbackWizardForm::*AHandler)());
    void ConnectEvents();
    void MatchSearchHeights();
    QString CaptionText(int AIndex) const;

    void UpdateActions();
    void UpdateTherapistButtons();
    void BuildLetter();
    // an error of a step that the user should read; the wizard stays as it is
    void ShowStepError(const std::exception& AError);

    void cmdBackClick();
    void cmdNextClick();
    void cmdFinishClick();
    void cmdCancelClick();
    void cmdPrevTPTClick();
    void cmdNextTPTClick();
    void cmdChangeADRSearchProviderClick();
    void tmrSetFocusTimer();
    void FeedBackCloseMessage();
    void ResetFocusMessage(const QString& AControlName);
};
