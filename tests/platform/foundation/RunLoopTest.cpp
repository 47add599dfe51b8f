#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"

namespace igd::test {

namespace StationUtils = Fnd::StationUtils;
using Fnd::StationID;
using Log = std::vector<std::string>;

namespace {

// Every test starts with the default queue installed and empty.
class RunLoopTest : public ::testing::Test {
protected:
    void SetUp() override {
        Fnd::SetRunLoop(nullptr);
        Fnd::GetDefaultQueue().Drain();
    }
    void TearDown() override {
        Fnd::SetRunLoop(nullptr);
        Fnd::GetDefaultQueue().Drain();
    }

    Fnd::Task Record(int n) {
        return [this, n] { ran.push_back(n); };
    }
    Fnd::QueueRunLoop queue;
    std::vector<int> ran;
};

struct TakeMessage : Fnd::MessageT<TakeMessage> {
    static constexpr std::string_view kTypeName = "Test.TakeMessage";
    explicit TakeMessage(int n) : number(n) {}
    int number;
};

struct OtherMessage : Fnd::MessageT<OtherMessage> {
    static constexpr std::string_view kTypeName = "Test.OtherMessage";
};

// Writes "name:number" to the shared log and then runs its reaction, if any.
struct RecordingListener : Fnd::Listener {
    RecordingListener(std::string name, Log& log) : name(std::move(name)), log(log) {}
    void ListenToMessage(const StationID&, const Fnd::Message& message) override {
        const auto* take = Fnd::MessageCast<TakeMessage>(message);
        log.push_back(name + ":" + (take ? std::to_string(take->number) : "other"));
        if (react)
            react();
    }
    std::string name;
    Log& log;
    std::function<void()> react;
};

class StationTest : public RunLoopTest {
protected:
    void TearDown() override {
        for (auto* listener : {&a, &b, &c})
            StationUtils::RemoveListener(station, listener);
        RunLoopTest::TearDown();
    }
    void Add(std::initializer_list<RecordingListener*> listeners) {
        for (auto* listener : listeners)
            StationUtils::AddListener(station, listener);
    }
    void Broadcast(int number) { StationUtils::BroadcastMessage(station, TakeMessage(number)); }

    // Each test has its own station, so that a failed test cannot leave listeners for the next.
    const StationID station{std::string("test.station.") +
                            ::testing::UnitTest::GetInstance()->current_test_info()->name()};
    Log log;
    RecordingListener a{"a", log}, b{"b", log}, c{"c", log};
};

} // namespace

TEST_F(RunLoopTest, DrainRunsUrgentTasksFirstThenTheRestInOrderUpToMaxTasks) {
    queue.Post(Record(1), false);
    queue.Post(Record(2), true);
    queue.Post(
        [this] {
            ran.push_back(3);
            queue.Post(Record(5), true); // overtakes 4, still waiting
        },
        true);
    queue.Post(Record(4), false);
    EXPECT_EQ(queue.Drain(3), 3u);
    EXPECT_EQ(ran, (std::vector<int>{2, 3, 5}));
    EXPECT_EQ(queue.Pending(), 2u);
    EXPECT_EQ(queue.Drain(), 2u);
    EXPECT_EQ(ran, (std::vector<int>{2, 3, 5, 1, 4}));

    // An empty task would fail only when drained, far from the code that posted it.
    EXPECT_THROW(queue.Post(Fnd::Task(), false), std::invalid_argument);
    EXPECT_EQ(queue.Pending(), 0u);
}

TEST_F(StationTest, DeliversInTheOrderListenersWereAdded) {
    Add({&b, &a, &c, &a}); // a second add of a is ignored
    StationUtils::AddListener("test.station.elsewhere", &c);
    Broadcast(1);
    StationUtils::RemoveListener("test.station.elsewhere", &c);
    EXPECT_EQ(log, (Log{"b:1", "a:1", "c:1"}));
}

// Removing the listener being called must not shift the next one out of its turn.
TEST_F(StationTest, RemovalDuringDeliveryTakesEffectAtOnceAndAdditionWithTheNextMessage) {
    Add({&a, &b, &c});
    a.react = [&] {
        StationUtils::RemoveListener(station, &a);
        StationUtils::RemoveListener(station, &b);
    };
    c.react = [&] { StationUtils::AddListener(station, &b); };
    Broadcast(1);
    Broadcast(2);
    EXPECT_EQ(log, (Log{"a:1", "c:1", "c:2", "b:2"}));
}

TEST_F(StationTest, NestedAndThrowingListenersLeaveTheStationUsable) {
    Add({&a, &b});
    a.react = [&] {
        a.react = nullptr;
        StationUtils::RemoveListener(station, &b);
        Broadcast(2);
        throw std::runtime_error("listener failed");
    };
    EXPECT_THROW(Broadcast(1), std::runtime_error);
    Add({&c});
    Broadcast(3);
    EXPECT_EQ(log, (Log{"a:1", "a:2", "a:3", "c:3"}));
}

TEST_F(StationTest, PostsFromOtherThreadsArriveInOrderWhenDrainedAndUrgentOnesFirst) {
    Add({&a});
    constexpr int kThreads = 6, kEach = 200;
    std::vector<std::thread> workers;
    for (int t = 0; t < kThreads; ++t)
        workers.emplace_back([this, t] {
            for (int i = 0; i < kEach; ++i)
                StationUtils::PostMessageToUIThread(station, TakeMessage(t * kEach + i), false);
        });
    for (auto& worker : workers)
        worker.join();
    StationUtils::PostMessageToUIThread(station, OtherMessage(), true);
    EXPECT_TRUE(log.empty());
    EXPECT_EQ(Fnd::GetDefaultQueue().Drain(), static_cast<std::size_t>(kThreads * kEach + 1));
    ASSERT_EQ(log.size(), static_cast<std::size_t>(kThreads * kEach + 1));
    EXPECT_EQ(log[0], "a:other");
    std::vector<int> next(kThreads, 0);
    for (std::size_t i = 1; i < log.size(); ++i) {
        const int n = std::stoi(log[i].substr(2));
        ASSERT_EQ(n % kEach, next[n / kEach]++) << log[i];
    }
}

} // namespace igd::test
