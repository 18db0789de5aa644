#include "Events.h"

#include <algorithm>
#include <vector>

namespace norvik {

namespace {

std::vector<TnvEventHolder>& EventList() {
    static std::vector<TnvEventHolder> list;
    return list;
}

bool Matches(const TnvEventHolder& AHolder, int AEventNumber, const TnvEventMethod& AMethod) {
    return AHolder.EventNumber == AEventNumber && AHolder.Method.SameAs(AMethod);
}

} // namespace

void RegisterEvent(int AEventNumber, const TnvEventMethod& AMethod) {
    auto& list = EventList();
    const bool known = std::any_of(list.begin(), list.end(), [&](const TnvEventHolder& holder) {
        return Matches(holder, AEventNumber, AMethod);
    });
    if (!known)
        list.push_back({AEventNumber, AMethod});
}

void UnregisterEvent(int AEventNumber, const TnvEventMethod& AMethod) {
    auto& list = EventList();
    std::erase_if(list, [&](const TnvEventHolder& holder) { return Matches(holder, AEventNumber, AMethod); });
}

void FireEvent(QObject* ASender, int AEventNumber) {
    std::vector<TnvEventMethod> subscribers;
    for (const TnvEventHolder& holder : EventList()) {
        if (holder.EventNumber == AEventNumber)
            subscribers.push_back(holder.Method);
    }
    for (const TnvEventMethod& method : subscribers) {
        // a handler may have unregistered a later one in the meantime
        const bool stillRegistered =
            std::any_of(EventList().begin(), EventList().end(),
                        [&](const TnvEventHolder& h) { return Matches(h, AEventNumber, method); });
        if (stillRegistered && method)
            method.Call(ASender, AEventNumber);
    }
}

int RegisteredEventCount(int AEventNumber) {
    const auto& list = EventList();
    return static_cast<int>(std::count_if(
        list.begin(), list.end(), [=](const TnvEventHolder& h) { return h.EventNumber == AEventNumber; }));
}

} // namespace norvik
