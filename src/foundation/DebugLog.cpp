#include "DebugLog.h"

#include "AnsiCodePage.h"
#include "Clock.h"
#include "ExceptionClassName.h"
#include "FormatText.h"
#include "PlatformPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>

namespace norvik {

namespace {

struct DebugState {
    QString programFolder;
    QString baseName;
    int level = 0;
    QString debugFile;
    QString exceptionsFile;
    QString appDebugFile;
    QString workingFolder;
    QString sqlErrorFile;
};

const QLatin1String DebugLevelSwitch("/DEBUGLEVEL:");
const QLatin1String DebugFileSwitch("/DEBUGFILE:");
const QLatin1String AppDebugFileSwitch("/APPDEBUGFILE:");

QString InFolder(const QString& folder, const QString& name) {
    return CleanDebugPath(folder + u'/' + name);
}

void ApplySwitch(DebugState& state, const QString& argument) {
    const QString upper = argument.toUpper();
    if (upper.startsWith(DebugLevelSwitch)) {
        bool ok = false;
        const int level = argument.mid(DebugLevelSwitch.size()).toInt(&ok);
        state.level = ok ? level : 1;
    } else if (upper.startsWith(DebugFileSwitch)) {
        state.debugFile = CleanDebugPath(argument.mid(DebugFileSwitch.size()));
    } else if (upper.startsWith(AppDebugFileSwitch)) {
        state.appDebugFile = CleanDebugPath(argument.mid(AppDebugFileSwitch.size()));
    }
}

DebugState BuildState(const QStringList& arguments) {
    DebugState state;
    state.programFolder = CleanDebugPath(platform::logDir());
    state.baseName = QFileInfo(arguments.value(0)).completeBaseName();
    if (state.baseName.isEmpty())
        state.baseName = QStringLiteral("appdebug");
    state.debugFile = InFolder(state.programFolder, QStringLiteral("DEBUG.LOG"));
    state.exceptionsFile = InFolder(state.programFolder, QStringLiteral("EXCEPTIONS.LOG"));
    state.appDebugFile = InFolder(state.programFolder, state.baseName + QStringLiteral(".log"));
    state.workingFolder = InFolder(QDir::tempPath(), state.baseName);
    const QString sqlErrorFolder =
        QFileInfo(state.workingFolder).isDir() ? state.workingFolder : state.programFolder;
    state.sqlErrorFile = InFolder(sqlErrorFolder, QStringLiteral("sqlerrors.log"));
    for (qsizetype i = 1; i < arguments.size(); ++i)
        ApplySwitch(state, arguments.at(i));
    return state;
}

QMutex& DebugMutex() {
    static QMutex mutex;
    return mutex;
}

// callers hold DebugMutex
DebugState& State() {
    static DebugState state = BuildState(ProcessArguments());
    return state;
}

template <typename T> T Read(T DebugState::*member) {
    const QMutexLocker lock(&DebugMutex());
    return State().*member;
}

void WriteLine(const QString& fileName, const QString& line) {
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append))
        throw EDebugFileError(
            QStringLiteral("Cannot open file \"%1\". %2").arg(fileName, file.errorString()));
    const QByteArray bytes = platform::AnsiCodePage::encode(line);
    if (file.write(bytes) != bytes.size() || !file.flush())
        throw EDebugFileError(
            QStringLiteral("Cannot write file \"%1\". %2").arg(fileName, file.errorString()));
}

} // namespace

QString CleanDebugPath(const QString& path) {
    const bool networkPrefix = path.startsWith(QLatin1String("//"));
    QString cleaned = path;
    while (cleaned.contains(QLatin1String("//")))
        cleaned.replace(QLatin1String("//"), QLatin1String("/"));
    return networkPrefix ? u'/' + cleaned : cleaned;
}

QStringList ProcessArguments() {
    if (QCoreApplication::instance())
        return QCoreApplication::arguments();
    QFile cmdline(QStringLiteral("/proc/self/cmdline"));
    if (!cmdline.open(QIODevice::ReadOnly))
        return {};
    QStringList arguments;
    for (const QByteArray& argument : cmdline.readAll().split('\0'))
        arguments.append(QFile::decodeName(argument));
    // the record ends with a terminating zero, which leaves one empty piece behind
    if (!arguments.isEmpty() && arguments.last().isEmpty())
        arguments.removeLast();
    return arguments;
}

void InitDebugState(const QStringList& arguments) {
    DebugState state = BuildState(arguments);
    const QMutexLocker lock(&DebugMutex());
    State() = std::move(state);
}

int DebugLevel() {
    return Read(&DebugState::level);
}

QString ProgramFolder() {
    return Read(&DebugState::programFolder);
}

QString DebugBaseName() {
    return Read(&DebugState::baseName);
}

QString DebugFileName() {
    return Read(&DebugState::debugFile);
}

QString ExceptionsFileName() {
    return Read(&DebugState::exceptionsFile);
}

QString AppDebugFileName() {
    return Read(&DebugState::appDebugFile);
}

QString DebugWorkingFolder() {
    return Read(&DebugState::workingFolder);
}

QString SQLErrorFileName() {
    return Read(&DebugState::sqlErrorFile);
}

void DebugToFile(const QString& text, const QString& fileName, bool withTimeStamp, bool withLineEnd) {
    const QMutexLocker lock(&DebugMutex());
    const QString path =
        fileName.isEmpty() ? InFolder(platform::logDir(), QStringLiteral("Debug.txt")) : fileName;
    QString line = text;
    if (withTimeStamp)
        line.prepend(Clock::now().toString(QStringLiteral("dd.MM.yy HH:mm:ss ")));
    if (withLineEnd)
        line.append(QLatin1String("\r\n"));
    WriteLine(path, line);
}

void DebugLog(int level, const QString& text) {
    if (level > DebugLevel())
        return;
    DebugToFile(text, AppDebugFileName());
}

void DebugLog(int level, const QString& format, std::initializer_list<Variant> args) {
    if (level > DebugLevel())
        return;
    QString text;
    try {
        text = FormatText(format, args);
    } catch (const std::exception&) {
        text = QStringLiteral("Exception: ") + format;
    }
    DebugToFile(text, AppDebugFileName());
}

void LogSQLError(const std::exception* error, const QString& statement) {
    const QString fileName = SQLErrorFileName();
    if (fileName.isEmpty())
        return;
    const QString errorText =
        error ? QStringLiteral("%1 (%2)").arg(ExceptionClassName(*error), QString::fromUtf8(error->what()))
              : QString();
    const QString moment = Clock::now().toString(QStringLiteral("dd.MM.yyyy HH:mm:ss"));
    DebugToFile(
        QStringLiteral("Datum/Zeit: %1\r\nError: %2\r\nASQL:\r\n%3").arg(moment, errorText, statement),
        fileName);
}

} // namespace norvik
