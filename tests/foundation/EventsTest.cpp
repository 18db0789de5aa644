#include "Events.h"

#include <gtest/gtest.h>
#include <vector>

using namespace norvik;

namespace {

// the event numbers of these tests, far from the ones the program uses
constexpr int EventA = 91001;
constexpr int EventB = 91002;

class Listener {
public:
    std::vector<int> Heard;
    std::function<void()> During;

    void Hear(QObject*, int AEventNumber) {
        Heard.push_back(AEventNumber);
        if (During)
            During();
    }
    void HearToo(QObject*, int AEventNumber) { Heard.push_back(-AEventNumber); }

    TnvEventMethod Method() { return MethodOf<&Listener::Hear>(this); }
    TnvEventMethod OtherMethod() { return MethodOf<&Listener::HearToo>(this); }
};

class EventsTest : public ::testing::Test {
protected:
    Listener first;
    Listener second;

    void TearDown() override {
        for (Listener* listener : {&first, &second}) {
            for (int number : {EventA, EventB}) {
                UnregisterEvent(number, listener->Method());
                UnregisterEvent(number, listener->OtherMethod());
            }
        }
    }
};

TEST_F(EventsTest, SubscriberHearsItsNumberOnly) {
    RegisterEvent(EventA, first.Method());
    RegisterEvent(EventB, second.Method());
    FireEvent(nullptr, EventA);
    EXPECT_EQ(first.Heard, std::vector<int>{EventA});
    EXPECT_TRUE(second.Heard.empty());
}

TEST_F(EventsTest, SameNumberAndMethodRegisterOnce) {
    RegisterEvent(EventA, first.Method());
    RegisterEvent(EventA, first.Method());
    EXPECT_EQ(RegisteredEventCount(EventA), 1);
    FireEvent(nullptr, EventA);
    EXPECT_EQ(first.Heard.size(), 1u);
}

TEST_F(EventsTest, SameMethodOnAnotherObjectIsAnotherSubscriber) {
    RegisterEvent(EventA, first.Method());
    RegisterEvent(EventA, second.Method());
    RegisterEvent(EventA, first.OtherMethod());
    EXPECT_EQ(RegisteredEventCount(EventA), 3);
    FireEvent(nullptr, EventA);
    EXPECT_EQ(first.Heard, (std::vector<int>{EventA, -EventA}));
    EXPECT_EQ(second.Heard, std::vector<int>{EventA});
}

TEST_F(EventsTest, UnregisterTouchesOnlyTheMatch) {
    RegisterEvent(EventA, first.Method());
    RegisterEvent(EventB, first.Method());
    RegisterEvent(EventA, second.Method());
    UnregisterEvent(EventA, first.Method());
    FireEvent(nullptr, EventA);
    FireEvent(nullptr, EventB);
    EXPECT_EQ(first.Heard, std::vector<int>{EventB});
    EXPECT_EQ(second.Heard, std::vector<int>{EventA});
}

TEST_F(EventsTest, UnregisterOfUnknownDoesNothing) {
    UnregisterEvent(EventA, first.Method());
    EXPECT_EQ(RegisteredEventCount(EventA), 0);
}

TEST_F(EventsTest, SubscriberLeftDuringFiringIsNotCalled) {
    RegisterEvent(EventA, first.Method());
    RegisterEvent(EventA, second.Method());
    first.During = [&] { UnregisterEvent(EventA, second.Method()); };
    FireEvent(nullptr, EventA);
    EXPECT_TRUE(second.Heard.empty());
}

TEST_F(EventsTest, SubscriberAddedDuringFiringHearsTheNextOne) {
    RegisterEvent(EventA, first.Method());
    first.During = [&] { RegisterEvent(EventA, second.Method()); };
    FireEvent(nullptr, EventA);
    EXPECT_TRUE(second.Heard.empty());
    FireEvent(nullptr, EventA);
    EXPECT_EQ(second.Heard, std::vector<int>{EventA});
}

TEST_F(EventsTest, SenderReachesTheHandler) {
    QObject sender;
    QObject* seen = nullptr;
    auto method = first.Method();
    method.Call = [&](QObject* ASender, int) { seen = ASender; };
    RegisterEvent(EventA, method);
    FireEvent(&sender, EventA);
    EXPECT_EQ(seen, &sender);
}

} // namespace
