#include <chrono>
#include <future>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "CopyOutcomePrinting.h"
#include "CopyTestFiles.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace QL::Engine;
using QL::IngestTask::kVerifyBitByBit;
using QL::IngestTask::kVerifyMD5;

constexpr std::size_t kSmallChunk = 64 * 1024;
constexpr std::uint64_t kChunks = 20;

// A clip copied to two destinations on a thread of its own, as the scheduler runs it, with a
// progress callback that holds the copy after its first chunk until the test lets it go.
class HeldCopy {
public:
    HeldCopy(const TempTree& tree, std::uint32_t verifyMode) {
        copy_ = std::async(std::launch::async, [&tree, verifyMode, this] {
            return FileCopier(kSmallChunk)
                .CopyFile(tree.NativePath("card/A001.MOV"),
                          {{tree.NativePath("a/A001.MOV"), 0}, {tree.NativePath("b/A001.MOV"), 0}},
                          verifyMode, control, [this](std::uint64_t done) {
                              if (done == kSmallChunk) {
                                  firstChunk_.set_value();
                                  release_.get_future().wait();
                              }
                          });
        });
        firstChunk_.get_future().wait();
    }

    void Release() { release_.set_value(); }
    std::vector<CopyOutcome> Outcomes() { return copy_.get(); }

    CopyControl control;

private:
    std::promise<void> firstChunk_;
    std::promise<void> release_;
    std::future<std::vector<CopyOutcome>> copy_;
};

class FileCopierControl : public ::testing::Test {
protected:
    FileCopierControl() {
        tree_.MakeFileOfSize("card/A001.MOV", kChunks * kSmallChunk + 10);
        source_ = tree_.NativePath("card/A001.MOV");
    }

    void ExpectNothingLeft() {
        EXPECT_TRUE(NamesIn(tree_.NativePath("a")).empty());
        EXPECT_TRUE(NamesIn(tree_.NativePath("b")).empty());
    }

    TempTree tree_;
    std::string source_;
    CopyControl control_;
};

// Cancel comes from another thread, here while the copy is paused: it must wake it and clean up.
TEST_F(FileCopierControl, CancelWakesAPausedCopyAndRemovesTemporaries) {
    for (const std::uint32_t mode : {kVerifyMD5, kVerifyBitByBit}) {
        SCOPED_TRACE("mode " + std::to_string(mode));
        HeldCopy held(tree_, mode);
        held.control.Pause();
        held.Release();
        held.control.Cancel();
        for (const CopyOutcome& outcome : held.Outcomes()) {
            EXPECT_EQ(outcome.status, CopyStatus::Cancelled);
            EXPECT_EQ(outcome.finalPath, "");
        }
        ExpectNothingLeft();
    }
}

TEST_F(FileCopierControl, ACancelledBatchStartsNothing) {
    control_.Cancel();
    const auto outcomes =
        FileCopier(kSmallChunk)
            .CopyFile(source_, {{tree_.NativePath("a/A001.MOV"), 0}, {tree_.NativePath("b/A001.MOV"), 1}},
                      kVerifyMD5, control_, {});
    EXPECT_EQ(outcomes[0].status, CopyStatus::Cancelled);
    EXPECT_EQ(outcomes[1].status, CopyStatus::Skipped);
    EXPECT_FALSE(Exists(tree_.NativePath("a")));
}

TEST_F(FileCopierControl, ProgressCountsSourceBytesPerChunkOnTheCallingThread) {
    std::vector<std::uint64_t> seen;
    bool sameThread = true;
    const auto caller = std::this_thread::get_id();
    const auto outcomes =
        FileCopier(kSmallChunk)
            .CopyFile(source_, {{tree_.NativePath("a/A001.MOV"), 0}, {tree_.NativePath("b/A001.MOV"), 0}},
                      kVerifyMD5, control_, [&](std::uint64_t done) {
                          seen.push_back(done);
                          sameThread = sameThread && std::this_thread::get_id() == caller;
                      });
    ASSERT_EQ(seen.size(), kChunks + 1);
    for (std::size_t i = 0; i < kChunks; ++i)
        EXPECT_EQ(seen[i], (i + 1) * kSmallChunk);
    EXPECT_EQ(seen.back(), kChunks * kSmallChunk + 10);
    EXPECT_TRUE(sameThread);
}

// A fault of the host's callback passes through to it, after the copy has cleaned up.
TEST_F(FileCopierControl, AFaultInTheProgressCallbackLeavesNothingBehind) {
    const auto faulty = [](std::uint64_t done) {
        if (done >= 3 * kSmallChunk)
            throw std::runtime_error("host fault");
    };
    EXPECT_THROW(FileCopier(kSmallChunk)
                     .CopyFile(source_,
                               {{tree_.NativePath("a/A001.MOV"), 0}, {tree_.NativePath("b/A001.MOV"), 0}},
                               kVerifyMD5, control_, faulty),
                 std::runtime_error);
    ExpectNothingLeft();
}

} // namespace
} // namespace igd::test
