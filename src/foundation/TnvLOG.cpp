#include "TnvLOG.h"

#include "AnsiCodePage.h"
#include "Clock.h"
#include "DebugLog.h"
#include "ExceptionClassName.h"
#include "FormatText.h"

#include <QFile>
#include <QSysInfo>

namespace norvik {

namespace {

const QLatin1String LineEnd("\r\n");
// the system calls that give the names take a buffer of this size
constexpr int NameBufferSize = 255;

QString LogTimeStamp() {
    return Clock::now().toString(QStringLiteral("dd.MM.yyyy HH:mm:ss"));
}

QString LoginName() {
    const QString user = qEnvironmentVariable("USER");
    return (user.isEmpty() ? qEnvironmentVariable("LOGNAME") : user).left(NameBufferSize);
}

} // namespace

TnvLOG::TnvLOG(QObject* AOwner)
    : QObject(AOwner) {}

void TnvLOG::SetIndent(int AValue) {
    FIndent = qMax(AValue, 0);
}

void TnvLOG::Log(const QString& AText, bool ATimeStamp) {
    QString line = QString(FIndent, u' ') + FPrefix + AText;
    if (ATimeStamp)
        line.prepend(LogTimeStamp() + QLatin1String("  "));
    AddLine(line);
}

void TnvLOG::Log(const QString& AFormat, std::initializer_list<Variant> AArgs, bool ATimeStamp) {
    QString text;
    try {
        text = FormatText(AFormat, AArgs);
    } catch (const std::exception& error) {
        Log(QStringLiteral("Exception: ") + QString::fromUtf8(error.what()), ATimeStamp);
        return;
    }
    Log(text, ATimeStamp);
}

void TnvLOG::Log(const std::exception* AException) {
    if (!AException)
        return;
    Log(QStringLiteral("Exception: %1  -  %2")
            .arg(ExceptionClassName(*AException), QString::fromUtf8(AException->what())),
        true);
}

void TnvLOG::Log2(const QString& AText, bool ANewLine) {
    if (ANewLine || FLines.isEmpty()) {
        AddLine(AText);
        return;
    }
    FLines.last().append(u' ' + AText);
    Changed();
}

void TnvLOG::Log2(const QString& AFormat, std::initializer_list<Variant> AArgs, bool ANewLine) {
    QString text;
    try {
        text = FormatText(AFormat, AArgs);
    } catch (const std::exception& error) {
        Log2(QStringLiteral("LogException: ") + QString::fromUtf8(error.what()), ANewLine);
        return;
    }
    Log2(text, ANewLine);
}

void TnvLOG::LogCR() {
    AddLine(QString());
}

void TnvLOG::LogLine() {
    AddLine(QString(RulerWidth, u'-'));
}

void TnvLOG::CreateLogHeader(const QString& ATitle) {
    LogLine();
    Log(ATitle);
    Log(QString(), true);
    Log(QStringLiteral("Benutzername: ") + FUserName);
    Log(QStringLiteral("Computername: ") + QSysInfo::machineHostName().left(NameBufferSize));
    Log(QStringLiteral("Windows Anmeldung: ") + LoginName());
    LogLine();
}

void TnvLOG::CreateLogFooter(const QString& AText) {
    LogLine();
    Log(AText, true);
    LogLine();
}

void TnvLOG::IncrementIndent() {
    SetIndent(FIndent + IndentStep);
}

void TnvLOG::DecrementIndent() {
    SetIndent(FIndent - IndentStep);
}

void TnvLOG::Clear() {
    FIndent = 0;
    ClearLog();
}

void TnvLOG::ClearLog() {
    FLines.clear();
    Changed();
}

void TnvLOG::SaveLogToFile(const QString& AFileName) const {
    QFile file(AFileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw EDebugFileError(
            QStringLiteral("Cannot create file \"%1\". %2").arg(AFileName, file.errorString()));
    SaveLogToStream(file);
}

void TnvLOG::SaveLogToStream(QIODevice& AStream) const {
    const QByteArray bytes = platform::AnsiCodePage::encode(ToString());
    if (AStream.write(bytes) != bytes.size())
        throw EDebugFileError(QStringLiteral("Cannot write the log. %1").arg(AStream.errorString()));
}

QString TnvLOG::ToString() const {
    QString text;
    for (const QString& line : FLines)
        text += line + LineEnd;
    return text;
}

void TnvLOG::AddLine(const QString& ALine) {
    FLines.append(ALine);
    Changed();
}

void TnvLOG::Changed() {
    if (OnChange)
        OnChange(this);
}

} // namespace norvik
