#pragma once

#include <QString>
#include <QTemporaryDir>

namespace testsupport {

// A folder that lives as long as the object; files written into it are removed with it.
class TempDir {
public:
    TempDir();
    QString path() const { return m_dir.path(); }
    QString filePath(const QString& name) const { return m_dir.filePath(name); }
    // writes text as UTF-8 and gives the file's path
    QString writeFile(const QString& name, const QByteArray& content) const;

private:
    QTemporaryDir m_dir;
};

// Points the machine-wide data folder, the log folder and the user's configuration folder
// of the whole test program at one temporary folder, so that no test writes outside it.
void redirectProgramFolders();
QString sandboxPath();

} // namespace testsupport
