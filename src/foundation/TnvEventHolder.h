#pragma once

#include "TnvMethod.h"

#include <QObject>

namespace norvik {

using TnvEventMethod = TnvMethod<void(QObject* Sender, int AEventNumber)>;

// One subscription of the global event list: a handler that hears of one event number.
struct TnvEventHolder {
    int EventNumber = 0;
    TnvEventMethod Method;
};

} // namespace norvik
