#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QDialog;
class QWidget;

namespace norvik {

// What a file dialog is asked for. Filters are Qt's name filters, "Text (*.txt)" and the like.
struct TFileDialogRequest {
    QString Caption;
    QString Directory;
    QStringList Filters;
    // added to a typed name without one, without its dot: "docx"
    QString DefaultSuffix;
    // an open dialog only accepts a file that exists
    bool MustExist = true;
    // a save dialog asks before it replaces a file
    bool ConfirmOverwrite = true;
};

// Every message box, file dialog and modal dialog of the program goes through here, so that a
// headless run or a test can give the answers the user would have given. The defaults are the
// toolkit's own dialogs.
class TnvDialogs {
public:
    struct THooks {
        std::function<void(QWidget* AParent, const QString& AText)> Error;
        // the details stand behind a button, so the message itself stays short
        std::function<void(QWidget* AParent, const QString& AText, const QString& ADetails)> ErrorWithDetails;
        std::function<void(QWidget* AParent, const QString& AText)> Information;
        // the index of the chosen answer; -1 when the dialog was closed without one
        std::function<int(QWidget* AParent, const QString& ATitle, const QString& AText,
                          const QStringList& AChoices)>
            Choice;
        // the chosen path, or empty when the user cancelled
        std::function<QString(QWidget* AParent, const TFileDialogRequest& ARequest)> OpenFile;
        std::function<QString(QWidget* AParent, const TFileDialogRequest& ARequest)> SaveFile;
        std::function<QString(QWidget* AParent, const QString& ACaption, const QString& ADirectory)> Folder;
        // hands a file to the program the desktop associates with it
        std::function<bool(const QString& APath)> OpenWithDesktop;
        // runs a modal dialog, such as the print preview; gives its result code
        std::function<int(QDialog& ADialog)> Exec;
    };

    // the hooks of the process; assigning a default-made THooks brings back the toolkit's dialogs
    static THooks& Hooks();
    static THooks DefaultHooks();

    static void ShowError(QWidget* AParent, const QString& AText);
    static void ShowErrorWithDetails(QWidget* AParent, const QString& AText, const QString& ADetails);
    static void ShowInformation(QWidget* AParent, const QString& AText);
    static int AskChoice(QWidget* AParent, const QString& ATitle, const QString& AText,
                         const QStringList& AChoices);
    static QString GetOpenFileName(QWidget* AParent, const TFileDialogRequest& ARequest);
    static QString GetSaveFileName(QWidget* AParent, const TFileDialogRequest& ARequest);
    static QString GetExistingDirectory(QWidget* AParent, const QString& ACaption, const QString& ADirectory);
    static bool OpenWithDesktop(const QString& APath);
    static int Exec(QDialog& ADialog);
};

} // namespace norvik
