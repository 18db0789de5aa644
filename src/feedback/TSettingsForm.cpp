#include "TSettingsForm.h"

#include "TnvDialogs.h"
#include "TnvValidatedEdit.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFileInfo>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

using namespace norvik;

namespace {

// the one settings page of the process
QPointer<TSettingsForm> SettingsForm;

const QString DocxFilter = QStringLiteral("Open XML Word Dokumente (*.docx)");
const QString AllFilesFilter = QStringLiteral("Alle Dateien (*.*)");

const QString TemplateHints = QStringLiteral(
    "Hinweise zur Verwendung der Vorlage:<br>Um eine eigene Vorlage zu erstellen, führen Sie bitte "
    "folgende Schritte aus:<ul style=\"margin-top:4px; margin-left:15px; -qt-list-indent:0;\">"
    "<li style=\"margin-left:15px;\">Speichern Sie das Musterdokument</li>"
    "<li style=\"margin-left:15px;\">Öffnen Sie das erstellte Dokument und passen es an</li>"
    "<li style=\"margin-left:15px;\">Tragen Sie das angepasste Dokument bei \"Rückmeldebogen Vorlage\" "
    "ein</li></ul>");

void EmptyValidate(const QString& AValue, QString& AErrorText, bool& AError) {
    AError = AValue.trimmed().isEmpty();
    if (AError)
        AErrorText = TSettingsForm::EmptyNameError;
}

// the folder of the file named in an edit, where a file dialog starts
QString StartFolder(const QLineEdit& AEdit) {
    return AEdit.text().isEmpty() ? QString() : QFileInfo(AEdit.text()).absolutePath();
}

QLineEdit* NewEdit(const QString& AName, QWidget* AParent) {
    auto* edit = new QLineEdit(AParent);
    edit->setObjectName(AName);
    return edit;
}

QPushButton* NewButton(const QString& AName, const QString& AText, QWidget* AParent) {
    auto* button = new QPushButton(AText, AParent);
    button->setObjectName(AName);
    // Enter on a focused button presses that button, not the page's "Fertigstellen"
    button->setAutoDefault(true);
    return button;
}

// the edits of all groups start at the same distance from their group's edge
void AlignRowLabels(const QWidget& APage) {
    const QList<QLabel*> labels = APage.findChildren<QLabel*>(QStringLiteral("lblRow"));
    int width = 0;
    for (const QLabel* label : labels)
        width = std::max(width, label->sizeHint().width());
    for (QLabel* label : labels)
        label->setMinimumWidth(width);
}

// the button beside an edit that picks its folder or file
QToolButton* NewPickButton(const QString& AName, const QString& AHint, QWidget* AParent) {
    auto* button = new QToolButton(AParent);
    button->setObjectName(AName);
    button->setText(QStringLiteral("..."));
    button->setToolTip(AHint);
    return button;
}

// one labelled row of a group: the label, the edit and, if given, its pick button
void AddRow(QGridLayout& ALayout, const QString& AText, QWidget* AEdit, QWidget* AButton = nullptr) {
    const int row = ALayout.rowCount();
    auto* label = new QLabel(AText, AEdit->parentWidget());
    label->setObjectName(QStringLiteral("lblRow"));
    label->setBuddy(AEdit);
    ALayout.addWidget(label, row, 0);
    ALayout.addWidget(AEdit, row, 1, 1, AButton ? 1 : 2);
    if (AButton)
        ALayout.addWidget(AButton, row, 2);
}

QGridLayout* NewGroupLayout(QGroupBox* AGroup) {
    auto* layout = new QGridLayout(AGroup);
    layout->setColumnStretch(1, 1);
    layout->setHorizontalSpacing(8);
    layout->setVerticalSpacing(8);
    return layout;
}

QGroupBox* NewGroup(const QString& AName, const QString& ATitle, QWidget* AParent) {
    auto* group = new QGroupBox(ATitle, AParent);
    group->setObjectName(AName);
    return group;
}

} // namespace

TSettingsForm::TSettingsForm(TConnectionSource AConnection, QWidget* AParent)
    : TScaleForm(AParent)
    , FConnection(std::move(AConnection)) {
    setObjectName(QStringLiteral("frmSettings"));
    setAttribute(Qt::WA_DeleteOnClose);
    CreateComponents();
    ShowTPT();
}

TSettingsForm::~TSettingsForm() = default;

TSettingsForm* TSettingsForm::Instance() {
    return SettingsForm;
}

void TSettingsForm::CreateComponents() {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(CreateHeader());
    auto* scroller = new QScrollArea(this);
    scroller->setFrameShape(QFrame::NoFrame);
    scroller->setWidgetResizable(true);
    // the page's controls take the focus, not the frame around them
    scroller->setFocusPolicy(Qt::NoFocus);
    scroller->setWidget(CreatePage());
    layout->addWidget(scroller, 1);
    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    layout->addWidget(line);
    layout->addWidget(CreateButtonBar());
}

QWidget* TSettingsForm::CreateHeader() {
    auto* header = new QFrame(this);
    header->setObjectName(QStringLiteral("pnlHeader"));
    header->setAutoFillBackground(true);
    header->setBackgroundRole(QPalette::Base);
    auto* layout = new QVBoxLayout(header);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->setSpacing(4);
    auto* title = new QLabel(Title, header);
    title->setObjectName(QStringLiteral("lblTitle"));
    QFont titleFont = title->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.4);
    title->setFont(titleFont);
    auto* description = new QLabel(Description, header);
    description->setObjectName(QStringLiteral("lblDescription"));
    description->setWordWrap(true);
    layout->addWidget(title);
    layout->addWidget(description);
    return header;
}

QWidget* TSettingsForm::CreatePage() {
    auto* page = new QWidget;
    page->setObjectName(QStringLiteral("wcpSettings"));
    pnlGroups = new QGridLayout(page);
    pnlGroups->setContentsMargins(PageMargin, PageMargin, PageMargin, PageMargin);
    pnlGroups->setSpacing(PageMargin);
    // in this order also one under the other: what a first start needs comes first
    FGroups = {CreateTherapistGroup(), CreateDaMeGroup(), CreateTemplateGroup(), CreateUpdateGroup()};
    ArrangeGroups(true);
    AlignRowLabels(*page);
    return page;
}

int TSettingsForm::TwoColumnWidth() const {
    const auto widest = [](const QWidget* AUpper, const QWidget* ALower) {
        return std::max(AUpper->minimumSizeHint().width(), ALower->minimumSizeHint().width());
    };
    return 3 * PageMargin + widest(FGroups[0], FGroups[1]) + widest(FGroups[2], FGroups[3]) +
           style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void TSettingsForm::ArrangeGroups(bool ATwoColumns) {
    if (ATwoColumns == FTwoColumns)
        return;
    FTwoColumns = ATwoColumns;
    for (QGroupBox* group : FGroups)
        pnlGroups->removeWidget(group);
    const int rows = ATwoColumns ? 2 : 4;
    for (int index = 0; index < FGroups.size(); ++index)
        pnlGroups->addWidget(FGroups[index], index % rows, index / rows);
    pnlGroups->setColumnStretch(0, 1);
    pnlGroups->setColumnStretch(1, ATwoColumns ? 1 : 0);
    // the room left over goes below the groups
    for (int row = 0; row <= 4; ++row)
        pnlGroups->setRowStretch(row, row == rows ? 1 : 0);
}

void TSettingsForm::resizeEvent(QResizeEvent* AEvent) {
    TScaleForm::resizeEvent(AEvent);
    // two columns where they fit, so that a small window needs no sideways scrolling
    ArrangeGroups(width() >= TwoColumnWidth());
}

void TSettingsForm::keyPressEvent(QKeyEvent* AEvent) {
    // the wizard frame's buttons, as a dialog has them: Escape cancels, Enter finishes
    const bool plain = (AEvent->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && AEvent->key() == Qt::Key_Escape) {
        actButtonClick(TWizardButton::Cancel);
        return;
    }
    if (plain && (AEvent->key() == Qt::Key_Return || AEvent->key() == Qt::Key_Enter)) {
        actButtonClick(TWizardButton::Finish);
        return;
    }
    TScaleForm::keyPressEvent(AEvent);
}

QGroupBox* TSettingsForm::CreateTherapistGroup() {
    QGroupBox* group = NewGroup(QStringLiteral("grpTherapists"), QStringLiteral("Therapeut(en)"), this);
    QGridLayout* layout = NewGroupLayout(group);
    edtTPTZusatzText1 = new TnvValidatedEdit(group);
    edtTPTZusatzText1->setObjectName(QStringLiteral("edtTPTZusatzText1"));
    edtTPTZusatzText1->SetValidateEvent(EmptyValidate);
    connect(edtTPTZusatzText1, &QLineEdit::textEdited, this,
            &TSettingsForm::edtTPTZusatzText1PropertiesEditValueChanged);
    edtTPTZusatzText2 = NewEdit(QStringLiteral("edtTPTZusatzText2"), group);
    edtTPTDaMeFachgebiet = NewEdit(QStringLiteral("edtTPTDaMeFachgebiet"), group);
    edtTPTDaMeCode = NewEdit(QStringLiteral("edtTPTDaMeCode"), group);
    AddRow(*layout, QStringLiteral("Name Therapeut(in)"), edtTPTZusatzText1);
    AddRow(*layout, QStringLiteral("Berufsbezeichnung Therapeut(in)"), edtTPTZusatzText2);
    AddRow(*layout, QStringLiteral("Fachgebiet Therapeut (63)"), edtTPTDaMeFachgebiet);
    AddRow(*layout, QStringLiteral("Mailbox Therapeut (METHERPY)"), edtTPTDaMeCode);

    auto* buttons = new QHBoxLayout;
    lblTPTPosition = new QLabel(group);
    lblTPTPosition->setObjectName(QStringLiteral("lblTPTPosition"));
    cmdPrev = NewButton(QStringLiteral("cmdPrev"), QStringLiteral("< Vorheriger"), group);
    cmdPrev->setToolTip(QStringLiteral("Vorherigen Therapeuten anzeigen"));
    cmdNext = NewButton(QStringLiteral("cmdNext"), QStringLiteral("Nächster >"), group);
    cmdNext->setToolTip(QStringLiteral("Nächsten Therapeuten anzeigen oder einen weiteren anlegen"));
    cmdRemove = NewButton(QStringLiteral("cmdRemove"), QStringLiteral("Entfernen"), group);
    cmdRemove->setToolTip(QStringLiteral("Diesen Therapeuten entfernen"));
    connect(cmdPrev, &QPushButton::clicked, this, &TSettingsForm::cmdPrevClick);
    connect(cmdNext, &QPushButton::clicked, this, &TSettingsForm::cmdNextClick);
    connect(cmdRemove, &QPushButton::clicked, this, &TSettingsForm::cmdRemoveClick);
    buttons->addWidget(lblTPTPosition);
    buttons->addStretch();
    buttons->addWidget(cmdPrev);
    buttons->addWidget(cmdNext);
    buttons->addWidget(cmdRemove);
    layout->addLayout(buttons, layout->rowCount(), 0, 1, 3);
    return group;
}

QGroupBox* TSettingsForm::CreateDaMeGroup() {
    QGroupBox* group = NewGroup(QStringLiteral("grpDaMe"), QStringLiteral("DaMe / MedicalNet"), this);
    QGridLayout* layout = NewGroupLayout(group);
    edtExportFolder = NewEdit(QStringLiteral("edtExportFolder"), group);
    edtExecutable = NewEdit(QStringLiteral("edtExecutable"), group);
    QToolButton* folderButton =
        NewPickButton(QStringLiteral("cmdExportFolder"), QStringLiteral("Ausgangsverzeichnis wählen"), group);
    QToolButton* executableButton =
        NewPickButton(QStringLiteral("cmdExecutable"), QStringLiteral("Ausführbare Datei wählen"), group);
    connect(folderButton, &QToolButton::clicked, this, &TSettingsForm::edtExportFolderButtonClick);
    connect(executableButton, &QToolButton::clicked, this, &TSettingsForm::edtExecutableButtonClick);
    AddRow(*layout, QStringLiteral("Ausgangsverzeichnis"), edtExportFolder, folderButton);
    AddRow(*layout, QStringLiteral("Ausführbare Datei (optional)"), edtExecutable, executableButton);
    return group;
}

QGroupBox* TSettingsForm::CreateTemplateGroup() {
    QGroupBox* group =
        NewGroup(QStringLiteral("grpTemplate"), QStringLiteral("Vorlage für die Rückmeldung"), this);
    QGridLayout* layout = NewGroupLayout(group);
    edtDOCXTemplate = NewEdit(QStringLiteral("edtDOCXTemplate"), group);
    QToolButton* templateButton =
        NewPickButton(QStringLiteral("cmdDOCXTemplate"), QStringLiteral("Vorlage wählen"), group);
    connect(templateButton, &QToolButton::clicked, this, &TSettingsForm::edtDOCXTemplateButtonClick);
    AddRow(*layout, QStringLiteral("Rückmeldebogen Vorlage"), edtDOCXTemplate, templateButton);

    cmdSaveTemplate =
        NewButton(QStringLiteral("cmdSaveTemplate"), QStringLiteral("Musterdokument speichern ..."), group);
    connect(cmdSaveTemplate, &QPushButton::clicked, this, &TSettingsForm::cmdSaveTemplateClick);
    chkAutoOpen = new QCheckBox(QStringLiteral("Dokument nach dem Speichern öffnen"), group);
    chkAutoOpen->setObjectName(QStringLiteral("chkAutoOpen"));
    auto* saveRow = new QHBoxLayout;
    saveRow->addWidget(cmdSaveTemplate);
    saveRow->addSpacing(12);
    saveRow->addWidget(chkAutoOpen);
    saveRow->addStretch();
    layout->addLayout(saveRow, layout->rowCount(), 0, 1, 3);

    HTMLabel3 = new QLabel(group);
    HTMLabel3->setObjectName(QStringLiteral("HTMLabel3"));
    HTMLabel3->setTextFormat(Qt::RichText);
    HTMLabel3->setWordWrap(true);
    HTMLabel3->setText(TemplateHints);
    layout->addWidget(HTMLabel3, layout->rowCount(), 0, 1, 3);
    return group;
}

QGroupBox* TSettingsForm::CreateUpdateGroup() {
    QGroupBox* group = NewGroup(QStringLiteral("grpUpdate"), QStringLiteral("Software aktualisieren"), this);
    auto* layout = new QHBoxLayout(group);
    cmdCheckUpdate =
        NewButton(QStringLiteral("cmdCheckUpdate"), QStringLiteral("Auf Programmupdate prüfen"), group);
    connect(cmdCheckUpdate, &QPushButton::clicked, this, &TSettingsForm::cmdCheckUpdateClick);
    layout->addWidget(cmdCheckUpdate);
    layout->addStretch();
    return group;
}

QWidget* TSettingsForm::CreateButtonBar() {
    auto* bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("pnlButtons"));
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(16, 8, 16, 8);
    cmdCancel = NewButton(QStringLiteral("cmdCancel"), QStringLiteral("Abbrechen"), bar);
    cmdFinish = NewButton(QStringLiteral("cmdFinish"), QStringLiteral("Fertigstellen"), bar);
    connect(cmdCancel, &QPushButton::clicked, this, [this] { actButtonClick(TWizardButton::Cancel); });
    connect(cmdFinish, &QPushButton::clicked, this, [this] { actButtonClick(TWizardButton::Finish); });
    cmdFinish->setDefault(true);
    layout->addStretch();
    layout->addWidget(cmdCancel);
    layout->addWidget(cmdFinish);
    return bar;
}

void TSettingsForm::LoadPreferences() {
    InvDBConnection* conn = FConnection ? FConnection() : nullptr;
    if (!conn)
        throw std::runtime_error(NoDatabaseError.toStdString());
    FPreferences.LoadPreferences(*conn);
    ShowTPT();
    const TDaMeSettings& dame = FPreferences.DaMe();
    edtExportFolder->setText(dame.ExportFolder);
    edtExecutable->setText(dame.Executable);
    edtDOCXTemplate->setText(dame.DOCXTemplate);
}

TTherapistTexts TSettingsForm::EditTexts() const {
    return {edtTPTZusatzText1->text(), edtTPTZusatzText2->text(), edtTPTDaMeFachgebiet->text(),
            edtTPTDaMeCode->text()};
}

TDaMeSettings TSettingsForm::DaMeTexts() const {
    return {edtExportFolder->text(), edtExecutable->text(), edtDOCXTemplate->text()};
}

void TSettingsForm::ShowTPT() {
    const TTherapistTexts texts = FPreferences.ShowTPT();
    edtTPTZusatzText1->setText(texts.TPTZusatzText1);
    edtTPTZusatzText2->setText(texts.TPTZusatzText2);
    edtTPTDaMeFachgebiet->setText(texts.TPTDaMeFachgebiet);
    edtTPTDaMeCode->setText(texts.TPTDaMeCode);
    // a mark left from the therapist shown before speaks of this one now
    if (edtTPTZusatzText1->ErrorShown())
        edtTPTZusatzText1->Validate();
    UpdateButtons();
}

void TSettingsForm::UpdateButtons() {
    cmdPrev->setEnabled(FPreferences.CanPrev());
    cmdNext->setEnabled(FPreferences.CanNext());
    cmdRemove->setEnabled(FPreferences.CanRemove());
    lblTPTPosition->setText(QStringLiteral("Therapeut %1 von %2")
                                .arg(FPreferences.TPTIndex() + 1)
                                .arg(FPreferences.TPTs().size()));
}

void TSettingsForm::edtTPTZusatzText1PropertiesEditValueChanged(const QString& AText) {
    FPreferences.SetTPTName(AText);
    UpdateButtons();
}

void TSettingsForm::cmdNextClick() {
    const auto ask = [this](const QString& ATitle, const QString& AText, const QStringList& AChoices) {
        return TnvDialogs::AskChoice(this, ATitle, AText, AChoices);
    };
    if (FPreferences.NextClick(EditTexts(), ask))
        ShowTPTAfter(cmdNext);
}

void TSettingsForm::cmdPrevClick() {
    FPreferences.PrevClick(EditTexts());
    ShowTPTAfter(cmdPrev);
}

void TSettingsForm::cmdRemoveClick() {
    FPreferences.RemoveClick();
    ShowTPTAfter(cmdRemove);
}

void TSettingsForm::ShowTPTAfter(QPushButton* APressed) {
    ShowTPT();
    // A button that went grey would hand the focus on to the outbox folder; the therapist
    // now shown is what the user goes on with, above all a new one to be typed in.
    if (!APressed->isEnabled())
        edtTPTZusatzText1->setFocus();
}

void TSettingsForm::edtExportFolderButtonClick() {
    const QString folder = TnvDialogs::GetExistingDirectory(this, QStringLiteral("Ausgangsverzeichnis"),
                                                            edtExportFolder->text());
    if (!folder.isEmpty())
        edtExportFolder->setText(folder);
}

void TSettingsForm::edtExecutableButtonClick() {
    const TFileDialogRequest request{QStringLiteral("Ausführbare Datei"),
                                     StartFolder(*edtExecutable),
                                     {QStringLiteral("Ausführbare Dateien (*.exe)"),
                                      QStringLiteral("Commandezeilen Dateien (*.bat *.cmd)")},
                                     QStringLiteral("exe"),
                                     true,
                                     true};
    const QString file = TnvDialogs::GetOpenFileName(this, request);
    if (!file.isEmpty())
        edtExecutable->setText(file);
}

void TSettingsForm::edtDOCXTemplateButtonClick() {
    const TFileDialogRequest request{QStringLiteral("Rückmeldebogen Vorlage"),
                                     StartFolder(*edtDOCXTemplate),
                                     {DocxFilter, AllFilesFilter},
                                     QStringLiteral("docx"),
                                     true,
                                     true};
    const QString file = TnvDialogs::GetOpenFileName(this, request);
    if (!file.isEmpty())
        edtDOCXTemplate->setText(file);
}

void TSettingsForm::cmdSaveTemplateClick() {
    const TFileDialogRequest request{QStringLiteral("Musterdokument speichern"),
                                     StartFolder(*edtDOCXTemplate),
                                     {DocxFilter, AllFilesFilter},
                                     QStringLiteral("docx"),
                                     false,
                                     true};
    const QString file = TnvDialogs::GetSaveFileName(this, request);
    if (file.isEmpty())
        return;
    QString error;
    if (!TSettingsPreferences::WriteTemplate(file, error)) {
        TnvDialogs::ShowError(this, TemplateWriteError.arg(error));
        return;
    }
    if (edtDOCXTemplate->text().isEmpty())
        edtDOCXTemplate->setText(file);
    if (chkAutoOpen->isChecked())
        TnvDialogs::OpenWithDesktop(file);
}

void TSettingsForm::cmdCheckUpdateClick() {
    if (FOnCheckUpdate)
        FOnCheckUpdate();
}

void TSettingsForm::actButtonClick(TWizardButton AButton) {
    if (AButton == TWizardButton::Cancel)
        close();
    else
        SaveAndClose();
}

bool TSettingsForm::SaveAndClose() {
    InvDBConnection* conn = FConnection ? FConnection() : nullptr;
    if (!conn) {
        TnvDialogs::ShowError(this, NoDatabaseError);
        return false;
    }
    try {
        FPreferences.Save(*conn, EditTexts(), DaMeTexts());
    } catch (const std::exception& AError) {
        TnvDialogs::ShowError(this, QString::fromUtf8(AError.what()));
        return false;
    }
    close();
    return true;
}

void TSettingsForm::closeEvent(QCloseEvent* AEvent) {
    TScaleForm::closeEvent(AEvent);
    if (AEvent->isAccepted() && SettingsForm == this)
        SettingsForm = nullptr;
}

TSettingsForm* OpenSettings(const TConnectionSource& AConnection,
                            const std::function<void()>& AOnCheckUpdate) {
    if (!SettingsForm)
        SettingsForm = new TSettingsForm(AConnection);
    TSettingsForm* form = SettingsForm;
    form->SetOnCheckUpdate(AOnCheckUpdate);
    try {
        form->LoadPreferences();
    } catch (const std::exception& AError) {
        TnvDialogs::ShowError(form, QString::fromUtf8(AError.what()));
        form->close();
        return nullptr;
    }
    return form;
}
