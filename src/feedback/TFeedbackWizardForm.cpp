#include "TFeedbackWizardForm.h"

#include "Exception.h"
#include "NamedMessages.h"
#include "Scaling.h"
#include "SystemUtils.h"
#include "TDBTherapistSource.h"
#include "TDaMeExport.h"
#include "TFeedbackFieldChecks.h"
#include "TFeedbackMergeValues.h"
#include "TPrintLayoutView.h"
#include "TPrintLink.h"
#include "TWizardBindings.h"
#include "TWizardExportMessages.h"
#include "TWizardPatientPage.h"
#include "TWizardPublishPage.h"
#include "TWizardQuestionPage.h"
#include "TWizardReferralPage.h"
#include "TnvDBConfig.h"
#include "TnvDialogs.h"
#include "TnvNamedMessageEvent.h"
#include "TnvValidatedEdit.h"

#include <QAction>
#include <QComboBox>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <cstdio>

using norvik::Scale;
using norvik::TnvDialogs;

namespace {

struct TPageCaption {
    QString Title;
    QString Description;
};

const TPageCaption& PageCaption(int AIndex) {
    static const TPageCaption captions[] = {
        {QStringLiteral("Patientendaten"),
         QStringLiteral("Füllen Sie hier die Patientendaten aus. Diese werden auf dem Ausdruck des "
                        "Rückmeldebogens verwendet.")},
        {QStringLiteral("Überweiser / Überweisung"),
         QStringLiteral(
             "Füllen Sie bitte den überweisenden Arzt und die wichgsten Daten der Überweisung aus.")},
        {QStringLiteral("Rückmeldung"),
         QStringLiteral("Füllen Sie hier die Inhalte des Rückmeldebogens aus.")},
        {QStringLiteral("Export, Druck oder Versand"),
         QStringLiteral(
             "Sie sehen hier die Vorschau des Dokuments. Exportieren, drucken, oder versenden Sie es "
             "per DaMe oder MedicalNet.")},
    };
    return captions[AIndex];
}

// the title stands half again as large as the text, the description indented below it
constexpr double TitleScale = 1.5;
constexpr int DescriptionIndent = 25;

// the folder the PDF dialog opens in: where the last PDF of the process was saved
QString& LastPdfFolder() {
    static QString folder;
    return folder;
}

// the one wizard of the process; cleared when it closes
QPointer<TFeedbackWizardForm>& TheWizard() {
    static QPointer<TFeedbackWizardForm> wizard;
    return wizard;
}

QScrollArea* Scrollable(QWidget* ACard) {
    auto* scroller = new QScrollArea;
    scroller->setObjectName(ACard->objectName() + QStringLiteral("Scroller"));
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    // the fields take the focus, not the frame around them
    scroller->setFocusPolicy(Qt::NoFocus);
    scroller->setWidget(ACard);
    return scroller;
}

QFrame* Separator(QWidget* AParent) {
    auto* line = new QFrame(AParent);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

TFeedbackWizardForm* TFeedbackWizardForm::OpenWizard(const TConnectionSource& AConnection,
                                                     const QString& AQuestions, const QString& AContent) {
    if (!TheWizard())
        TheWizard() = new TFeedbackWizardForm(AConnection);
    TFeedbackWizardForm* wizard = TheWizard();
    try {
        wizard->LoadConfig();
        wizard->CreateQuestions(AQuestions);
        wizard->PrepareValues(AContent);
    } catch (...) {
        // a wizard without its data is of no use; the next one starts afresh
        delete wizard;
        throw;
    }
    return wizard;
}

TFeedbackWizardForm* TFeedbackWizardForm::Instance() {
    return TheWizard();
}

TFeedbackWizardForm::TFeedbackWizardForm(TConnectionSource AConnection, QWidget* AParent)
    : TScaleForm(AParent)
    , FConnection(std::move(AConnection))
    , FLetter(FState)
    , FBindings(new TWizardBindings(FState, this))
    , tmrSetFocus(new QTimer(this)) {
    setObjectName(QStringLiteral("FeedbackWizardForm"));
    setAttribute(Qt::WA_DeleteOnClose);
    CreateComponents();
    ConnectEvents();
    crdPublish->RichEditControl->setDocument(&FLetter.Document());
    GoToPage(PatientPage);
    MatchSearchHeights();
}

TFeedbackWizardForm::~TFeedbackWizardForm() {
    // the controls go after the state and the letter: they must no longer reach them
    delete FBindings;
    crdPublish->RichEditControl->setDocument(nullptr);
    if (TheWizard() == this)
        TheWizard() = nullptr;
}

norvik::InvDBConnection* TFeedbackWizardForm::Connection() const {
    return FConnection ? FConnection() : nullptr;
}

void TFeedbackWizardForm::CreateComponents() {
    lblCaptions = new QLabel(this);
    lblCaptions->setObjectName(QStringLiteral("lblCaptions"));
    lblCaptions->setTextFormat(Qt::RichText);
    lblCaptions->setWordWrap(true);
    lblCaptions->setContentsMargins(Scale(12), Scale(8), Scale(12), Scale(8));
    cpWizard = new QStackedWidget(this);
    cpWizard->setObjectName(QStringLiteral("cpWizard"));
    crdPatient = new TWizardPatientPage(cpWizard);
    crdDoctorReferral = new TWizardReferralPage(cpWizard);
    crdContent = new TWizardQuestionPage(cpWizard);
    crdPublish = new TWizardPublishPage(cpWizard);
    // the pages of fields scroll when the window is too small for them, rather than squeeze
    cpWizard->addWidget(Scrollable(crdPatient));
    cpWizard->addWidget(Scrollable(crdDoctorReferral));
    cpWizard->addWidget(crdContent);
    cpWizard->addWidget(crdPublish);
    tmrSetFocus->setObjectName(QStringLiteral("tmrSetFocus"));
    tmrSetFocus->setInterval(SetFocusDelay);
    tmrSetFocus->setSingleShot(true);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(Scale(8), Scale(4), Scale(8), Scale(8));
    layout->setSpacing(Scale(6));
    layout->addWidget(lblCaptions);
    layout->addWidget(Separator(this));
    layout->addWidget(cpWizard, 1);
    layout->addWidget(Separator(this));
    layout->addWidget(CreateNavigator());
}

QWidget* TFeedbackWizardForm::CreateNavigator() {
    acBack = NavigatorAction(QStringLiteral("acBack"), &TFeedbackWizardForm::cmdBackClick);
    acNext = NavigatorAction(QStringLiteral("acNext"), &TFeedbackWizardForm::cmdNextClick);
    acFinish = NavigatorAction(QStringLiteral("acFinish"), &TFeedbackWizardForm::cmdFinishClick);
    acCancel = NavigatorAction(QStringLiteral("acCancel"), &TFeedbackWizardForm::cmdCancelClick);
    auto* navigator = new QWidget(this);
    navigator->setObjectName(QStringLiteral("pnlNavigator"));
    cmdBack = NavigatorButton(QStringLiteral("cmdBack"), QStringLiteral("&Zurück"), acBack);
    cmdNext = NavigatorButton(QStringLiteral("cmdNext"), QStringLiteral("&Weiter"), acNext);
    cmdFinish = NavigatorButton(QStringLiteral("cmdFinish"), QStringLiteral("&Fertigstellen"), acFinish);
    cmdCancel = NavigatorButton(QStringLiteral("cmdCancel"), QStringLiteral("&Abbrechen"), acCancel);
    cmdNext->setDefault(true);
    auto* layout = new QHBoxLayout(navigator);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Scale(6));
    layout->addStretch(1);
    for (QPushButton* button : {cmdBack, cmdNext, cmdFinish})
        layout->addWidget(button);
    layout->addSpacing(Scale(18));
    layout->addWidget(cmdCancel);
    return navigator;
}

QAction* TFeedbackWizardForm::NavigatorAction(const QString& AName, void (TFeedbackWizardForm::*AHandler)()) {
    auto* action = new QAction(this);
    action->setObjectName(AName);
    connect(action, &QAction::triggered, this, AHandler);
    return action;
}

QPushButton* TFeedbackWizardForm::NavigatorButton(const QString& AName, const QString& AText,
                                                  QAction* AAction) {
    auto* button = new QPushButton(AText, this);
    button->setObjectName(AName);
    // Enter on a focused navigator button presses that button
    button->setAutoDefault(true);
    button->setMinimumWidth(Scale(100));
    connect(button, &QPushButton::clicked, AAction, &QAction::trigger);
    connect(AAction, &QAction::changed, button,
            [button, AAction] { button->setEnabled(AAction->isEnabled()); });
    return button;
}

void TFeedbackWizardForm::ConnectEvents() {
    connect(FBindings, &TWizardBindings::StateChanged, this, &TFeedbackWizardForm::UpdateActions);
    connect(tmrSetFocus, &QTimer::timeout, this, &TFeedbackWizardForm::tmrSetFocusTimer);
    connect(crdDoctorReferral->cmdPrevTPT, &QToolButton::clicked, this,
            &TFeedbackWizardForm::cmdPrevTPTClick);
    connect(crdDoctorReferral->cmdNextTPT, &QToolButton::clicked, this,
            &TFeedbackWizardForm::cmdNextTPTClick);
    connect(crdDoctorReferral->cmdChangeADRSearchProvider, &QToolButton::clicked, this,
            &TFeedbackWizardForm::cmdChangeADRSearchProviderClick);
    connect(crdPublish->cmdPrint, &QToolButton::clicked, this, &TFeedbackWizardForm::cmdPrintClick);
    connect(crdPublish->cmdExportPDF, &QToolButton::clicked, this, &TFeedbackWizardForm::cmdExportPDFClick);
    connect(crdPublish->cmdExport, &QToolButton::clicked, this, &TFeedbackWizardForm::cmdExportClick);
    connect(crdPublish->cmdZoom, &QToolButton::clicked, this, &TFeedbackWizardForm::cmdExportClick);
    connect(crdPublish->acRTCZoomPageWidth, &QAction::triggered, this, &TFeedbackWizardForm::ZoomToPageWidth);
    connect(crdPublish->acRTCZoomWholePage, &QAction::triggered, this,
            &TFeedbackWizardForm::ZoomToPageHeight);
    FBindings->BindByName(this);
}

void TFeedbackWizardForm::MatchSearchHeights() {
    if (norvik::ScreenPixelsPerInch() <= norvik::DesignPixelsPerInch)
        return;
    const int height = crdPatient->edtPATLastname->sizeHint().height();
    for (QWidget* control : {static_cast<QWidget*>(crdPatient->edtPATSearch),
                             static_cast<QWidget*>(crdDoctorReferral->edtADRSearch),
                             static_cast<QWidget*>(crdDoctorReferral->cmdChangeADRSearchProvider)})
        control->setFixedHeight(height);
}

void TFeedbackWizardForm::LoadConfig() {
    if (norvik::InvDBConnection* conn = Connection()) {
        TDBTherapistSource therapists(*conn);
        FState.LoadConfig(therapists, norvik::TnvDBConfig::LoadConfig(*conn, QStringLiteral("DAME"),
                                                                      QStringLiteral("SYSTEM")));
    }
    UpdateTherapistButtons();
}

void TFeedbackWizardForm::CreateQuestions(const QString& ASource) {
    FState.FCatalogue.setBoxHeight(TWizardQuestionPage::BoxDesignHeight());
    FState.FCatalogue.CreateQuestions(ASource);
    const QList<QComboBox*> boxes = crdContent->CreateQuestions(FState.FCatalogue);
    for (int index = 0; index < boxes.size(); ++index)
        FBindings->BindAnswerBox(boxes.at(index), index);
    FFirstQuestionField = boxes.value(0);
    FBindings->ShowState();
}

void TFeedbackWizardForm::PrepareValues(const QString& AValues) {
    if (norvik::InvDBConnection* conn = Connection()) {
        TDBTherapistSource therapists(*conn);
        TFeedbackMergeValues::PrepareValues(FState, AValues, therapists);
    }
    FBindings->ShowState();
    UpdateTherapistButtons();
}

void TFeedbackWizardForm::GoToPage(int AIndex) {
    if (AIndex == FActivePageIndex)
        return;
    if (AIndex >= 0 && AIndex < cpWizard->count()) {
        // The form holds the focus while the cards and buttons change, so that it does not
        // pass on to "Abbrechen", where the next Enter would throw the feedback away. The
        // focus timer then gives it to the page's first field; on the letter page Enter does
        // nothing.
        setFocus();
        FActivePageIndex = AIndex;
        cpWizard->setCurrentIndex(AIndex);
        lblCaptions->setText(CaptionText(AIndex));
        tmrSetFocus->start();
        if (AIndex == PublishPage) {
            // the page is laid out first, so that the zoom fits the view's real size
            QCoreApplication::processEvents();
            ZoomToPageWidth();
            BuildLetter();
        }
    }
    const bool lastPage = FActivePageIndex == cpWizard->count() - 1;
    cmdNext->setVisible(!lastPage);
    cmdFinish->setVisible(lastPage);
    UpdateActions();
}

QComboBox* TFeedbackWizardForm::FirstQuestionField() const {
    return FFirstQuestionField;
}

bool TFeedbackWizardForm::IsPageComplete(int AIndex) const {
    return TFeedbackFieldChecks::IsPageComplete(FState, AIndex);
}

QString TFeedbackWizardForm::CaptionText(int AIndex) const {
    const TPageCaption& caption = PageCaption(AIndex);
    return QStringLiteral("<div style=\"font-size:%1pt\">%2</div><div style=\"margin-left:%3px\">%4</div>")
        .arg(lblCaptions->font().pointSizeF() * TitleScale)
        .arg(caption.Title.toHtmlEscaped())
        .arg(Scale(DescriptionIndent))
        .arg(caption.Description.toHtmlEscaped());
}

void TFeedbackWizardForm::UpdateActions() {
    acBack->setEnabled(FActivePageIndex > 0);
    const bool canGoOn = FActivePageIndex >= 0 && IsPageComplete(FActivePageIndex);
    acNext->setEnabled(canGoOn);
    cmdNext->setEnabled(canGoOn);
    acFinish->setEnabled(FActivePageIndex == cpWizard->count() - 1 && FActivePageIndex == PublishPage);
    acCancel->setEnabled(true);
}

void TFeedbackWizardForm::UpdateTherapistButtons() {
    QToolButton* previous = crdDoctorReferral->cmdPrevTPT;
    QToolButton* next = crdDoctorReferral->cmdNextTPT;
    previous->setEnabled(FState.CanShowPreviousTherapist());
    next->setEnabled(FState.CanShowNextTherapist());
    previous->setVisible(FState.TherapistButtonsVisible());
    next->setVisible(FState.TherapistButtonsVisible());
}

void TFeedbackWizardForm::BuildLetter() {
    try {
        FLetter.BuildDocument(norvik::GetCmdParam(QStringLiteral("tf")),
                              FState.FConfig->GetAsString(QStringLiteral("DOCXTemplate")));
    } catch (const std::exception& error) {
        ShowStepError(error);
    }
}

void TFeedbackWizardForm::ShowStepError(const std::exception& AError) {
    TnvDialogs::ShowError(this, QString::fromUtf8(AError.what()));
}

void TFeedbackWizardForm::cmdBackClick() {
    GoToPage(FActivePageIndex - 1);
}

void TFeedbackWizardForm::cmdNextClick() {
    GoToPage(FActivePageIndex + 1);
}

void TFeedbackWizardForm::cmdFinishClick() {
    cmdExportClick();
}

void TFeedbackWizardForm::cmdCancelClick() {
    close();
}

void TFeedbackWizardForm::cmdExportClick() {
    try {
        norvik::InvDBConnection* conn = Connection();
        if (!conn)
            throw norvik::Exception(QStringLiteral("Die Datenbank konnte nicht geöffnet werden."));
        TWizardExportMessages messages(this);
        QFile standardOutput;
        standardOutput.open(stdout, QIODevice::WriteOnly);
        if (TDaMeExport::cmdExportClick(FState, FLetter.Document(), *conn,
                                        TDaMeExportOptions::FromCommandLine(), messages, standardOutput))
            close();
    } catch (const std::exception& error) {
        ShowStepError(error);
    }
}

void TFeedbackWizardForm::cmdPrintClick() {
    engine::TPrintLink link(FLetter.Document());
    link.setTitle(TDaMeExport::LetterTitle);
    const std::unique_ptr<QPrintPreviewDialog> preview = link.createPreviewDialog(this);
    TnvDialogs::Exec(*preview);
}

void TFeedbackWizardForm::cmdExportPDFClick() {
    norvik::TFileDialogRequest request;
    request.Caption = QStringLiteral("Als PDF Dokument speichern");
    request.Directory = LastPdfFolder();
    request.Filters = QStringList{QStringLiteral("PDF-Dokument (*.pdf)"), QStringLiteral("Alle Dateien (*)")};
    request.DefaultSuffix = QStringLiteral("pdf");
    request.MustExist = false;
    const QString fileName = TnvDialogs::GetSaveFileName(this, request);
    if (fileName.isEmpty())
        return;
    LastPdfFolder() = QFileInfo(fileName).absolutePath();
    engine::TPrintLink link(FLetter.Document());
    link.setTitle(TDaMeExport::LetterTitle);
    if (!link.exportToPdfFile(fileName))
        TnvDialogs::ShowError(
            this, QStringLiteral("Die Datei \"%1\" konnte nicht geschrieben werden.").arg(fileName));
}

void TFeedbackWizardForm::ZoomToPageWidth() {
    crdPublish->RichEditControl->ZoomToPageWidth();
}

void TFeedbackWizardForm::ZoomToPageHeight() {
    crdPublish->RichEditControl->ZoomToPageHeight();
}

void TFeedbackWizardForm::cmdPrevTPTClick() {
    FState.ShowPreviousTherapist();
    FBindings->ShowState();
    UpdateTherapistButtons();
}

void TFeedbackWizardForm::cmdNextTPTClick() {
    FState.ShowNextTherapist();
    FBindings->ShowState();
    UpdateTherapistButtons();
}

void TFeedbackWizardForm::cmdChangeADRSearchProviderClick() {
    crdDoctorReferral->edtADRSearch->setFocus();
}

void TFeedbackWizardForm::tmrSetFocusTimer() {
    tmrSetFocus->stop();
    QWidget* target = nullptr;
    switch (FActivePageIndex) {
    case PatientPage:
        target = crdPatient->edtPATSearch;
        break;
    case ReferralPage:
        target = crdDoctorReferral->edtADRSearch;
        break;
    case ContentPage:
        target = FFirstQuestionField;
        break;
    default:
        break;
    }
    if (target && target->isEnabled() && target->isVisible())
        target->setFocus();
}

bool TFeedbackWizardForm::event(QEvent* AEvent) {
    const QEvent::Type type = AEvent->type();
    if (type == norvik::NamedMessageType(norvik::NamedMessages::FeedBackClose)) {
        FeedBackCloseMessage();
        return true;
    }
    if (type == norvik::NamedMessageType(norvik::NamedMessages::ResetFocus)) {
        ResetFocusMessage(static_cast<norvik::TnvNamedMessageEvent*>(AEvent)->Argument());
        return true;
    }
    return TScaleForm::event(AEvent);
}

void TFeedbackWizardForm::FeedBackCloseMessage() {
    if (FCanClose)
        close();
    else
        FCanClose = true;
}

void TFeedbackWizardForm::ResetFocusMessage(const QString& AControlName) {
    if (auto* control = findChild<QWidget*>(AControlName))
        control->setFocus();
}

void TFeedbackWizardForm::showEvent(QShowEvent* AEvent) {
    TScaleForm::showEvent(AEvent);
    tmrSetFocus->start();
}

void TFeedbackWizardForm::closeEvent(QCloseEvent* AEvent) {
    TScaleForm::closeEvent(AEvent);
    if (AEvent->isAccepted() && TheWizard() == this)
        TheWizard() = nullptr;
}

void TFeedbackWizardForm::keyPressEvent(QKeyEvent* AEvent) {
    // the cancel and default buttons of the form, as a dialog has them
    if (AEvent->key() == Qt::Key_Escape && AEvent->modifiers() == Qt::NoModifier) {
        acCancel->trigger();
        return;
    }
    const bool enter = AEvent->key() == Qt::Key_Return || AEvent->key() == Qt::Key_Enter;
    if (enter && (AEvent->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier && cmdNext->isVisible()) {
        acNext->trigger();
        return;
    }
    TScaleForm::keyPressEvent(AEvent);
}
