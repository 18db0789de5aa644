#pragma once

#include <QByteArray>
#include <QHash>
#include <QLocalServer>
#include <QObject>
#include <QPointer>

class QLocalSocket;

namespace norvik {

// Takes named messages from other programs of the same machine through a local socket and
// posts them to a receiver, the program's main window. A client writes one message per line,
// UTF-8, as "name" or "name:argument", and gets a line back for each: "OK" when the message
// was posted, "ERR " and the reason when not.
class TnvMessageServer : public QObject {
public:
    // a longer line is refused and its connection closed, so that no client fills the memory
    static constexpr int MaxLineLength = 64 * 1024;

    explicit TnvMessageServer(QObject* AReceiver, QObject* AParent = nullptr);
    ~TnvMessageServer() override;

    // False when another running program already listens on the name, or the socket cannot be
    // made. A socket left behind by a program that ended without closing it is taken over.
    bool Listen(const QString& AServerName);
    void Close();
    bool IsListening() const { return FServer.isListening(); }
    QString ServerName() const { return FServer.serverName(); }

    // the answer to one line, without the line end; posts the message when it is valid
    QByteArray HandleLine(const QByteArray& ALine);

private:
    QLocalServer FServer;
    QPointer<QObject> FReceiver;
    QHash<QLocalSocket*, QByteArray> FPending;

    void AcceptConnections();
    void ReadLines(QLocalSocket* ASocket);
    void Reply(QLocalSocket* ASocket, const QByteArray& AAnswer);
};

} // namespace norvik
