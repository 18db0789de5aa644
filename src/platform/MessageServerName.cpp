#include "MessageServerName.h"

#include <unistd.h>

namespace platform {

namespace {

QString loginName() {
    for (const char* variable : {"USER", "LOGNAME"}) {
        const QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty())
            return name;
    }
    // without the variables, as from a service, the user ID still tells users apart
    return QString::number(getuid());
}

bool allowedInName(QChar c) {
    return (c.unicode() < 128 && c.isLetterOrNumber()) || c == u'.' || c == u'_' || c == u'-';
}

} // namespace

QString messageServerName() {
    return messageServerNameFor(loginName());
}

QString messageServerNameFor(const QString& userName) {
    QString name = userName;
    for (QChar& c : name) {
        if (!allowedInName(c))
            c = u'_';
    }
    return QStringLiteral("orvenna-") + name;
}

} // namespace platform
