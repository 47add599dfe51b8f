#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "Fnd/RunLoop.h"
#include "fluxcore/Threads.h"

namespace {

// Records what it is given instead of running it.
class RecordingRunLoop : public Fnd::RunLoop {
public:
    void Post(Fnd::Task task, bool urgent) override { posts.push_back({std::move(task), urgent}); }
    std::vector<std::pair<Fnd::Task, bool>> posts;
};

class RunLoopTest : public ::testing::Test {
protected:
    void SetUp() override {
        Fnd::SetRunLoop(nullptr);
        Fnd::GetDefaultQueue().Drain();
    }
    void TearDown() override { Fnd::SetRunLoop(nullptr); }

    Fnd::Task Record(int n) {
        return [this, n] { ran.push_back(n); };
    }
    Fnd::QueueRunLoop queue;
    std::vector<int> ran;
};

} // namespace

TEST_F(RunLoopTest, DrainRunsInOrderIncludingWhatTasksPost) {
    queue.Post(Record(1), false);
    queue.Post(
        [this] {
            ran.push_back(2);
            queue.Post(Record(4), false);
        },
        false);
    queue.Post(Record(3), false);
    EXPECT_EQ(queue.Pending(), 3u);
    EXPECT_EQ(queue.Drain(), 4u);
    EXPECT_EQ(ran, (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(queue.Pending(), 0u);
    EXPECT_EQ(queue.Drain(), 0u);
}

TEST_F(RunLoopTest, DrainStopsAfterMaxTasks) {
    for (int i = 1; i <= 5; ++i)
        queue.Post(Record(i), false);
    EXPECT_EQ(queue.Drain(2), 2u);
    EXPECT_EQ(queue.Pending(), 3u);
    EXPECT_EQ(ran, (std::vector<int>{1, 2}));
    EXPECT_EQ(queue.Drain(), 3u);
}

TEST_F(RunLoopTest, UrgentTasksGoAheadInTheOrderPosted) {
    queue.Post(Record(1), false);
    queue.Post(Record(2), true);
    queue.Post(
        [this] {
            ran.push_back(3);
            queue.Post(Record(5), true); // overtakes 4, still waiting
        },
        true);
    queue.Post(Record(4), false);
    queue.Drain();
    EXPECT_EQ(ran, (std::vector<int>{2, 3, 5, 1, 4}));
}

TEST_F(RunLoopTest, PostingAnEmptyTaskIsAFault) {
    EXPECT_THROW(queue.Post(Fnd::Task(), false), std::invalid_argument);
    EXPECT_EQ(queue.Pending(), 0u);
}

TEST_F(RunLoopTest, InstalledLoopReceivesPostsUntilRemoved) {
    EXPECT_EQ(&Fnd::GetRunLoop(), &Fnd::GetDefaultQueue());
    auto recording = std::make_shared<RecordingRunLoop>();
    Fnd::SetRunLoop(recording);
    EXPECT_EQ(&Fnd::GetRunLoop(), recording.get());

    fluxcore::threads::AsyncCallFromMainThread(Record(1));
    ASSERT_EQ(recording->posts.size(), 1u);
    EXPECT_FALSE(recording->posts[0].second);
    recording->posts[0].first();
    EXPECT_EQ(ran, (std::vector<int>{1}));

    Fnd::SetRunLoop(nullptr);
    EXPECT_EQ(&Fnd::GetRunLoop(), &Fnd::GetDefaultQueue());
    fluxcore::threads::AsyncCallFromMainThread(Record(2));
    Fnd::GetDefaultQueue().Post(Record(3), true);
    EXPECT_EQ(recording->posts.size(), 1u);
    Fnd::GetDefaultQueue().Drain();
    EXPECT_EQ(ran, (std::vector<int>{1, 3, 2}));
}
