#include "TestEnvironment.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

namespace testsupport {

TempDir::TempDir() {
    if (!m_dir.isValid())
        ADD_FAILURE() << "cannot create a temporary folder";
}

QString TempDir::writeFile(const QString& name, const QByteArray& content) const {
    const QString path = filePath(name);
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        ADD_FAILURE() << "cannot write " << path.toStdString();
    return path;
}

namespace {

QTemporaryDir& sandbox() {
    static QTemporaryDir dir;
    return dir;
}

} // namespace

void redirectProgramFolders() {
    const QString root = sandbox().path();
    for (const char* sub : {"common", "logs", "config"})
        QDir(root).mkpath(QString::fromLatin1(sub));
    qputenv("ORVENNA_COMMON_APPDATA", QDir(root).filePath(QStringLiteral("common")).toUtf8());
    qputenv("ORVENNA_LOG_DIR", QDir(root).filePath(QStringLiteral("logs")).toUtf8());
    qputenv("XDG_CONFIG_HOME", QDir(root).filePath(QStringLiteral("config")).toUtf8());
}

QString sandboxPath() {
    return sandbox().path();
}

} // namespace testsupport
