#include "MessageServerName.h"
#include "TestEnvironment.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QLocalSocket>
#include <QProcess>
#include <QProcessEnvironment>
#include <QThread>
#include <gtest/gtest.h>

namespace {

// a user name of its own, so that the test neither meets nor closes another running program
const QString TestUser = QStringLiteral("start-test-%1").arg(QCoreApplication::applicationPid());

QProcessEnvironment ProgramEnvironment() {
    const QString runtime = QDir(testsupport::sandboxPath()).filePath(QStringLiteral("runtime"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    environment.insert(QStringLiteral("USER"), TestUser);
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    return environment;
}

// sends one named message to the running program, trying until it listens; gives its answer
QByteArray SendWhenListening(const QByteArray& AMessage) {
    const QDeadlineTimer deadline(20000);
    while (!deadline.hasExpired()) {
        QLocalSocket socket;
        socket.connectToServer(platform::messageServerNameFor(TestUser));
        if (socket.waitForConnected(500)) {
            socket.write(AMessage + '\n');
            socket.waitForBytesWritten(2000);
            return socket.waitForReadyRead(5000) ? socket.readLine().trimmed() : QByteArray();
        }
        QThread::msleep(100);
    }
    return {};
}

// The program comes up with its main window and runs until another program of the same user
// asks it to close.
TEST(ProgramStartTest, RunsUntilAskedToCloseAndEndsCleanly) {
    const QString configHome =
        QProcessEnvironment::systemEnvironment().value(QStringLiteral("XDG_CONFIG_HOME"));
    ASSERT_TRUE(configHome.startsWith(testsupport::sandboxPath()));
    QDir(configHome).rmdir(QStringLiteral("tarnwick"));
    QProcess program;
    program.setProcessEnvironment(ProgramEnvironment());
    program.start(QStringLiteral(ORVENNA_PROGRAM_PATH),
                  {QStringLiteral("/rc:1"), QStringLiteral("/q"), QStringLiteral("loose")});
    ASSERT_TRUE(program.waitForStarted());
    EXPECT_EQ(SendWhenListening("CloseMyApplication"), QByteArray("OK"));
    const bool ended = program.waitForFinished(20000);
    if (!ended)
        program.kill();
    ASSERT_TRUE(ended);
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_TRUE(program.readAllStandardOutput().isEmpty());
    EXPECT_TRUE(QFileInfo(QDir(configHome).filePath(QStringLiteral("tarnwick"))).isDir());
}

} // namespace
