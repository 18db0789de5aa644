#include "ScriptedDialogs.h"

#include <QDialog>

namespace testsupport {

using norvik::TFileDialogRequest;
using norvik::TnvDialogs;

ScriptedDialogs::ScriptedDialogs()
    : FSaved(TnvDialogs::Hooks()) {
    TnvDialogs::THooks& hooks = TnvDialogs::Hooks();
    hooks.Error = [this](QWidget*, const QString& AText) {
        FMessages.append({QStringLiteral("error"), AText, QString()});
    };
    hooks.ErrorWithDetails = [this](QWidget*, const QString& AText, const QString& ADetails) {
        FMessages.append({QStringLiteral("error"), AText, ADetails});
    };
    hooks.Information = [this](QWidget*, const QString& AText) {
        FMessages.append({QStringLiteral("information"), AText, QString()});
    };
    hooks.Choice = [this](QWidget*, const QString&, const QString& AText, const QStringList&) {
        FMessages.append({QStringLiteral("choice"), AText, QString()});
        return FChoices.isEmpty() ? -1 : FChoices.dequeue();
    };
    const auto file = [this](QWidget*, const TFileDialogRequest& ARequest) {
        FFileRequests.append(ARequest);
        return NextFile();
    };
    hooks.OpenFile = file;
    hooks.SaveFile = file;
    hooks.Folder = [this](QWidget*, const QString& ACaption, const QString& ADirectory) {
        FFileRequests.append(TFileDialogRequest{ACaption, ADirectory, {}, {}, true, false});
        return NextFile();
    };
    hooks.OpenWithDesktop = [this](const QString& APath) {
        FOpened.append(APath);
        return true;
    };
    hooks.Exec = [this](QDialog& ADialog) {
        ++FExecCount;
        return FExecs.isEmpty() ? int(QDialog::Rejected) : FExecs.dequeue()(ADialog);
    };
}

ScriptedDialogs::~ScriptedDialogs() {
    TnvDialogs::Hooks() = FSaved;
}

QStringList ScriptedDialogs::Texts(const QString& AKind) const {
    QStringList texts;
    for (const Message& message : FMessages)
        if (message.Kind == AKind)
            texts.append(message.Text);
    return texts;
}

QString ScriptedDialogs::NextFile() {
    return FFiles.isEmpty() ? QString() : FFiles.dequeue();
}

} // namespace testsupport
