#pragma once

#include "TnvDialogs.h"

#include <QList>
#include <QQueue>
#include <QString>
#include <QStringList>
#include <functional>

namespace testsupport {

// Stands in for the user at every dialog while it lives: it writes down each message and
// gives the answers queued beforehand. An answer that was not queued is a cancel.
class ScriptedDialogs {
public:
    struct Message {
        // "error", "information" or "choice"
        QString Kind;
        QString Text;
        QString Details;
    };

    ScriptedDialogs();
    ~ScriptedDialogs();
    ScriptedDialogs(const ScriptedDialogs&) = delete;
    ScriptedDialogs& operator=(const ScriptedDialogs&) = delete;

    // the index of the answer to the next choice
    void AnswerChoice(int AIndex) { FChoices.enqueue(AIndex); }
    // the path the next open, save or folder dialog gives
    void AnswerFile(const QString& APath) { FFiles.enqueue(APath); }
    // what the next modal dialog does; it gets the dialog and gives the result code
    void AnswerExec(std::function<int(QDialog&)> AAnswer) { FExecs.enqueue(std::move(AAnswer)); }

    const QList<Message>& Messages() const { return FMessages; }
    QStringList Texts(const QString& AKind) const;
    // the requests the file dialogs were opened with
    const QList<norvik::TFileDialogRequest>& FileRequests() const { return FFileRequests; }
    const QStringList& OpenedWithDesktop() const { return FOpened; }
    int ExecCount() const { return FExecCount; }

private:
    norvik::TnvDialogs::THooks FSaved;
    QList<Message> FMessages;
    QQueue<int> FChoices;
    QQueue<QString> FFiles;
    QQueue<std::function<int(QDialog&)>> FExecs;
    QList<norvik::TFileDialogRequest> FFileRequests;
    QStringList FOpened;
    int FExecCount = 0;

    QString NextFile();
};

} // namespace testsupport
