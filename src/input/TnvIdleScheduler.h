#pragma once

#include "TnvIdleActionCollection.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <memory>

namespace norvik {

// The idle queue of one form with its timer. After every addition and every run the timer is
// set to the first item's delay; each tick runs one item. So items run one at a time,
// separated by their own delays, and never nested.
class TnvIdleScheduler : public QObject {
public:
    // simple idle events that bring their own callback take an ID from this range
    static constexpr qint64 FirstCallbackID = 5000;
    static constexpr qint64 LastCallbackID = 9999;
    static constexpr qint64 CallbackPriority = 50;
    static constexpr int CallbackDelay = 2;

    // AOwner, the form, is the sender of the notify events of simple idle events
    explicit TnvIdleScheduler(QObject* AOwner);
    ~TnvIdleScheduler() override;

    // runs a simple idle action on its turn, with its ID
    std::function<void(qint64 AID)> OnSimpleIdleItem;
    // runs when a tick has left the queue empty
    std::function<void()> OnQueueEmpty;
    // runs after every item, whether or not it raised
    std::function<void()> OnItemDone;

    // an action already queued with the same handler and ID stays as it is
    TnvIdleActionItem* AddIdleAction(qint64 APriority, qint64 AID, int ADelay, qint64 ATag,
                                     const TnvIdleProcessEvent& AOnProcess);
    // on its turn OnSimpleIdleItem(AID) runs
    void AddSimpleIdleAction(qint64 AID, qint64 APriority, int ADelay);
    // the callback runs on its turn; returns the ID it was queued under
    qint64 AddSimpleIdleEvent(const std::function<void()>& AProc);
    // the notify event fires on its turn, with the owner as sender
    void AddSimpleIdleEvent(qint64 AID, qint64 APriority, int ADelay, const TnvNotifyEvent& AEvent);
    // whether a simple action or event of this ID waits
    bool ExistsSimpleEvent(qint64 AID) const;
    void RemoveSimpleEvent(qint64 AID);

    bool IsRunning() const { return FActions->InProcessMode(); }
    const TnvIdleActionCollection& IdleActions() const { return *FActions; }
    const QTimer& IdleTimer() const { return FTimer; }

    // The end of the form: the timer stops for good and the queue is dropped, at once when no
    // item runs, otherwise as soon as the running one returns.
    void Shutdown();

private:
    // shared, so that a form destroyed by its own running item does not pull the queue away
    // from under the run
    std::shared_ptr<TnvIdleActionCollection> FActions = std::make_shared<TnvIdleActionCollection>();
    QTimer FTimer;
    QObject* FOwner;
    bool FShutDown = false;

    void StartTimer();
    void IdleTimerTimer();
    void AfterRun();
    qint64 FreeCallbackID() const;
    bool IsSimple(const TnvIdleActionItem& AItem) const;

    void ProcessSimpleAction(TnvIdleActionCollection* ACollection, TnvIdleActionItem* AItem);
    void ProcessSimpleProc(TnvIdleActionCollection* ACollection, TnvIdleActionItem* AItem);
    void ProcessSimpleEvent(TnvIdleActionCollection* ACollection, TnvIdleActionItem* AItem);
};

} // namespace norvik
