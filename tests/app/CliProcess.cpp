#include "CliProcess.h"

#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <gtest/gtest.h>

namespace {

// A private runtime folder, so that a program with a GUI application object has no reason to
// complain on standard error about a missing one.
QProcessEnvironment programEnvironment() {
    const QString runtime = QDir(testsupport::sandboxPath()).filePath(QStringLiteral("runtime"));
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    return environment;
}

} // namespace

ProcessRun runProgram(const QString& program, const QStringList& arguments, const QByteArray& input,
                      const QString& workingFolder) {
    QProcess process;
    process.setProcessEnvironment(programEnvironment());
    if (!workingFolder.isEmpty())
        process.setWorkingDirectory(workingFolder);
    process.start(program, arguments);
    if (!process.waitForStarted()) {
        ADD_FAILURE() << "cannot start " << program.toStdString();
        return {};
    }
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit) {
        ADD_FAILURE() << program.toStdString() << " did not end normally";
        process.kill();
        process.waitForFinished();
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
