#include "TnvDialogs.h"

#include "AppUtils.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QUrl>

namespace norvik {

namespace {

QString Title() {
    return ApplicationTitle();
}

void ShowBox(QWidget* AParent, QMessageBox::Icon AIcon, const QString& AText, const QString& ADetails) {
    QMessageBox box(AIcon, Title(), AText, QMessageBox::Ok, AParent);
    box.setDetailedText(ADetails);
    box.exec();
}

int ChoiceBox(QWidget* AParent, const QString& ATitle, const QString& AText, const QStringList& AChoices) {
    QMessageBox box(QMessageBox::Question, ATitle, AText, QMessageBox::NoButton, AParent);
    QList<QAbstractButton*> buttons;
    for (const QString& choice : AChoices)
        buttons.append(box.addButton(choice, QMessageBox::AcceptRole));
    box.exec();
    return int(buttons.indexOf(box.clickedButton()));
}

QFileDialog::Options SaveOptions(const TFileDialogRequest& ARequest) {
    return ARequest.ConfirmOverwrite ? QFileDialog::Options() : QFileDialog::DontConfirmOverwrite;
}

QString RunFileDialog(QWidget* AParent, const TFileDialogRequest& ARequest, QFileDialog::AcceptMode AMode) {
    QFileDialog dialog(AParent, ARequest.Caption, ARequest.Directory);
    dialog.setAcceptMode(AMode);
    dialog.setNameFilters(ARequest.Filters);
    dialog.setDefaultSuffix(ARequest.DefaultSuffix);
    if (AMode == QFileDialog::AcceptOpen)
        dialog.setFileMode(ARequest.MustExist ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    else
        dialog.setOptions(SaveOptions(ARequest));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    return dialog.selectedFiles().constFirst();
}

} // namespace

TnvDialogs::THooks TnvDialogs::DefaultHooks() {
    THooks hooks;
    hooks.Error = [](QWidget* AParent, const QString& AText) {
        ShowBox(AParent, QMessageBox::Critical, AText, QString());
    };
    hooks.ErrorWithDetails = [](QWidget* AParent, const QString& AText, const QString& ADetails) {
        ShowBox(AParent, QMessageBox::Critical, AText, ADetails);
    };
    hooks.Information = [](QWidget* AParent, const QString& AText) {
        ShowBox(AParent, QMessageBox::Information, AText, QString());
    };
    hooks.Choice = ChoiceBox;
    hooks.OpenFile = [](QWidget* AParent, const TFileDialogRequest& ARequest) {
        return RunFileDialog(AParent, ARequest, QFileDialog::AcceptOpen);
    };
    hooks.SaveFile = [](QWidget* AParent, const TFileDialogRequest& ARequest) {
        return RunFileDialog(AParent, ARequest, QFileDialog::AcceptSave);
    };
    hooks.Folder = [](QWidget* AParent, const QString& ACaption, const QString& ADirectory) {
        return QFileDialog::getExistingDirectory(AParent, ACaption, ADirectory);
    };
    hooks.OpenWithDesktop = [](const QString& APath) {
        return QDesktopServices::openUrl(QUrl::fromLocalFile(APath));
    };
    hooks.Exec = [](QDialog& ADialog) { return ADialog.exec(); };
    return hooks;
}

TnvDialogs::THooks& TnvDialogs::Hooks() {
    static THooks hooks = DefaultHooks();
    return hooks;
}

void TnvDialogs::ShowError(QWidget* AParent, const QString& AText) {
    Hooks().Error(AParent, AText);
}

void TnvDialogs::ShowErrorWithDetails(QWidget* AParent, const QString& AText, const QString& ADetails) {
    Hooks().ErrorWithDetails(AParent, AText, ADetails);
}

void TnvDialogs::ShowInformation(QWidget* AParent, const QString& AText) {
    Hooks().Information(AParent, AText);
}

int TnvDialogs::AskChoice(QWidget* AParent, const QString& ATitle, const QString& AText,
                          const QStringList& AChoices) {
    return Hooks().Choice(AParent, ATitle, AText, AChoices);
}

QString TnvDialogs::GetOpenFileName(QWidget* AParent, const TFileDialogRequest& ARequest) {
    return Hooks().OpenFile(AParent, ARequest);
}

QString TnvDialogs::GetSaveFileName(QWidget* AParent, const TFileDialogRequest& ARequest) {
    return Hooks().SaveFile(AParent, ARequest);
}

QString TnvDialogs::GetExistingDirectory(QWidget* AParent, const QString& ACaption,
                                         const QString& ADirectory) {
    return Hooks().Folder(AParent, ACaption, ADirectory);
}

bool TnvDialogs::OpenWithDesktop(const QString& APath) {
    return Hooks().OpenWithDesktop(APath);
}

int TnvDialogs::Exec(QDialog& ADialog) {
    return Hooks().Exec(ADialog);
}

} // namespace norvik
