#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"

namespace StationUtils = Fnd::StationUtils;
using Fnd::StationID;

namespace {

struct TakeMessage : Fnd::MessageT<TakeMessage> {
    static constexpr std::string_view kTypeName = "Test.TakeMessage";
    explicit TakeMessage(int n) : number(n) {}
    int number;
};

struct OtherMessage : Fnd::MessageT<OtherMessage> {
    static constexpr std::string_view kTypeName = "Test.OtherMessage";
};

// Writes "name:number" to the shared log and then runs its reaction, if any.
class RecordingListener : public Fnd::Listener {
public:
    RecordingListener(std::string name, std::vector<std::string>& log) : name_(std::move(name)), log_(log) {}
    void ListenToMessage(const StationID&, const Fnd::Message& message) override {
        const auto* take = Fnd::MessageCast<TakeMessage>(message);
        log_.push_back(name_ + ":" + (take ? std::to_string(take->number) : "other"));
        if (react)
            react();
    }
    std::function<void()> react;

private:
    std::string name_;
    std::vector<std::string>& log_;
};

using Log = std::vector<std::string>;

class StationTest : public ::testing::Test {
protected:
    void SetUp() override {
        Fnd::SetRunLoop(nullptr);
        Fnd::GetDefaultQueue().Drain();
    }
    void TearDown() override {
        for (auto* listener : {&a, &b, &c})
            StationUtils::RemoveListener(station, listener);
        Fnd::GetDefaultQueue().Drain();
    }
    void Broadcast(int number) { StationUtils::BroadcastMessage(station, TakeMessage(number)); }

    // Each test has its own station, so that a failed test cannot leave listeners for the next.
    const StationID station{std::string("test.station.") +
                            ::testing::UnitTest::GetInstance()->current_test_info()->name()};
    Log log;
    RecordingListener a{"a", log}, b{"b", log}, c{"c", log};
};

} // namespace

TEST_F(StationTest, DeliversInTheOrderListenersWereAdded) {
    StationUtils::AddListener(station, &b);
    StationUtils::AddListener(station, &a);
    StationUtils::AddListener(station, &c);
    StationUtils::AddListener(station, &a); // already there: still called once
    StationUtils::AddListener("test.station.elsewhere", &c);
    Broadcast(1);
    StationUtils::RemoveListener("test.station.elsewhere", &c);
    EXPECT_EQ(log, (Log{"b:1", "a:1", "c:1"}));
}

TEST_F(StationTest, ListenerRemovedDuringDeliveryIsNotCalled) {
    StationUtils::AddListener(station, &a);
    StationUtils::AddListener(station, &b);
    StationUtils::AddListener(station, &c);
    a.react = [&] { StationUtils::RemoveListener(station, &b); };
    Broadcast(1);
    Broadcast(2);
    EXPECT_EQ(log, (Log{"a:1", "c:1", "a:2", "c:2"}));
}

TEST_F(StationTest, ListenerMayRemoveItselfAndAddOthers) {
    StationUtils::AddListener(station, &a);
    StationUtils::AddListener(station, &b);
    a.react = [&] {
        StationUtils::RemoveListener(station, &a);
        StationUtils::AddListener(station, &c); // waits for the next message
    };
    Broadcast(1);
    Broadcast(2);
    EXPECT_EQ(log, (Log{"a:1", "b:1", "b:2", "c:2"}));
}

TEST_F(StationTest, NestedBroadcastFromAListener) {
    StationUtils::AddListener(station, &a);
    StationUtils::AddListener(station, &b);
    a.react = [&] {
        a.react = nullptr;
        StationUtils::RemoveListener(station, &b);
        Broadcast(2);
    };
    Broadcast(1);
    EXPECT_EQ(log, (Log{"a:1", "a:2"}));
}

TEST_F(StationTest, ThrowingListenerLeavesTheStationUsable) {
    StationUtils::AddListener(station, &a);
    StationUtils::AddListener(station, &b);
    a.react = [&] {
        StationUtils::RemoveListener(station, &b);
        throw std::runtime_error("listener failed");
    };
    EXPECT_THROW(Broadcast(1), std::runtime_error);
    a.react = nullptr;
    StationUtils::AddListener(station, &c);
    Broadcast(2);
    EXPECT_EQ(log, (Log{"a:1", "a:2", "c:2"}));
}

TEST_F(StationTest, PostedMessagesArriveOnlyWhenTheQueueIsDrained) {
    StationUtils::AddListener(station, &a);
    std::thread worker([this] {
        for (int i = 1; i <= 3; ++i)
            StationUtils::PostMessageToUIThread(station, TakeMessage(i),
                                                false); // temporary: a copy is posted
    });
    worker.join();
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(Fnd::GetDefaultQueue().Drain(), 3u);
    EXPECT_EQ(log, (Log{"a:1", "a:2", "a:3"}));
}

TEST_F(StationTest, UrgentMessagesOvertakeWaitingOnes) {
    StationUtils::AddListener(station, &a);
    StationUtils::PostMessageToUIThread(station, TakeMessage(1), false);
    StationUtils::PostMessageToUIThread(station, TakeMessage(2), false);
    StationUtils::PostMessageToUIThread(station, TakeMessage(3), true);
    StationUtils::PostMessageToUIThread(station, OtherMessage(), true);
    Fnd::GetDefaultQueue().Drain();
    EXPECT_EQ(log, (Log{"a:3", "a:other", "a:1", "a:2"}));
}

TEST_F(StationTest, ManyThreadsPostingLoseNothing) {
    StationUtils::AddListener(station, &a);
    constexpr int kThreads = 6, kEach = 200;
    std::vector<std::thread> workers;
    for (int t = 0; t < kThreads; ++t) {
        workers.emplace_back([this, t] {
            for (int i = 0; i < kEach; ++i)
                StationUtils::PostMessageToUIThread(station, TakeMessage(t), i % 7 == 0);
        });
    }
    for (auto& worker : workers)
        worker.join();
    EXPECT_EQ(Fnd::GetDefaultQueue().Drain(), static_cast<std::size_t>(kThreads * kEach));
    EXPECT_EQ(log.size(), static_cast<std::size_t>(kThreads * kEach));
}

TEST(MessageID, IsTheFNV1aHashOfTheTypeName) {
    EXPECT_EQ(Fnd::HashMessageTypeNameToMessageID(""), 0x811C9DC5u);
    EXPECT_EQ(Fnd::HashMessageTypeNameToMessageID("a"), 0xE40C292Cu);
    EXPECT_EQ(Fnd::HashMessageTypeNameToMessageID("foobar"), 0xBF9CF968u);
    EXPECT_EQ(TakeMessage::ID(), Fnd::HashMessageTypeNameToMessageID("Test.TakeMessage"));
    EXPECT_EQ(TakeMessage(5).GetMessageID(), TakeMessage::ID());
    EXPECT_NE(OtherMessage::ID(), TakeMessage::ID());
}
