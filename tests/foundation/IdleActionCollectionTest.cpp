#include "TnvIdleActionCollection.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <vector>

using namespace norvik;

namespace {

// Records which actions ran; each test wires its own reactions into it.
class Recorder {
public:
    std::vector<qint64> Ran;
    std::function<void(TnvIdleActionCollection*, TnvIdleActionItem*)> During;

    void Process(TnvIdleActionCollection* ACollection, TnvIdleActionItem* AItem) {
        Ran.push_back(AItem->ID);
        if (During)
            During(ACollection, AItem);
    }
    void Other(TnvIdleActionCollection*, TnvIdleActionItem* AItem) { Ran.push_back(-AItem->ID); }

    TnvIdleProcessEvent Handler() { return MethodOf<&Recorder::Process>(this); }
    TnvIdleProcessEvent OtherHandler() { return MethodOf<&Recorder::Other>(this); }
};

std::vector<qint64> QueuedIDs(const TnvIdleActionCollection& AQueue) {
    std::vector<qint64> ids;
    for (int i = 0; i < AQueue.Count(); ++i)
        ids.push_back(AQueue.GetItem(i)->ID);
    return ids;
}

void RunAll(TnvIdleActionCollection& AQueue) {
    for (int guard = 0; guard < 100 && !AQueue.IsEmpty(); ++guard)
        AQueue.ProcessNextItem();
}

struct OrderCase {
    const char* Name;
    std::vector<std::pair<qint64, qint64>> IDAndPriority;
    std::vector<qint64> Expected;
};

class IdleOrderTest : public ::testing::TestWithParam<OrderCase> {};

TEST_P(IdleOrderTest, LowerPriorityNumberRunsFirstTiesInArrival) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    for (const auto& [id, priority] : GetParam().IDAndPriority)
        queue.Add(id, priority, recorder.Handler());
    RunAll(queue);
    EXPECT_EQ(recorder.Ran, GetParam().Expected);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, IdleOrderTest,
    ::testing::Values(OrderCase{"TenAfterFifty", {{1, 50}, {2, 10}}, {2, 1}},
                      OrderCase{"EqualKeepArrival", {{1, 10}, {2, 10}, {3, 10}}, {1, 2, 3}},
                      OrderCase{"Mixed", {{1, 50}, {2, 10}, {3, 50}, {4, 0}, {5, 10}}, {4, 2, 5, 1, 3}},
                      OrderCase{"Negative", {{1, 0}, {2, -5}}, {2, 1}},
                      OrderCase{"Wide", {{1, 1LL << 40}, {2, -(1LL << 40)}}, {2, 1}}),
    [](const auto& info) { return std::string(info.param.Name); });

TEST(IdleActionCollectionTest, SameHandlerAndIDIsQueuedOnceAndKeepsItsPlace) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    TnvIdleActionItem* first = queue.Add(7, 50, recorder.Handler());
    queue.Add(8, 50, recorder.Handler());
    TnvIdleActionItem* again = queue.Add(7, 10, recorder.Handler());
    EXPECT_EQ(again, first);
    EXPECT_EQ(again->Priority, 50);
    EXPECT_EQ(QueuedIDs(queue), (std::vector<qint64>{7, 8}));
}

TEST(IdleActionCollectionTest, SameIDWithOtherHandlerIsAnotherAction) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(7, 10, recorder.Handler());
    queue.Add(7, 10, recorder.OtherHandler());
    EXPECT_EQ(queue.Count(), 2);
    EXPECT_EQ(queue.FindItemIndex(7, recorder.OtherHandler().Code), 1);
    EXPECT_EQ(queue.FindItemIndex(8, recorder.Handler().Code), -1);
    EXPECT_EQ(queue.FindItemID(7), queue.GetItem(0));
}

TEST(IdleActionCollectionTest, NewItemHasTheDefaults) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    const TnvIdleActionItem* item = queue.Add(1, 3, recorder.Handler());
    EXPECT_EQ(item->Delay, 200);
    EXPECT_EQ(item->Tag, 0);
    EXPECT_EQ(queue.Insert(0)->Priority, 10);
}

TEST(IdleActionCollectionTest, OneItemPerCall) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(1, 10, recorder.Handler());
    queue.Add(2, 10, recorder.Handler());
    EXPECT_TRUE(queue.ProcessNextItem());
    EXPECT_EQ(recorder.Ran, (std::vector<qint64>{1}));
    EXPECT_EQ(QueuedIDs(queue), (std::vector<qint64>{2}));
}

TEST(IdleActionCollectionTest, EmptyQueueAnswersTrue) {
    TnvIdleActionCollection queue;
    EXPECT_TRUE(queue.ProcessNextItem());
    EXPECT_FALSE(queue.InProcessMode());
}

TEST(IdleActionCollectionTest, RunDoesNotNest) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(1, 10, recorder.Handler());
    queue.Add(2, 10, recorder.Handler());
    bool flagDuringRun = false;
    recorder.During = [&](TnvIdleActionCollection* running, TnvIdleActionItem*) {
        flagDuringRun = running->InProcessMode();
        running->ProcessNextItem();
    };
    queue.ProcessNextItem();
    EXPECT_TRUE(flagDuringRun);
    EXPECT_FALSE(queue.InProcessMode());
    EXPECT_EQ(recorder.Ran, (std::vector<qint64>{1}));
}

// The item deleted after a run is the one at the front by then: one that its handler queued
// ahead of it goes, and the item that ran stays to run again.
TEST(IdleActionCollectionTest, DeleteAfterRunIsByPosition) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(1, 50, recorder.Handler());
    queue.Add(2, 50, recorder.Handler());
    recorder.During = [&](TnvIdleActionCollection* running, TnvIdleActionItem* item) {
        if (item->ID == 1 && recorder.Ran.size() == 1)
            running->Add(9, 10, recorder.OtherHandler());
    };
    queue.ProcessNextItem();
    EXPECT_EQ(QueuedIDs(queue), (std::vector<qint64>{1, 2}));
    RunAll(queue);
    EXPECT_EQ(recorder.Ran, (std::vector<qint64>{1, 1, 2}));
}

TEST(IdleActionCollectionTest, HandlerThatRemovesItselfCostsTheNextItem) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(1, 10, recorder.Handler());
    queue.Add(2, 10, recorder.Handler());
    queue.Add(3, 10, recorder.Handler());
    recorder.During = [&](TnvIdleActionCollection* running, TnvIdleActionItem* item) {
        running->RemoveItem(item->ID, recorder.Handler().Code);
        EXPECT_EQ(item->ID, 1); // the item lives until its handler returns
    };
    queue.ProcessNextItem();
    EXPECT_EQ(QueuedIDs(queue), (std::vector<qint64>{3}));
}

TEST(IdleActionCollectionTest, HandlerMayClearTheQueue) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(1, 10, recorder.Handler());
    recorder.During = [](TnvIdleActionCollection* running, TnvIdleActionItem*) { running->Clear(); };
    EXPECT_TRUE(queue.ProcessNextItem());
    EXPECT_TRUE(queue.IsEmpty());
}

TEST(IdleActionCollectionTest, FailingHandlerLeavesTheQueueUsable) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(1, 10, recorder.Handler());
    queue.Add(2, 10, recorder.Handler());
    recorder.During = [](TnvIdleActionCollection*, TnvIdleActionItem* item) {
        if (item->ID == 1)
            throw std::runtime_error("kaputt");
    };
    EXPECT_THROW(queue.ProcessNextItem(), std::runtime_error);
    EXPECT_FALSE(queue.InProcessMode());
    RunAll(queue);
    EXPECT_EQ(recorder.Ran, (std::vector<qint64>{1, 2}));
}

TEST(IdleActionCollectionTest, ItemWithoutHandlerIsDropped) {
    TnvIdleActionCollection queue;
    queue.Insert(0)->ID = 4;
    EXPECT_TRUE(queue.ProcessNextItem());
    EXPECT_TRUE(queue.IsEmpty());
}

TEST(IdleActionCollectionTest, InsertAndSetItemPlaceWhereAsked) {
    Recorder recorder;
    TnvIdleActionCollection queue;
    queue.Add(1, 10, recorder.Handler());
    queue.Add(2, 10, recorder.Handler());
    queue.Insert(99)->ID = 3;
    queue.Insert(-4)->ID = 0;
    TnvIdleActionItem replacement;
    replacement.ID = 5;
    queue.SetItem(1, replacement);
    queue.SetItem(17, replacement);
    EXPECT_EQ(QueuedIDs(queue), (std::vector<qint64>{0, 5, 2, 3}));
}

TEST(IdleActionCollectionTest, OutOfRangeAccessIsHarmless) {
    TnvIdleActionCollection queue;
    EXPECT_EQ(queue.GetItem(0), nullptr);
    EXPECT_EQ(queue.GetItem(-1), nullptr);
    queue.Delete(3);
    queue.RemoveItem(1, nullptr);
    EXPECT_TRUE(queue.IsEmpty());
}

} // namespace
