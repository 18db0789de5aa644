#include "PlatformPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

namespace platform {

namespace {

QString fromEnvironment(const char* name) {
    return QDir::cleanPath(qEnvironmentVariable(name));
}

QString executablePath() {
    if (QCoreApplication::instance())
        return QCoreApplication::applicationFilePath();
    // before the application object exists the kernel still knows who we are
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath();
}

} // namespace

QString commonAppDataDir() {
    if (qEnvironmentVariableIsSet("ORVENNA_COMMON_APPDATA"))
        return fromEnvironment("ORVENNA_COMMON_APPDATA");
    return QStringLiteral("/var/lib");
}

QString userAppDataDir() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
}

QString programDir() {
    return QFileInfo(executablePath()).absolutePath();
}

QString logDir() {
    if (qEnvironmentVariableIsSet("ORVENNA_LOG_DIR"))
        return fromEnvironment("ORVENNA_LOG_DIR");
    return programDir();
}

} // namespace platform
