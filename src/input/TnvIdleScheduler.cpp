#include "TnvIdleScheduler.h"

#include <QPointer>
#include <QRandomGenerator>

namespace norvik {

TnvIdleScheduler::TnvIdleScheduler(QObject* AOwner)
    : QObject(AOwner)
    , FOwner(AOwner) {
    FTimer.setSingleShot(true);
    FTimer.setInterval(0);
    connect(&FTimer, &QTimer::timeout, this, &TnvIdleScheduler::IdleTimerTimer);
}

TnvIdleScheduler::~TnvIdleScheduler() {
    Shutdown();
}

TnvIdleActionItem* TnvIdleScheduler::AddIdleAction(qint64 APriority, qint64 AID, int ADelay, qint64 ATag,
                                                   const TnvIdleProcessEvent& AOnProcess) {
    const int before = FActions->Count();
    TnvIdleActionItem* item = FActions->Add(AID, APriority, AOnProcess);
    if (FActions->Count() > before) {
        item->Delay = ADelay;
        item->Tag = ATag;
    }
    StartTimer();
    return item;
}

void TnvIdleScheduler::AddSimpleIdleAction(qint64 AID, qint64 APriority, int ADelay) {
    AddIdleAction(APriority, AID, ADelay, APriority, MethodOf<&TnvIdleScheduler::ProcessSimpleAction>(this));
}

qint64 TnvIdleScheduler::AddSimpleIdleEvent(const std::function<void()>& AProc) {
    const qint64 id = FreeCallbackID();
    TnvIdleActionItem* item = AddIdleAction(CallbackPriority, id, CallbackDelay, 0,
                                            MethodOf<&TnvIdleScheduler::ProcessSimpleProc>(this));
    item->Proc = AProc;
    return id;
}

void TnvIdleScheduler::AddSimpleIdleEvent(qint64 AID, qint64 APriority, int ADelay,
                                          const TnvNotifyEvent& AEvent) {
    TnvIdleActionItem* item =
        AddIdleAction(APriority, AID, ADelay, 0, MethodOf<&TnvIdleScheduler::ProcessSimpleEvent>(this));
    item->Event = AEvent;
}

bool TnvIdleScheduler::IsSimple(const TnvIdleActionItem& AItem) const {
    const void* code = AItem.OnProcess.Code;
    return AItem.OnProcess.Data == this && (code == MethodCode<&TnvIdleScheduler::ProcessSimpleAction>() ||
                                            code == MethodCode<&TnvIdleScheduler::ProcessSimpleProc>() ||
                                            code == MethodCode<&TnvIdleScheduler::ProcessSimpleEvent>());
}

bool TnvIdleScheduler::ExistsSimpleEvent(qint64 AID) const {
    for (int i = 0; i < FActions->Count(); ++i) {
        const TnvIdleActionItem* item = FActions->GetItem(i);
        if (item->ID == AID && IsSimple(*item))
            return true;
    }
    return false;
}

void TnvIdleScheduler::RemoveSimpleEvent(qint64 AID) {
    for (int i = FActions->Count() - 1; i >= 0; --i) {
        const TnvIdleActionItem* item = FActions->GetItem(i);
        if (item->ID == AID && IsSimple(*item))
            FActions->Delete(i);
    }
    StartTimer();
}

void TnvIdleScheduler::Shutdown() {
    FShutDown = true;
    FTimer.stop();
    disconnect(&FTimer, nullptr, this, nullptr);
    if (!FActions->InProcessMode())
        FActions->Clear();
}

void TnvIdleScheduler::StartTimer() {
    FTimer.stop();
    if (FShutDown || FActions->IsEmpty())
        return;
    FTimer.setInterval(FActions->GetItem(0)->Delay);
    FTimer.start();
}

void TnvIdleScheduler::IdleTimerTimer() {
    FTimer.stop();
    if (FShutDown || FActions->IsEmpty() || FActions->InProcessMode())
        return;
    // the running item may destroy the form and with it this scheduler
    const std::shared_ptr<TnvIdleActionCollection> actions = FActions;
    const QPointer<TnvIdleScheduler> alive(this);
    try {
        actions->ProcessNextItem();
    } catch (...) {
        if (alive)
            AfterRun();
        throw;
    }
    if (alive)
        AfterRun();
}

void TnvIdleScheduler::AfterRun() {
    if (FShutDown) {
        FActions->Clear();
        return;
    }
    StartTimer();
    if (OnItemDone)
        OnItemDone();
    if (FActions->IsEmpty() && OnQueueEmpty)
        OnQueueEmpty();
}

qint64 TnvIdleScheduler::FreeCallbackID() const {
    // a random ID that is in use would make the new callback the old item's double and drop it
    const auto inUse = [this](qint64 id) {
        return FActions->FindItem(id, MethodCode<&TnvIdleScheduler::ProcessSimpleProc>()) != nullptr;
    };
    qint64 id = QRandomGenerator::global()->bounded(FirstCallbackID, LastCallbackID + 1);
    while (inUse(id))
        id = id == LastCallbackID ? FirstCallbackID : id + 1;
    return id;
}

void TnvIdleScheduler::ProcessSimpleAction(TnvIdleActionCollection*, TnvIdleActionItem* AItem) {
    if (OnSimpleIdleItem)
        OnSimpleIdleItem(AItem->ID);
}

void TnvIdleScheduler::ProcessSimpleProc(TnvIdleActionCollection*, TnvIdleActionItem* AItem) {
    // a copy: the callback goes with its item, which the callback may remove
    const std::function<void()> proc = AItem->Proc;
    if (proc)
        proc();
}

void TnvIdleScheduler::ProcessSimpleEvent(TnvIdleActionCollection*, TnvIdleActionItem* AItem) {
    const TnvNotifyEvent event = AItem->Event;
    if (event)
        event(FOwner);
}

} // namespace norvik
