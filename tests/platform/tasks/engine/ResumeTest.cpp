// Resume in process, from journal states set as a crash leaves them at each step of a copy.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "EngineTestSupport.h"
#include "Proj/Project.h"
#include "QL/Engine/Journal.h"
#include "platform/tasks/engine/src/BatchLock.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

ino_t InodeOf(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0 ? info.st_ino : 0;
}

void CopyTime(const std::string& from, const std::string& to) {
    struct stat info {};
    ::stat(from.c_str(), &info);
    const timespec times[2] = {info.st_atim, info.st_mtim};
    ::utimensat(AT_FDCWD, to.c_str(), times, 0);
}

// A copy as the copier leaves it just before its rename: same bytes, the source's time.
void CopyWithTime(const std::string& from, const std::string& to) {
    std::filesystem::copy_file(from, to);
    CopyTime(from, to);
}

class ResumeTest : public EngineTest {
protected:
    void SetUp() override {
        for (const char* name : {"A001.MOV", "A002.MOV", "A003.MOV", "A004.MOV", "A005.MOV"})
            tree.MakeFileOfSize(std::string("card/") + name, 300u << 10);
    }
    std::string Card(const std::string& name) const { return tree.NativePath("card/" + name); }
    std::string Main(const std::string& name) const { return tree.NativePath("main/" + name); }

    // Submits and starts the batch in a journal, as a process that then crashed would have.
    std::vector<FileRecord> CrashedBatch() {
        Journal journal(TestOptions(home).journalPath);
        std::vector<QL::IngestTask::CopyUnitRef> units;
        for (const char* name : {"A001.MOV", "A002.MOV", "A003.MOV", "A004.MOV", "A005.MOV"})
            units.push_back(FileUnit(source, destination, name));
        std::vector<FileRecord> files;
        journal.AddTask(batch, MakeCopyRecord(CopyOf(units, QL::IngestTask::kVerifyMD5, true), {}), files);
        journal.MarkBatchRunning(batch, u"Rushes", home.ProjectPath());
        return files;
    }
    void Record(std::vector<FileRecord>& files) {
        Journal journal(TestOptions(home).journalPath);
        std::vector<const FileRecord*> all;
        for (const FileRecord& file : files)
            all.push_back(&file);
        journal.UpdateFiles(all);
    }

    const Fnd::WString destination = tree.MakeFolder("main");
};

TEST_F(ResumeTest, EachStateACrashLeavesIsFinishedAndNothingVerifiedIsCopiedAgain) {
    std::vector<FileRecord> files = CrashedBatch();
    // A001: verified and still there.
    CopyWithTime(Card("A001.MOV"), Main("A001.MOV"));
    files[0].state = FileState::Verified;
    files[0].finalPath = Main("A001.MOV");
    files[0].size = 300u << 10;
    // A002: killed while writing its temporary.
    tree.MakeFile("main/.A002.MOV.igd-partial", "half a clip");
    files[1].state = FileState::Copying;
    files[1].temporary = Main(".A002.MOV.igd-partial");
    // A003: renamed into place just before the crash, the journal never told.
    CopyWithTime(Card("A003.MOV"), Main("A003.MOV"));
    files[2].state = FileState::Copying;
    files[2].temporary = Main(".A003.MOV.igd-partial");
    // A004: verified once, then deleted by the user; A005 never started.
    files[3].state = FileState::Verified;
    files[3].finalPath = Main("A004.MOV");
    files[3].size = 300u << 10;
    Record(files);
    // Killed while writing A001's sidecar, and after another copy had taken A005's first
    // temporary name; beside them hidden files that are not this batch's.
    tree.MakeFile("main/.A001.xmp.k3Xz9Q", "<x:xmpmeta");
    tree.MakeFile("main/.A001.MOV.XMP.a0B1c2", "<x:xmpmeta");
    tree.MakeFile("main/.A005.MOV.1.igd-partial", "a third of a clip");
    const std::vector<std::string> notOurs = {".B001.xmp.k3Xz9Q", ".A001.xmp.short", ".A001.MOV.notes",
                                              ".B001.MOV.igd-partial"};
    for (const std::string& name : notOurs)
        tree.MakeFile("main/" + name, "the user's");
    const ino_t a001 = InodeOf(Main("A001.MOV"));
    const ino_t a003 = InodeOf(Main("A003.MOV"));

    auto backend = std::make_shared<CountingBackend>();
    TaskService service(TestOptions(home, backend));
    ASSERT_EQ(service.Resume(batch), TaskService::ResumeResult::Queued);
    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Succeeded);
    EXPECT_EQ(outcome.filesAlreadyCopied, 2u);
    EXPECT_EQ(outcome.filesCopied, 3u);
    EXPECT_EQ(outcome.itemsImported, 5u);

    EXPECT_EQ(backend->Reads(Card("A001.MOV")), 0);
    EXPECT_EQ(backend->Reads(Card("A003.MOV")), 0);
    EXPECT_EQ(InodeOf(Main("A001.MOV")), a001);
    EXPECT_EQ(InodeOf(Main("A003.MOV")), a003);
    for (const char* name : {"A001.MOV", "A002.MOV", "A003.MOV", "A004.MOV", "A005.MOV"})
        EXPECT_EQ(ReadFileBytes(Main(name)), ReadFileBytes(Card(name))) << name;
    for (const char* left : {".A001.xmp.k3Xz9Q", ".A001.MOV.XMP.a0B1c2", ".A005.MOV.1.igd-partial"})
        EXPECT_FALSE(std::filesystem::exists(Main(left))) << left;
    for (const std::string& name : notOurs)
        EXPECT_EQ(ReadFileBytes(Main(name)), "the user's") << name;

    const std::optional<JournalBatch> after = service.GetJournal().LoadBatch(batch);
    EXPECT_EQ(after->state, BatchState::Finished);
    for (const FileRecord& file : after->files)
        EXPECT_EQ(file.state, FileState::Verified) << Fnd::ToUTF8(file.target);
    EXPECT_EQ(after->files[2].checksum.size(), 32u) << "an adopted copy is checked by MD5 too";
    const auto items = Proj::Project::Open(home.ProjectPath())->Items();
    ASSERT_EQ(items.size(), 5u);
    EXPECT_EQ(items[0].bin, u"Rushes");
}

TEST_F(ResumeTest, ATargetThatOnlyLooksLikeTheCopyIsNeitherAdoptedNorOverwritten) {
    std::vector<FileRecord> files = CrashedBatch();
    // Same size and time as its source, other bytes: someone else's file.
    tree.MakeFile("main/A001.MOV", std::string(300u << 10, 'x'));
    CopyTime(Card("A001.MOV"), Main("A001.MOV"));
    const std::string theirs = ReadFileBytes(Main("A001.MOV"));
    files[0].state = FileState::Copying;
    Record(files);

    TaskService service(TestOptions(home));
    ASSERT_EQ(service.Resume(batch), TaskService::ResumeResult::Queued);
    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.filesFailed, 1u);
    EXPECT_EQ(outcome.filesCopied, 4u);
    EXPECT_EQ(ReadFileBytes(Main("A001.MOV")), theirs);
    EXPECT_EQ(log.FileOutcome(Fnd::FromUTF8(Main("A001.MOV")))->reason, u"target exists");
}

TEST_F(ResumeTest, OnlyUnfinishedBatchesNotRunElsewhereAreResumed) {
    CrashedBatch();
    TaskService service(TestOptions(home));
    EXPECT_EQ(service.Resume(fluxcore::utility::Guid::CreateUnique()), TaskService::ResumeResult::Unknown);
    {
        // Another process holds the batch.
        BatchLock other = BatchLock::TryAcquire(TestOptions(home).journalPath, batch);
        ASSERT_TRUE(other.Held());
        EXPECT_EQ(service.Resume(batch), TaskService::ResumeResult::Busy);
    }
    ASSERT_EQ(service.Resume(batch), TaskService::ResumeResult::Queued);
    EXPECT_EQ(service.Resume(batch), TaskService::ResumeResult::Busy) << "already running here";
    RunUntilOutcome(log, batch);
    EXPECT_EQ(service.Resume(batch), TaskService::ResumeResult::NotResumable);
}

} // namespace
} // namespace igd::test
