// Copies through the real service: submitted as the library submits, started by the start
// message, run by the UI queue as a host runs it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>

#include "EngineTestSupport.h"
#include "Fnd/PathUtils.h"
#include "Fnd/RunLoop.h"

namespace igd::test {
namespace {

using namespace QL::Engine;
using QL::IngestTask::CopySetting;

class TaskServiceCopyTest : public EngineTest {
protected:
    // Three clips of 256 KiB on the card, submitted as one primary copy with MD5.
    void SubmitThreeClips(TaskService& service) {
        std::vector<QL::IngestTask::CopyUnitRef> units;
        for (const char* name : {"A001.MOV", "A002.MOV", "A003.MOV"}) {
            tree.MakeFileOfSize(std::string("card/") + name, 256u << 10);
            units.push_back(FileUnit(source, primary, name));
        }
        service.SubmitCopyTask(CopyOf(units, QL::IngestTask::kVerifyMD5, true), batch, {});
    }
};

// How the host is told a copy was read back: only a filesystem that refuses direct I/O makes
// the copier drop the cache instead.
struct VerifyCase {
    std::uint32_t mode;
    const char* name;
    std::vector<VerifiedBy> verifiedBy;
    // Every copy carries its source's digest for the destination's manifest: the mode's checksum,
    // else xxh128.
    std::string algorithm;
    std::string checksum;
};

class VerifyModeTest : public TaskServiceCopyTest, public ::testing::WithParamInterface<VerifyCase> {};

TEST_P(VerifyModeTest, CopiesAndVerifiesEachFileOnlyOnceStarted) {
    tree.MakeFile("card/A001.MOV", "hello world\n");
    tree.MakeFileOfSize("card/A002.MOV", 3u << 20);
    TaskService service(TestOptions(home));
    service.SubmitCopyTask(
        CopyOf({FileUnit(source, primary, "A001.MOV"), FileUnit(source, primary, "A002.MOV")},
               GetParam().mode, true),
        batch, {});

    // Submitted tasks wait for their start message.
    Fnd::GetDefaultQueue().Drain();
    EXPECT_TRUE(service.IsIdle());
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(primary, false));

    StartBatch(batch);
    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Succeeded);
    EXPECT_EQ(outcome.filesCopied, 2u);
    EXPECT_EQ(outcome.bytesRead, 12u + (3u << 20));
    for (const char* name : {"A001.MOV", "A002.MOV"})
        EXPECT_EQ(ReadFileBytes(Native(primary, name)), ReadFileBytes(Native(source, name))) << name;

    const FileOutcomeMessage* small = log.FileOutcome(Fnd::FromUTF8(Native(primary, "A001.MOV")));
    ASSERT_NE(small, nullptr);
    EXPECT_EQ(small->status, FileStatus::Copied);
    EXPECT_EQ(small->verifyMode, GetParam().mode);
    EXPECT_EQ(small->checksum, GetParam().checksum);
    EXPECT_EQ(small->checksumAlgorithm, GetParam().algorithm);
    EXPECT_THAT(GetParam().verifiedBy, ::testing::Contains(small->verifiedBy));
    EXPECT_TRUE(TemporariesIn(Fnd::ToUTF8(primary)).empty());
}

const std::vector<VerifiedBy> kReadBack{VerifiedBy::DirectRead, VerifiedBy::DroppedCache};
INSTANTIATE_TEST_SUITE_P(
    EveryMode, VerifyModeTest,
    ::testing::Values(
        VerifyCase{QL::IngestTask::kVerifyMD5, "MD5", kReadBack, "md5", "6f5902ac237024bdd0c176cb93063dc4"},
        VerifyCase{QL::IngestTask::kVerifyXXH128, "XXH128", kReadBack, "xxh128", "eefac9d87100cd1336b2e733a5484425"},
        VerifyCase{QL::IngestTask::kVerifyXXH64, "XXH64", kReadBack, "xxh64", "5215e13b207d6d8c"},
        VerifyCase{QL::IngestTask::kVerifyFileSize, "Size", {VerifiedBy::Size}, "xxh128", "eefac9d87100cd1336b2e733a5484425"},
        VerifyCase{QL::IngestTask::kVerifyBitByBit, "BitByBit", kReadBack, "xxh128", "eefac9d87100cd1336b2e733a5484425"},
        VerifyCase{QL::IngestTask::kVerifyNone, "None", {VerifiedBy::NotVerified}, "xxh128",
                   "eefac9d87100cd1336b2e733a5484425"}),
    [](const auto& info) { return std::string(info.param.name); });

// Progress counts each source once however many targets it has; the outcomes of the files, the
// tasks and the batch come after.
TEST_F(TaskServiceCopyTest, TwoDestinationsReadEachSourceOnceAndReportInSubmissionOrder) {
    const std::vector<std::string> names{"C003.MOV", "A001.MOV", "B002.MOV"};
    std::vector<QL::IngestTask::CopyUnitRef> toPrimary;
    std::vector<QL::IngestTask::CopyUnitRef> toBackup;
    for (const std::string& name : names) {
        tree.MakeFileOfSize("card/" + name, 1u << 20);
        toPrimary.push_back(FileUnit(source, primary, name));
        toBackup.push_back(FileUnit(source, backup, name));
    }
    auto backend = std::make_shared<CountingBackend>();
    TaskService service(TestOptions(home, backend));
    service.SubmitCopyTask(CopyOf(toPrimary, QL::IngestTask::kVerifyMD5, true), batch, {});
    service.SubmitCopyTask(CopyOf(toBackup, QL::IngestTask::kVerifyMD5, false), batch, {});
    StartBatch(batch);

    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.filesCopied, 6u);
    EXPECT_EQ(outcome.bytesRead, 3u << 20);
    std::vector<Fnd::WString> expectedSources;
    for (const std::string& name : names) {
        const std::string path = Native(source, name);
        expectedSources.insert(expectedSources.end(), 2, Fnd::FromUTF8(path));
        EXPECT_EQ(backend->Reads(path), 1) << name;
        EXPECT_EQ(ReadFileBytes(Native(primary, name)), ReadFileBytes(path));
        EXPECT_EQ(ReadFileBytes(Native(backup, name)), ReadFileBytes(path));
    }
    std::vector<Fnd::WString> reportedSources;
    for (const FileOutcomeMessage& file : log.files)
        reportedSources.push_back(file.source);
    EXPECT_EQ(reportedSources, expectedSources);

    ASSERT_GE(log.progress.size(), 2u);
    EXPECT_EQ(log.progress.front().filesTotal, 3u);
    EXPECT_EQ(log.progress.front().bytesTotal, 3u << 20);
    std::uint64_t bytes = 0;
    for (const BatchProgressMessage& progress : log.progress) {
        EXPECT_EQ(progress.batch, batch);
        EXPECT_GE(progress.bytesDone, bytes);
        EXPECT_LE(progress.bytesDone, progress.bytesTotal);
        bytes = progress.bytesDone;
    }
    EXPECT_EQ(log.progress.back().filesDone, 3u);
    EXPECT_EQ(log.progress.back().bytesDone, 3u << 20);
    EXPECT_TRUE(log.progress.back().currentFile.empty());
    ASSERT_EQ(log.tasks.size(), 2u);
    EXPECT_EQ(log.tasks[0].task, 0u);
    EXPECT_EQ(log.tasks[0].itemsImported, 3u);
    EXPECT_EQ(log.tasks[1].task, 1u);
    EXPECT_EQ(log.tasks[1].itemsImported, 0u) << "a backup is not imported";
    EXPECT_EQ(log.batches.size(), 1u);
}

TEST_F(TaskServiceCopyTest, ASourceThatEndsBeforeTheOneStartedEarlierWaitsForItsTurnToReport) {
    // Chunks smaller than the clips: each clip streams on its own rather than in one group.
    auto backend = std::make_shared<CountingBackend>(64u << 10);
    std::mutex mutex;
    std::condition_variable secondStarted;
    bool second = false;
    bool overlapped = false;
    backend->beforeCopy = [&](const std::string& path) {
        std::unique_lock lock(mutex);
        if (path == Native(source, "A002.MOV")) {
            second = true;
            secondStarted.notify_all();
        } else if (path == Native(source, "A001.MOV")) {
            // The first holds back until the second is under way, so the second ends first.
            overlapped = secondStarted.wait_for(lock, std::chrono::seconds(10), [&] { return second; });
            lock.unlock();
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
    };
    TaskService service(TestOptions(home, backend));
    SubmitThreeClips(service);
    StartBatch(batch);

    EXPECT_EQ(RunUntilOutcome(log, batch).filesCopied, 3u);
    EXPECT_TRUE(overlapped) << "the second source should start while the first is still copying";
    ASSERT_EQ(log.files.size(), 3u);
    EXPECT_EQ(log.files[0].source, Fnd::FromUTF8(Native(source, "A001.MOV")));
    EXPECT_EQ(log.files[1].source, Fnd::FromUTF8(Native(source, "A002.MOV")));
    EXPECT_EQ(log.files[2].source, Fnd::FromUTF8(Native(source, "A003.MOV")));
}

TEST_F(TaskServiceCopyTest, AFolderAnsweredKeepBothOrReplaceIsMergedIntoNeverEmptied) {
    tree.MakeFile("card/CLIP/A001.MOV", "new take");
    tree.MakeFile("card/CLIP/A002.MOV", "second");
    tree.MakeFile("primary/card/CLIP/A001.MOV", "the take already there");
    tree.MakeFile("primary/card/notes.txt", "the editor's notes");
    // A folder item as the plan makes it: the folder, then its content, each with its answer.
    const auto entry = [&](const std::u16string& below, std::int32_t action) {
        return QL::CopyEntry{source + below, primary + u"/card" + below, action, true};
    };
    QL::IngestTask::CopyUnitRef unit(new QL::IngestTask::CopyUnit);
    unit->entries = {entry(u"", QL::kCopyActionReplace), entry(u"/CLIP", QL::kCopyActionKeepBoth),
                     entry(u"/CLIP/A001.MOV", QL::kCopyActionKeepBoth),
                     entry(u"/CLIP/A002.MOV", QL::kCopyActionNone)};
    TaskService service(TestOptions(home));
    service.SubmitCopyTask(CopyOf({unit}, QL::IngestTask::kVerifyMD5, false), batch, {});
    StartBatch(batch);

    EXPECT_EQ(RunUntilOutcome(log, batch).status, OutcomeStatus::Succeeded);
    EXPECT_EQ(ReadFileBytes(Native(primary, "card/notes.txt")), "the editor's notes");
    EXPECT_EQ(ReadFileBytes(Native(primary, "card/CLIP/A001.MOV")), "the take already there");
    EXPECT_EQ(ReadFileBytes(Native(primary, "card/CLIP/A001 (1).MOV")), "new take");
    EXPECT_EQ(ReadFileBytes(Native(primary, "card/CLIP/A002.MOV")), "second");
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(primary + u"/card (1)", false));
    EXPECT_FALSE(Fnd::PathUtils::ExistsOnDisk(primary + u"/card/CLIP (1)", false));
}

TEST_F(TaskServiceCopyTest, ADestinationThatCannotBeMadeFailsItsFilesAndLeavesNoFinalName) {
    tree.MakeFile("card/A001.MOV", "frames");
    tree.MakeFile("blocker", "a file where the destination's parent should be");
    const Fnd::WString impossible = tree.Path("blocker/dest");
    TaskService service(TestOptions(home));
    service.SubmitCopyTask(
        CopyOf({FileUnit(source, impossible, "A001.MOV")}, QL::IngestTask::kVerifyMD5, true), batch, {});
    service.SubmitCopyTask(CopyOf({FileUnit(source, backup, "A001.MOV")}, QL::IngestTask::kVerifyMD5, false),
                           batch, {});
    StartBatch(batch);

    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Failed);
    EXPECT_EQ(outcome.filesFailed, 1u);
    EXPECT_EQ(outcome.filesCopied, 1u);
    EXPECT_EQ(outcome.itemsImported, 0u) << "a clip whose copy failed is not imported";
    const FileOutcomeMessage* failed = log.FileOutcome(Fnd::FromUTF8(Native(impossible, "A001.MOV")));
    ASSERT_NE(failed, nullptr);
    EXPECT_NE(Fnd::ToUTF8(failed->reason).find("Not a directory"), std::string::npos)
        << Fnd::ToUTF8(failed->reason);
    EXPECT_EQ(ReadFileBytes(Native(backup, "A001.MOV")), "frames");
}

} // namespace
} // namespace igd::test
