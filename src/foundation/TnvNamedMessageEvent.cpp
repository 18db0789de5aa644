#include "TnvNamedMessageEvent.h"

#include "NamedMessages.h"

#include <QCoreApplication>
#include <algorithm>

namespace norvik {

TnvNamedMessageEvent::TnvNamedMessageEvent(QEvent::Type AType, const QString& AName, const QString& AArgument)
    : QEvent(AType)
    , FName(AName)
    , FArgument(AArgument) {}

bool PostNamedMessage(QObject* AReceiver, const QString& AName, const QString& AArgument) {
    const QEvent::Type type = NamedMessageType(AName);
    if (!AReceiver || type == QEvent::None)
        return false;
    // the receiver sees the program's own spelling, whatever letter case the sender used
    const QStringList names = NamedMessages::All();
    const auto spelling = std::find_if(names.begin(), names.end(), [&](const QString& name) {
        return name.compare(AName, Qt::CaseInsensitive) == 0;
    });
    QCoreApplication::postEvent(AReceiver, new TnvNamedMessageEvent(type, *spelling, AArgument));
    return true;
}

} // namespace norvik
