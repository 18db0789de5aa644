#include "AppUtils.h"

#include "PlatformPaths.h"

#include <QDir>

namespace norvik {

bool DevelopingMode = false;

TParamTable& AppParams() {
    static TParamTable table;
    return table;
}

void FillAppParams(const QStringList& arguments) {
    AppParams().fill(arguments, TParamTable::Positional::Drop);
    DevelopingMode = AppParams().indexOfLine(QStringLiteral("DEVELOPING")) >= 0;
}

QString GetAppParam(const QString& name) {
    return AppParams().value(name);
}

bool HasAppParam(const QString& name) {
    return !GetAppParam(name).isEmpty();
}

namespace {

QString& TitleOfApplication() {
    static QString title;
    return title;
}

} // namespace

QString ApplicationTitle() {
    return TitleOfApplication();
}

void SetApplicationTitle(const QString& title) {
    TitleOfApplication() = title;
}

QString GetFileVersionText() {
    return QStringLiteral("%1.%2.%3.%4")
        .arg(ORVENNA_VERSION_MAJOR)
        .arg(ORVENNA_VERSION_MINOR)
        .arg(ORVENNA_VERSION_PATCH)
        .arg(ORVENNA_VERSION_TWEAK);
}

namespace {

// a part that is no number counts as 0
qint64 versionPart(const QString& text) {
    bool ok = false;
    const int number = text.toInt(&ok);
    return ok ? number : 0;
}

// at most ten digits padded with zeros, the sign in front of them
QString numberText(qint64 number) {
    const QString digits = QStringLiteral("%1").arg(number < 0 ? -number : number, 10, 10, QLatin1Char('0'));
    return number < 0 ? QLatin1Char('-') + digits : digits;
}

} // namespace

QString VersionToNumberText(const QString& version) {
    // The fourth part is whatever follows the third point, so "1.2.3.4.5" has the part "4.5",
    // which is no number.
    const QStringList parts = version.split(QLatin1Char('.'));
    const QString last = parts.mid(3).join(QLatin1Char('.'));
    const qint64 number = versionPart(parts.value(0)) * 10000000 + versionPart(parts.value(1)) * 100000 +
                          versionPart(parts.value(2)) * 1000 + versionPart(last);
    return numberText(number);
}

QString UserDataFolder() {
    return QDir(platform::userAppDataDir()).filePath(QStringLiteral("tarnwick"));
}

void CreateUserDataFolder() {
    QDir().mkpath(UserDataFolder());
}

} // namespace norvik
