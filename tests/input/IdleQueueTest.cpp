#include "EventLoopWait.h"
#include "TScaleForm.h"

#include <QPointer>
#include <gtest/gtest.h>
#include <memory>

using namespace norvik;
using inputtests::RunEventLoop;
using inputtests::WaitUntil;

namespace {

// A form that notes what its idle queue does.
class IdleForm : public TScaleForm {
public:
    QStringList Trace;
    bool FirstIdle = false;
    std::function<void(qint64)> During;

    bool Running() const { return !CanClearIdleQueue(); }

protected:
    void DoProcessSimpleIdleItem(qint64 AID) override {
        Trace << QString::number(AID);
        if (During)
            During(AID);
        TScaleForm::DoProcessSimpleIdleItem(AID);
    }
    void DoIdleQueueEmpty() override { Trace << QStringLiteral("empty"); }
    bool WantsFirstIdle() const override { return FirstIdle; }
    void ProcessFormHints() override { Trace << QStringLiteral("hints"); }
};

class IdleQueueTest : public ::testing::Test {
protected:
    std::unique_ptr<IdleForm> form = std::make_unique<IdleForm>();

    bool Drained() {
        return WaitUntil([this] { return form->IdleActions().IsEmpty(); });
    }
};

TEST_F(IdleQueueTest, SameSimpleActionTwiceBeforeTheTickRunsOnce) {
    form->AddSimpleIdleAction(4, 50, 5);
    form->AddSimpleIdleAction(4, 50, 5);
    EXPECT_EQ(form->IdleActions().Count(), 1);
    ASSERT_TRUE(Drained());
    EXPECT_EQ(form->Trace, (QStringList{QStringLiteral("4"), QStringLiteral("empty")}));
}

TEST_F(IdleQueueTest, PriorityTenAddedAfterFiftyRunsFirst) {
    form->AddSimpleIdleAction(11, 50, 5);
    form->AddSimpleIdleAction(12, 10, 5);
    ASSERT_TRUE(Drained());
    EXPECT_EQ(form->Trace,
              (QStringList{QStringLiteral("12"), QStringLiteral("11"), QStringLiteral("empty")}));
}

TEST_F(IdleQueueTest, SimpleActionCarriesItsPriorityAsTag) {
    form->AddSimpleIdleAction(3, 42, 70);
    const TnvIdleActionItem* item = form->IdleActions().GetItem(0);
    EXPECT_EQ(item->Tag, 42);
    EXPECT_EQ(item->Delay, 70);
}

TEST_F(IdleQueueTest, TimerWaitsForTheFirstItemsDelay) {
    form->AddSimpleIdleAction(1, 50, 400);
    EXPECT_TRUE(form->IdleTimer().isActive());
    EXPECT_EQ(form->IdleTimer().interval(), 400);
    form->AddSimpleIdleAction(2, 10, 30);
    EXPECT_EQ(form->IdleTimer().interval(), 30);
}

TEST_F(IdleQueueTest, OneItemPerTick) {
    form->AddSimpleIdleAction(11, 10, 1);
    form->AddSimpleIdleAction(12, 10, 300);
    ASSERT_TRUE(WaitUntil([this] { return !form->Trace.isEmpty(); }));
    RunEventLoop(50);
    EXPECT_EQ(form->Trace, QStringList{QStringLiteral("11")});
    EXPECT_EQ(form->IdleTimer().interval(), 300);
    ASSERT_TRUE(Drained());
}

TEST_F(IdleQueueTest, EmptyQueueLeavesTheTimerStopped) {
    form->AddSimpleIdleAction(1, 10, 1);
    ASSERT_TRUE(Drained());
    EXPECT_FALSE(form->IdleTimer().isActive());
}

TEST_F(IdleQueueTest, ItemsNeverNest) {
    bool nested = false;
    int depth = 0;
    form->During = [&](qint64) {
        nested = nested || depth > 0;
        ++depth;
        RunEventLoop(20); // a handler that pumps messages must not start the next item
        --depth;
    };
    form->AddSimpleIdleAction(11, 10, 1);
    form->AddSimpleIdleAction(12, 10, 1);
    ASSERT_TRUE(Drained());
    EXPECT_FALSE(nested);
    EXPECT_EQ(form->Trace,
              (QStringList{QStringLiteral("11"), QStringLiteral("12"), QStringLiteral("empty")}));
}

TEST_F(IdleQueueTest, CallbackRunsUnderAnIDOfItsRange) {
    bool ran = false;
    const qint64 id = form->AddSimpleIdleEvent([&] { ran = true; });
    EXPECT_GE(id, 5000);
    EXPECT_LE(id, 9999);
    const TnvIdleActionItem* item = form->IdleActions().GetItem(0);
    EXPECT_EQ(item->Priority, 50);
    EXPECT_EQ(item->Delay, 2);
    EXPECT_TRUE(form->ExistsSimpleEvent(id));
    ASSERT_TRUE(Drained());
    EXPECT_TRUE(ran);
}

TEST_F(IdleQueueTest, ManyCallbacksAllRun) {
    int runs = 0;
    for (int i = 0; i < 200; ++i)
        form->AddSimpleIdleEvent([&] { ++runs; });
    EXPECT_EQ(form->IdleActions().Count(), 200);
    ASSERT_TRUE(WaitUntil([&] { return runs == 200; }, 10000));
}

TEST_F(IdleQueueTest, NotifyEventFiresWithTheFormAsSender) {
    QObject* sender = nullptr;
    form->AddSimpleIdleEvent(77, 10, 1, [&](QObject* ASender) { sender = ASender; });
    ASSERT_TRUE(Drained());
    EXPECT_EQ(sender, form.get());
}

TEST_F(IdleQueueTest, RemovedSimpleEventDoesNotRun) {
    bool ran = false;
    form->AddSimpleIdleEvent(77, 10, 1, [&](QObject*) { ran = true; });
    form->AddSimpleIdleAction(78, 10, 1);
    EXPECT_TRUE(form->ExistsSimpleEvent(77));
    form->RemoveSimpleEvent(77);
    EXPECT_FALSE(form->ExistsSimpleEvent(77));
    EXPECT_FALSE(form->ExistsSimpleEvent(12345));
    ASSERT_TRUE(Drained());
    EXPECT_FALSE(ran);
    EXPECT_EQ(form->Trace.first(), QStringLiteral("78"));
}

TEST_F(IdleQueueTest, OwnHandlerIsNoSimpleEvent) {
    struct Handler {
        void Process(TnvIdleActionCollection*, TnvIdleActionItem*) {}
    } handler;
    form->AddIdleAction(10, 5, 1000, 0, MethodOf<&Handler::Process>(&handler));
    EXPECT_FALSE(form->ExistsSimpleEvent(5));
    form->RemoveSimpleEvent(5);
    EXPECT_EQ(form->IdleActions().Count(), 1);
}

TEST_F(IdleQueueTest, FirstShowingQueuesTheFormHintsOnce) {
    form->FirstIdle = true;
    form->show();
    ASSERT_EQ(form->IdleActions().Count(), 1);
    const TnvIdleActionItem* item = form->IdleActions().GetItem(0);
    EXPECT_EQ(item->ID, 1);
    EXPECT_EQ(item->Priority, 50);
    EXPECT_EQ(item->Delay, 150);
    ASSERT_TRUE(Drained());
    form->hide();
    form->show();
    EXPECT_TRUE(form->IdleActions().IsEmpty());
    EXPECT_EQ(form->Trace,
              (QStringList{QStringLiteral("1"), QStringLiteral("hints"), QStringLiteral("empty")}));
}

TEST_F(IdleQueueTest, FormWithoutFirstIdleQueuesNothingAtShowing) {
    form->show();
    EXPECT_TRUE(form->IdleActions().IsEmpty());
}

TEST_F(IdleQueueTest, FormClosedWhileAnItemRunsWaitsForIt) {
    IdleForm* closing = form.release();
    closing->setAttribute(Qt::WA_DeleteOnClose);
    closing->show();
    QPointer<IdleForm> watch(closing);
    bool aliveAfterClose = false;
    bool stillRunning = false;
    closing->During = [&](qint64 AID) {
        if (AID != 1)
            return;
        EXPECT_TRUE(closing->close());
        RunEventLoop(30); // messages go on, deferred deletions included
        aliveAfterClose = !watch.isNull();
        stillRunning = closing->Running();
    };
    closing->AddSimpleIdleAction(1, 10, 1);
    closing->AddSimpleIdleAction(2, 10, 1);
    ASSERT_TRUE(WaitUntil([&] { return watch.isNull(); }));
    EXPECT_TRUE(aliveAfterClose);
    EXPECT_TRUE(stillRunning);
}

TEST_F(IdleQueueTest, FormFreedByItsOwnItemDropsTheRest) {
    IdleForm* freed = form.release();
    int runs = 0;
    const auto freeTheForm = [&](QObject*) {
        ++runs;
        delete freed;
    };
    freed->AddSimpleIdleEvent(1, 10, 1, freeTheForm);
    freed->AddSimpleIdleEvent(2, 10, 1, freeTheForm);
    RunEventLoop(50);
    EXPECT_EQ(runs, 1);
}

TEST_F(IdleQueueTest, DestroyedFormDropsItsQueue) {
    bool ran = false;
    form->AddSimpleIdleEvent(9, 10, 1, [&](QObject*) { ran = true; });
    form.reset();
    RunEventLoop(30);
    EXPECT_FALSE(ran);
}

} // namespace
