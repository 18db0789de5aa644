#pragma once

#include "TnvMethod.h"

#include <QObject>
#include <QtGlobal>
#include <functional>

namespace norvik {

class TnvIdleActionCollection;
struct TnvIdleActionItem;

using TnvIdleProcessEvent = TnvMethod<void(TnvIdleActionCollection* ACollection, TnvIdleActionItem* AItem)>;
using TnvNotifyEvent = std::function<void(QObject* Sender)>;

// One delayed action of an idle queue. The queue recognises an action by its handler's code
// and its ID.
struct TnvIdleActionItem {
    static constexpr qint64 DefaultPriority = 10;
    static constexpr int DefaultDelay = 200;

    TnvIdleProcessEvent OnProcess;
    qint64 Priority = DefaultPriority;
    qint64 Tag = 0;
    qint64 ID = 0;
    // milliseconds the queue waits before it runs this item
    int Delay = DefaultDelay;
    TnvNotifyEvent Event;
    // a callback the item owns; it goes with the item
    std::function<void()> Proc;
};

} // namespace norvik
