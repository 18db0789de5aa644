#include "NamedMessages.h"

#include <QHash>

namespace norvik {

namespace {

QHash<QString, QEvent::Type>& RegisteredTypes() {
    static QHash<QString, QEvent::Type> types;
    return types;
}

} // namespace

QStringList NamedMessages::All() {
    return {FeedBackClose,       ResetFocus,         RefocusAgain,        OpenRecord,
            CloseToolsForUpdate, CloseMyApplication, EvaluateColorScheme, CheckSmartHelpDisplay};
}

QEvent::Type RegisterNamedMessage(const QString& AName) {
    const QString key = AName.toLower();
    auto& types = RegisteredTypes();
    auto found = types.constFind(key);
    if (found != types.constEnd())
        return *found;
    const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    types.insert(key, type);
    return type;
}

QEvent::Type NamedMessageType(const QString& AName) {
    const bool own = NamedMessages::All().contains(AName, Qt::CaseInsensitive);
    return own ? RegisterNamedMessage(AName) : QEvent::None;
}

void RegisterNamedMessages() {
    for (const QString& name : NamedMessages::All())
        RegisterNamedMessage(name);
}

} // namespace norvik
