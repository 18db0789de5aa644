#pragma once

#include "TnvEventHolder.h"

namespace norvik {

// The event every scaled form subscribes to while it lives.
constexpr int FormEventNumber = 67002;

// Units that know nothing of each other meet through numbered events: a subscriber registers
// a handler for a number, and whoever fires the number reaches every subscriber of it.

// a handler already registered for the number is not added twice
void RegisterEvent(int AEventNumber, const TnvEventMethod& AMethod);
// removes every registration of the handler for the number
void UnregisterEvent(int AEventNumber, const TnvEventMethod& AMethod);
// calls the subscribers of the number in order of registration; a handler unregistered by an
// earlier one of the same firing is not called, one registered meanwhile hears the next firing
void FireEvent(QObject* ASender, int AEventNumber);
int RegisteredEventCount(int AEventNumber);

} // namespace norvik
