#include "TnvIdleActionCollection.h"

#include <algorithm>

namespace norvik {

TnvIdleActionItem* TnvIdleActionCollection::Add(qint64 AID, qint64 APriority,
                                                const TnvIdleProcessEvent& AOnProcess) {
    if (TnvIdleActionItem* existing = FindItem(AID, AOnProcess.Code))
        return existing;
    auto item = std::make_shared<TnvIdleActionItem>();
    item->ID = AID;
    item->Priority = APriority;
    item->OnProcess = AOnProcess;
    const auto behindEqual = std::find_if(FItems.begin(), FItems.end(), [APriority](const auto& queued) {
        return queued->Priority > APriority;
    });
    return FItems.insert(behindEqual, std::move(item))->get();
}

TnvIdleActionItem* TnvIdleActionCollection::FindItem(qint64 AID, const void* ACode) const {
    const int index = FindItemIndex(AID, ACode);
    return index < 0 ? nullptr : FItems[index].get();
}

int TnvIdleActionCollection::FindItemIndex(qint64 AID, const void* ACode) const {
    for (int i = 0; i < Count(); ++i) {
        if (FItems[i]->ID == AID && FItems[i]->OnProcess.Code == ACode)
            return i;
    }
    return -1;
}

TnvIdleActionItem* TnvIdleActionCollection::FindItemID(qint64 AID) const {
    const auto found =
        std::find_if(FItems.begin(), FItems.end(), [AID](const auto& item) { return item->ID == AID; });
    return found == FItems.end() ? nullptr : found->get();
}

TnvIdleActionItem* TnvIdleActionCollection::GetItem(int AIndex) const {
    return ValidIndex(AIndex) ? FItems[AIndex].get() : nullptr;
}

void TnvIdleActionCollection::SetItem(int AIndex, const TnvIdleActionItem& AValue) {
    if (ValidIndex(AIndex))
        *FItems[AIndex] = AValue;
}

TnvIdleActionItem* TnvIdleActionCollection::Insert(int AIndex) {
    const int position = std::clamp(AIndex, 0, Count());
    return FItems.insert(FItems.begin() + position, std::make_shared<TnvIdleActionItem>())->get();
}

void TnvIdleActionCollection::RemoveItem(qint64 AID, const void* ACode) {
    Delete(FindItemIndex(AID, ACode));
}

void TnvIdleActionCollection::Delete(int AIndex) {
    if (ValidIndex(AIndex))
        FItems.erase(FItems.begin() + AIndex);
}

void TnvIdleActionCollection::Clear() {
    FItems.clear();
}

bool TnvIdleActionCollection::ProcessNextItem() {
    if (FItems.empty() || FInProcess)
        return true;
    // also when the handler raises, so that a failing action does not come round again
    class RunEnd {
    public:
        explicit RunEnd(TnvIdleActionCollection& AQueue)
            : FQueue(AQueue) {
            FQueue.FInProcess = true;
        }
        ~RunEnd() {
            FQueue.FInProcess = false;
            FQueue.Delete(0);
        }

    private:
        TnvIdleActionCollection& FQueue;
    };
    const std::shared_ptr<TnvIdleActionItem> running = FItems.front();
    // a copy: the handler may overwrite or remove its own item
    const TnvIdleProcessEvent onProcess = running->OnProcess;
    const RunEnd runEnd(*this);
    if (onProcess)
        onProcess.Call(this, running.get());
    return true;
}

} // namespace norvik
