// What a host sees and steers while a batch runs: the copy list, pause, cancel and the messages.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <atomic>
#include <future>
#include <thread>

#include "EngineTestSupport.h"
#include "Fnd/PathUtils.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "QL/Engine/Journal.h"
#include "QL/IngestMessages.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

// A seam inside the copies: every write at or past `offset` waits until the test lets it go, so
// the test acts in the middle of the files in flight, between chunks. The first one to get there
// tells the test.
struct WriteGate {
    std::uint64_t offset = 1u << 20;
    std::promise<void> reached;
    std::promise<void> release;
    std::shared_future<void> released = release.get_future().share();
    std::atomic<bool> armed{true};

    CopyHooks Hooks() {
        CopyHooks hooks;
        hooks.failWrite = [this](const std::string&, std::uint64_t at) {
            if (at >= offset) {
                if (armed.exchange(false))
                    reached.set_value();
                released.wait();
            }
            return 0;
        };
        return hooks;
    }
};

std::uint64_t SizeOf(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? static_cast<std::uint64_t>(info.st_size) : 0;
}

class TaskServiceControlTest : public EngineTest {
protected:
    std::string Target(const std::string& name) const { return Native(primary, name); }

    void PostControl(const Fnd::Message& message) {
        Fnd::StationUtils::PostMessageToUIThread(QL::kStation_IngestMedia, message, false);
        Fnd::GetDefaultQueue().Drain();
    }
};

TEST_F(TaskServiceControlTest, TheCopyListHoldsTargetsOfWaitingAndRunningTasksOnly) {
    tree.MakeFileOfSize("card/A001.MOV", 64u << 10);
    auto backend = std::make_shared<CountingBackend>();
    std::promise<void> copying;
    std::promise<void> goOn;
    backend->beforeCopy = [&](const std::string&) {
        copying.set_value();
        goOn.get_future().wait();
    };
    TaskService service(TestOptions(home, backend));
    const Fnd::WString target = Fnd::FromUTF8(Target("A001.MOV"));
    EXPECT_FALSE(service.IsPathInCopyList(target));

    service.SubmitCopyTask(
        CopyOf({FileUnit(source, primary, "A001.MOV")}, QL::IngestTask::kVerifyNone, false), batch, {});
    EXPECT_TRUE(service.IsPathInCopyList(target)) << "waiting";
    EXPECT_TRUE(service.IsPathInCopyList(primary + u"//./A001.MOV")) << "the same path written differently";
    EXPECT_FALSE(service.IsPathInCopyList(primary + u"/A002.MOV"));

    StartBatch(batch);
    Fnd::GetDefaultQueue().Drain();
    copying.get_future().wait();
    EXPECT_TRUE(service.IsPathInCopyList(target)) << "running";
    goOn.set_value();

    RunUntilOutcome(log, batch);
    EXPECT_FALSE(service.IsPathInCopyList(target)) << "done: the file itself is there now";
}

TEST_F(TaskServiceControlTest, PauseHoldsTheCopyBetweenChunksUntilResumed) {
    tree.MakeFileOfSize("card/A001.MOV", 24u << 20);
    WriteGate gate;
    TaskService service(TestOptions(home, std::make_shared<CountingBackend>(256u << 10, gate.Hooks())));
    service.SubmitCopyTask(CopyOf({FileUnit(source, primary, "A001.MOV")}, QL::IngestTask::kVerifyMD5, true),
                           batch, {});
    StartBatch(batch);
    Fnd::GetDefaultQueue().Drain();
    gate.reached.get_future().wait();
    PostControl(QL::PauseIngestMessage());
    gate.release.set_value();

    // The temporary stops growing short of the whole file and stays so.
    const std::string temporary = FileCopier::TemporaryPathFor(Target("A001.MOV"));
    std::uint64_t settled = 0;
    ASSERT_TRUE(DrainUntil([&] {
        const std::uint64_t before = SizeOf(temporary);
        std::this_thread::sleep_for(std::chrono::milliseconds(150));
        settled = SizeOf(temporary);
        return settled == before;
    }));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(SizeOf(temporary), settled);
    EXPECT_LT(settled, 24u << 20);
    EXPECT_FALSE(service.IsIdle());
    ASSERT_TRUE(DrainUntil([&] { return !log.progress.empty() && log.progress.back().paused; }));

    PostControl(QL::ResumeIngestMessage());
    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Succeeded);
    EXPECT_EQ(SizeOf(Target("A001.MOV")), 24u << 20);
    EXPECT_FALSE(log.progress.back().paused);
}

TEST_F(TaskServiceControlTest, CancelStopsMidFileRemovesTemporariesAndImportsNothing) {
    // Both are in flight at once; neither can end before the gate opens.
    tree.MakeFileOfSize("card/A001.MOV", 8u << 20);
    tree.MakeFileOfSize("card/A002.MOV", 8u << 20);
    WriteGate gate;
    TaskService service(TestOptions(home, std::make_shared<CountingBackend>(256u << 10, gate.Hooks())));
    service.SubmitCopyTask(
        CopyOf({FileUnit(source, primary, "A001.MOV"), FileUnit(source, primary, "A002.MOV")},
               QL::IngestTask::kVerifyMD5, true),
        batch, {});
    StartBatch(batch);
    Fnd::GetDefaultQueue().Drain();
    gate.reached.get_future().wait();
    // Paused first: the cancel has to wake the copies, not only stop them.
    PostControl(QL::PauseIngestMessage());
    gate.release.set_value();
    PostControl(QL::CancelIngestMessage());

    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Cancelled);
    EXPECT_EQ(outcome.filesCancelled, 2u);
    EXPECT_EQ(outcome.itemsImported, 0u);
    EXPECT_TRUE(TemporariesIn(Fnd::ToUTF8(primary)).empty());
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(Fnd::FromUTF8(Target("A001.MOV")), false));
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(Fnd::FromUTF8(Target("A002.MOV")), false));
    ASSERT_EQ(log.tasks.size(), 1u);
    EXPECT_EQ(log.tasks[0].status, OutcomeStatus::Cancelled);
    // A cancelled batch is over: there is nothing to resume.
    EXPECT_EQ(service.GetJournal().LoadBatch(batch)->state, BatchState::Cancelled);
    EXPECT_EQ(service.Resume(batch), TaskService::ResumeResult::NotResumable);
}

TEST_F(TaskServiceControlTest, AStartWithNothingSubmittedStillEnds) {
    TaskService service(TestOptions(home));
    StartBatch(batch);
    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Succeeded);
    EXPECT_EQ(outcome.filesCopied, 0u);
    // Started again with nothing new: no second outcome.
    StartBatch(batch);
    Fnd::GetDefaultQueue().Drain();
    EXPECT_EQ(log.batches.size(), 1u);
}

} // namespace
} // namespace igd::test
