#include "TnvMessageServer.h"

#include "NamedMessages.h"
#include "TnvNamedMessageEvent.h"

#include <QLocalSocket>
#include <QStringDecoder>

namespace norvik {

namespace {

// how long a start waits to learn whether the program that made the socket still runs
constexpr int ProbeTimeoutMs = 500;

bool AnotherServerAnswers(const QString& AServerName) {
    QLocalSocket probe;
    probe.connectToServer(AServerName);
    return probe.waitForConnected(ProbeTimeoutMs);
}

} // namespace

TnvMessageServer::TnvMessageServer(QObject* AReceiver, QObject* AParent)
    : QObject(AParent)
    , FReceiver(AReceiver) {
    // only the user who started the program may send it messages
    FServer.setSocketOptions(QLocalServer::UserAccessOption);
    connect(&FServer, &QLocalServer::newConnection, this, &TnvMessageServer::AcceptConnections);
}

TnvMessageServer::~TnvMessageServer() {
    // the connections go with the server; none of their signals may reach this half-destroyed
    // object
    for (QLocalSocket* socket : FServer.findChildren<QLocalSocket*>())
        disconnect(socket, nullptr, this, nullptr);
}

bool TnvMessageServer::Listen(const QString& AServerName) {
    // asked first: the server would otherwise replace the socket of a running program
    if (AnotherServerAnswers(AServerName))
        return false;
    if (FServer.listen(AServerName))
        return true;
    if (FServer.serverError() != QAbstractSocket::AddressInUseError)
        return false;
    QLocalServer::removeServer(AServerName);
    return FServer.listen(AServerName);
}

void TnvMessageServer::Close() {
    FServer.close();
}

QByteArray TnvMessageServer::HandleLine(const QByteArray& ALine) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString line = decoder.decode(ALine);
    if (decoder.hasError())
        return QByteArrayLiteral("ERR invalid UTF-8");
    const qsizetype colon = line.indexOf(u':');
    const QString name = line.left(colon).trimmed();
    const QString argument = colon < 0 ? QString() : line.mid(colon + 1);
    if (name.isEmpty())
        return QByteArrayLiteral("ERR empty message name");
    if (NamedMessageType(name) == QEvent::None)
        return QByteArrayLiteral("ERR unknown message");
    if (!PostNamedMessage(FReceiver, name, argument))
        return QByteArrayLiteral("ERR no receiver");
    return QByteArrayLiteral("OK");
}

void TnvMessageServer::AcceptConnections() {
    while (QLocalSocket* socket = FServer.nextPendingConnection()) {
        connect(socket, &QLocalSocket::readyRead, this, [this, socket] { ReadLines(socket); });
        connect(socket, &QLocalSocket::disconnected, this, [this, socket] {
            FPending.remove(socket);
            socket->deleteLater();
        });
        if (socket->bytesAvailable() > 0)
            ReadLines(socket);
    }
}

void TnvMessageServer::ReadLines(QLocalSocket* ASocket) {
    QByteArray& pending = FPending[ASocket];
    pending += ASocket->readAll();
    bool tooLong = false;
    qsizetype lineEnd;
    while (!tooLong && (lineEnd = pending.indexOf('\n')) >= 0) {
        QByteArray line = pending.left(lineEnd);
        pending.remove(0, lineEnd + 1);
        if (line.endsWith('\r'))
            line.chop(1);
        tooLong = line.size() > MaxLineLength;
        if (!tooLong)
            Reply(ASocket, HandleLine(line));
    }
    tooLong = tooLong || pending.size() > MaxLineLength;
    if (tooLong) {
        Reply(ASocket, QByteArrayLiteral("ERR line too long"));
        FPending.remove(ASocket);
        ASocket->disconnectFromServer();
    }
}

void TnvMessageServer::Reply(QLocalSocket* ASocket, const QByteArray& AAnswer) {
    ASocket->write(AAnswer + '\n');
    ASocket->flush();
}

} // namespace norvik
