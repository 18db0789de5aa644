#include "RuntimeFolder.h"

#include <QDir>
#include <QFile>
#include <unistd.h>

namespace platform {

void ensureRuntimeFolder() {
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString folder = QDir::temp().filePath(QStringLiteral("orvenna-runtime-%1").arg(getuid()));
    if (!QDir().mkpath(folder))
        return;
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder));
}

} // namespace platform
