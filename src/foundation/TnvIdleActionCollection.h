#pragma once

#include "TnvIdleActionItem.h"

#include <memory>
#include <vector>

namespace norvik {

// The queue of delayed actions a form works off while the user leaves it alone: sorted by
// priority, lower numbers first, ties in order of arrival. It runs one item per call of
// ProcessNextItem and never nests runs.
class TnvIdleActionCollection {
public:
    // an action already queued with the same handler code and ID is returned as it stands
    TnvIdleActionItem* Add(qint64 AID, qint64 APriority, const TnvIdleProcessEvent& AOnProcess);
    TnvIdleActionItem* FindItem(qint64 AID, const void* ACode) const;
    // -1 when no action has this handler code and ID
    int FindItemIndex(qint64 AID, const void* ACode) const;
    // the first action with this ID, whatever its handler
    TnvIdleActionItem* FindItemID(qint64 AID) const;
    TnvIdleActionItem* GetItem(int AIndex) const;
    // replaces the fields of the item at the position; the place in the queue stays
    void SetItem(int AIndex, const TnvIdleActionItem& AValue);
    // an empty item at the position, where the caller wants it regardless of priority
    TnvIdleActionItem* Insert(int AIndex);
    void RemoveItem(qint64 AID, const void* ACode);
    void Delete(int AIndex);
    void Clear();
    int Count() const { return static_cast<int>(FItems.size()); }
    bool IsEmpty() const { return FItems.empty(); }
    bool InProcessMode() const { return FInProcess; }

    // Runs the first item and then deletes the item at position 0, which is the item that
    // ran unless its handler queued one of lower priority number. Returns true; with an empty
    // queue or during a run it does nothing.
    bool ProcessNextItem();

private:
    // shared, so that an item whose handler removes it lives until the handler returns
    std::vector<std::shared_ptr<TnvIdleActionItem>> FItems;
    bool FInProcess = false;

    bool ValidIndex(int AIndex) const { return AIndex >= 0 && AIndex < Count(); }
};

} // namespace norvik
