// Faults a set or an office meets, injected into the real service: disks that fill, vanish or
// turn read-only, sources that fail or go away while read, copies damaged on their way to the
// disk, a journal that cannot record. Each case checks what the host is told (the file and the
// reason), what is left on disk (no final name holding a partial or bad copy, no temporary) and
// what the journal says.
#include <gtest/gtest.h>
#include <strings.h>
#include <sys/mount.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <future>
#include <map>
#include <set>

#include "EngineTestSupport.h"
#include "Fnd/PathUtils.h"
#include "QL/Engine/Journal.h"
#include "support/ScratchMount.h"

namespace igd::test {
namespace {

using namespace QL::Engine;
using QL::IngestTask::kVerifyBitByBit;
using QL::IngestTask::kVerifyMD5;

constexpr std::size_t kChunk = 64u << 10;

bool Exists(const std::string& path) {
    return ::access(path.c_str(), F_OK) == 0;
}

void FlipByte(const std::string& path, std::uint64_t offset) {
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekg(static_cast<std::streamoff>(offset));
    const char byte = static_cast<char>(file.get() ^ 0x01);
    file.seekp(static_cast<std::streamoff>(offset));
    file.put(byte);
}

class FaultTest : public EngineTest {
protected:
    // Clips of the given sizes on the card, copied with MD5 to the primary (imported) and, when
    // asked, to the backup.
    void Submit(TaskService& service, const std::map<std::string, std::uint64_t>& clips,
                const Fnd::WString& first, const Fnd::WString& second = {},
                std::uint32_t verifyMode = kVerifyMD5, std::int32_t action = QL::kCopyActionNone) {
        for (const Fnd::WString& destination : {first, second}) {
            if (destination.empty())
                continue;
            std::vector<QL::IngestTask::CopyUnitRef> units;
            for (const auto& [name, size] : clips) {
                if (!Exists(Native(source, name)))
                    tree.MakeFileOfSize("card/" + name, size);
                units.push_back(FileUnit(source, destination, name, {}, action));
            }
            service.SubmitCopyTask(CopyOf(units, verifyMode, destination == first), batch, {});
        }
        StartBatch(batch);
    }

    std::string ReasonFor(const Fnd::WString& folder, const std::string& name) const {
        const FileOutcomeMessage* outcome = log.FileOutcome(Fnd::FromUTF8(Native(folder, name)));
        if (outcome == nullptr)
            return "(no outcome)";
        return outcome->status == FileStatus::Copied ? "copied" : Fnd::ToUTF8(outcome->reason);
    }

    // The journal's record of each target, by target path.
    std::map<std::string, FileRecord> Journalled(const TaskService& service) const {
        std::map<std::string, FileRecord> records;
        const std::optional<JournalBatch> loaded = service.GetJournal().LoadBatch(batch);
        EXPECT_TRUE(loaded.has_value());
        if (loaded)
            for (const FileRecord& file : loaded->files)
                records.emplace(Fnd::ToUTF8(file.target), file);
        return records;
    }

    // A failed file: the host heard the reason, nothing stands under its name, no temporary is
    // beside it, and the journal says failed, for the same reason, with nothing left to clean.
    void ExpectFailed(const TaskService& service, const Fnd::WString& folder, const std::string& name,
                      const std::string& reason) {
        SCOPED_TRACE(name);
        const std::string target = Native(folder, name);
        EXPECT_NE(ReasonFor(folder, name).find(reason), std::string::npos) << ReasonFor(folder, name);
        EXPECT_FALSE(Exists(target));
        EXPECT_TRUE(TemporariesIn(Fnd::ToUTF8(folder)).empty());
        const FileRecord record = Journalled(service)[target];
        EXPECT_EQ(record.state, FileState::Failed);
        EXPECT_NE(record.reason.find(reason), std::string::npos) << record.reason;
        EXPECT_TRUE(record.temporary.empty());
    }

    void ExpectCopied(const Fnd::WString& folder, const std::string& name) {
        SCOPED_TRACE(name);
        EXPECT_EQ(ReasonFor(folder, name), "copied");
        EXPECT_EQ(ReadFileBytes(Native(folder, name)), ReadFileBytes(Native(source, name)));
    }
};

// ---- The destination fills up --------------------------------------------------------------

TEST_F(FaultTest, AFullDestinationFailsWhatDoesNotFitAndTheOtherDestinationGetsEverything) {
    ScratchMount small(tree.NativePath("primary"), "tmpfs", "size=1m");
    if (!small.Mounted())
        GTEST_SKIP() << small.Why();
    TaskService service(TestOptions(home, std::make_shared<CountingBackend>(kChunk)));
    // The third does not fit beside the first two; the fourth, small, still does.
    Submit(service, {{"A001.MOV", 300u << 10}, {"A002.MOV", 300u << 10}, {"A003.MOV", 600u << 10},
                     {"A004.MOV", 100u << 10}},
           primary, backup);

    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Failed);
    ExpectFailed(service, primary, "A003.MOV", "could not write the copy: No space left on device");
    for (const char* name : {"A001.MOV", "A002.MOV"})
        ExpectCopied(primary, name);
    // A004 is copied beside A003: while the filesystem tries A003's room and gives it back, the
    // disk can be full for A004 too. Then it fails the same way, and never half-written.
    if (ReasonFor(primary, "A004.MOV") == "copied") {
        ExpectCopied(primary, "A004.MOV");
        EXPECT_EQ(outcome.filesFailed, 1u);
    } else {
        ExpectFailed(service, primary, "A004.MOV", "No space left on device");
        EXPECT_EQ(outcome.filesFailed, 2u);
    }
    for (const char* name : {"A001.MOV", "A002.MOV", "A003.MOV", "A004.MOV"})
        ExpectCopied(backup, name);
    EXPECT_EQ(service.Resume(batch), TaskService::ResumeResult::NotResumable) << "the batch is over";
}

// Filesystems that cannot reserve space run out in the middle of a file.
TEST_F(FaultTest, ADiskFullInTheMiddleOfAFileLeavesNeitherPartNorTemporary) {
    CopyHooks hooks;
    hooks.failWrite = [](const std::string& temporary, std::uint64_t offset) {
        return temporary.find("/backup/") != std::string::npos && offset >= 2 * kChunk ? ENOSPC : 0;
    };
    TaskService service(TestOptions(home, std::make_shared<CountingBackend>(kChunk, hooks)));
    Submit(service, {{"A001.MOV", 5 * kChunk + 17}}, primary, backup);

    RunUntilOutcome(log, batch);
    ExpectCopied(primary, "A001.MOV");
    ExpectFailed(service, backup, "A001.MOV", "could not write the copy: No space left on device");
}

// ---- The destination goes away ---------------------------------------------------------------

TEST_F(FaultTest, ADestinationRemovedMidBatchIsNotMadeAgainAndItsRestFailsAsGone) {
    auto backend = std::make_shared<CountingBackend>(kChunk);
    const std::string backupRoot = Fnd::ToUTF8(backup);
    // The day's folder does not exist yet: the run makes it, and must not make it again.
    const Fnd::WString day = backup + u"/day1";
    std::promise<void> removed;
    backend->beforeCopy = [&, gone = removed.get_future().share()](const std::string& copying) {
        if (copying.ends_with("A003.MOV")) {
            std::filesystem::remove_all(backupRoot);
            removed.set_value();
        } else if (copying.ends_with("A004.MOV")) {
            gone.wait_for(std::chrono::seconds(30));
        }
    };
    TaskService service(TestOptions(home, backend));
    Submit(service, {{"A001.MOV", 100u << 10}, {"A002.MOV", 100u << 10}, {"A003.MOV", 100u << 10},
                     {"A004.MOV", 100u << 10}},
           primary, day);

    RunUntilOutcome(log, batch);
    for (const char* name : {"A001.MOV", "A002.MOV", "A003.MOV", "A004.MOV"})
        ExpectCopied(primary, name);
    // Sources are copied side by side: those beside A003 may have been caught too, even while the
    // removal was still emptying their folder (then their own file vanished first).
    for (const char* name : {"A001.MOV", "A002.MOV"}) {
        const std::string reason = ReasonFor(day, name);
        EXPECT_TRUE(reason == "copied" || reason == "destination is gone" ||
                    reason.ends_with("No such file or directory"))
            << reason;
    }
    ExpectFailed(service, day, "A003.MOV", "destination is gone");
    ExpectFailed(service, day, "A004.MOV", "destination is gone");
    EXPECT_FALSE(Exists(backupRoot)) << "made again on the disk underneath";
}

TEST_F(FaultTest, ADestinationUnmountedMidBatchLeavesTheMountPointEmpty) {
    ScratchMount drive(tree.NativePath("backup"), "tmpfs", "size=8m");
    if (!drive.Mounted())
        GTEST_SKIP() << drive.Why();
    auto backend = std::make_shared<CountingBackend>(kChunk);
    backend->beforeCopy = [&](const std::string& copying) {
        if (copying.ends_with("A002.MOV")) {
            EXPECT_EQ(::umount2(drive.Folder().c_str(), MNT_DETACH), 0);
        }
    };
    TaskService service(TestOptions(home, backend));
    Submit(service, {{"A001.MOV", 100u << 10}, {"A002.MOV", 100u << 10}, {"A003.MOV", 100u << 10}}, primary,
           backup + u"/reel");

    RunUntilOutcome(log, batch);
    ExpectCopied(primary, "A003.MOV");
    EXPECT_NE(ReasonFor(backup + u"/reel", "A001.MOV"), "(no outcome)");
    EXPECT_NE(ReasonFor(backup + u"/reel", "A002.MOV").find("destination is gone"), std::string::npos);
    EXPECT_NE(ReasonFor(backup + u"/reel", "A003.MOV").find("destination is gone"), std::string::npos);
    EXPECT_TRUE(std::filesystem::is_empty(drive.Folder())) << "copies landed in the bare mount point";
}

// A crash, then the backup drive not mounted again before resume: what the journal says was
// copied there marks the destination, and its empty mount point is not written to.
TEST_F(FaultTest, ADestinationGoneBeforeResumeIsNotMadeAgain) {
    const Fnd::WString drive = tree.MakeFolder("drive");
    std::vector<FileRecord> files;
    {
        Journal journal(TestOptions(home).journalPath);
        std::vector<QL::IngestTask::CopyUnitRef> units;
        for (const char* name : {"A001.MOV", "A002.MOV"}) {
            tree.MakeFileOfSize(std::string("card/") + name, 100u << 10);
            units.push_back(FileUnit(source, drive, name));
        }
        journal.AddTask(batch, MakeCopyRecord(CopyOf(units, kVerifyMD5, false), {}), files);
        journal.MarkBatchRunning(batch, u"", home.ProjectPath());
        files[0].state = FileState::Verified;
        files[0].finalPath = Native(drive, "A001.MOV");
        journal.UpdateFiles({&files[0]});
    }
    std::filesystem::remove_all(Fnd::ToUTF8(drive));

    TaskService service(TestOptions(home));
    ASSERT_EQ(service.Resume(batch), TaskService::ResumeResult::Queued);
    RunUntilOutcome(log, batch);
    for (const char* name : {"A001.MOV", "A002.MOV"})
        EXPECT_EQ(ReasonFor(drive, name), "destination is gone");
    EXPECT_FALSE(Exists(Fnd::ToUTF8(drive)));
}

// A disk turned read-only after the copy was written and closed (a remount needs no writer open)
// refuses both the final name and the removal of the temporary: the user hears where it is, and
// the journal keeps it for cleaning.
TEST_F(FaultTest, ADestinationTurnedReadOnlyNamesThePartialCopyItCouldNotRemove) {
    ScratchMount drive(tree.NativePath("backup"), "tmpfs", "size=8m");
    if (!drive.Mounted())
        GTEST_SKIP() << drive.Why();
    std::string partial;
    std::promise<void> remounted;
    CopyHooks hooks;
    hooks.afterWrite = [&](const std::string& temporary) {
        if (temporary.find("/backup/") == std::string::npos || !partial.empty())
            return;
        partial = temporary;
        EXPECT_EQ(::mount(nullptr, drive.Folder().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
        remounted.set_value();
    };
    auto backend = std::make_shared<CountingBackend>(kChunk, hooks);
    // No copy may hold a file of the disk open for writing while it is remounted.
    backend->beforeCopy = [future = remounted.get_future().share()](const std::string& copying) {
        if (copying.ends_with("A002.MOV")) {
            future.wait_for(std::chrono::seconds(30));
        }
    };
    TaskService service(TestOptions(home, backend));
    Submit(service, {{"A001.MOV", 200u << 10}, {"A002.MOV", 100u << 10}}, primary, backup);

    RunUntilOutcome(log, batch);
    ExpectCopied(primary, "A002.MOV");
    const std::string reason = ReasonFor(backup, "A001.MOV");
    EXPECT_NE(reason.find("could not give the copy its name: Read-only file system"), std::string::npos)
        << reason;
    EXPECT_NE(reason.find("the partial copy " + partial + " could not be removed"), std::string::npos)
        << reason;
    EXPECT_EQ(ReasonFor(backup, "A002.MOV"), "could not create the copy: Read-only file system");
    EXPECT_FALSE(Exists(Native(backup, "A001.MOV")));
    EXPECT_EQ(TemporariesIn(drive.Folder()), std::vector<std::string>{Fnd::PathUtils::FileNameOf(partial)});
    EXPECT_EQ(Journalled(service)[Native(backup, "A001.MOV")].temporary, partial);
    ::mount(nullptr, drive.Folder().c_str(), nullptr, MS_REMOUNT, nullptr);
}

// ---- Faults inside a group of small files ----------------------------------------------------
// Small files are copied in groups with one flush for all of them: a fault in one file of a group
// fails that file alone, and nothing half-written or unverified takes a final name.

std::map<std::string, std::uint64_t> SmallClips(int count, std::uint64_t size) {
    std::map<std::string, std::uint64_t> clips;
    for (int i = 1; i <= count; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "S%03d.MOV", i);
        clips.emplace(name, size);
    }
    return clips;
}

TEST_F(FaultTest, AGroupMeetingAFullDiskCopiesWhatFitsAndFailsTheRestWhole) {
    ScratchMount small(tree.NativePath("primary"), "tmpfs", "size=512k");
    if (!small.Mounted())
        GTEST_SKIP() << small.Why();
    TaskService service(TestOptions(home, std::make_shared<CountingBackend>()));
    const auto clips = SmallClips(24, 40u << 10);
    Submit(service, clips, primary, backup);

    RunUntilOutcome(log, batch);
    int copied = 0;
    for (const auto& [name, size] : clips) {
        ExpectCopied(backup, name);
        if (ReasonFor(primary, name) == "copied") {
            ExpectCopied(primary, name);
            ++copied;
        } else {
            ExpectFailed(service, primary, name, "No space left on device");
        }
    }
    EXPECT_GT(copied, 0);
    EXPECT_LT(copied, 24);
}

TEST_F(FaultTest, AGroupWhoseDestinationTurnsReadOnlyNamesNothingAndKeepsItsPartialsOnRecord) {
    ScratchMount drive(tree.NativePath("backup"), "tmpfs", "size=8m");
    if (!drive.Mounted())
        GTEST_SKIP() << drive.Why();
    CopyHooks hooks;
    std::atomic<bool> remounted{false};
    hooks.afterWrite = [&](const std::string& temporary) {
        if (temporary.find("/backup/") != std::string::npos && !remounted.exchange(true)) {
            EXPECT_EQ(::mount(nullptr, drive.Folder().c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
        }
    };
    TaskService service(TestOptions(home, std::make_shared<CountingBackend>(8u << 20, hooks)));
    const auto clips = SmallClips(5, 10u << 10);
    Submit(service, clips, primary, backup);

    RunUntilOutcome(log, batch);
    const auto journalled = Journalled(service);
    for (const auto& [name, size] : clips) {
        ExpectCopied(primary, name);
        const std::string reason = ReasonFor(backup, name);
        EXPECT_NE(reason.find("could not give the copy its name: Read-only file system"), std::string::npos)
            << reason;
        EXPECT_FALSE(Exists(Native(backup, name)));
        const FileRecord& record = journalled.at(Native(backup, name));
        EXPECT_EQ(record.state, FileState::Failed);
        EXPECT_NE(reason.find("the partial copy " + record.temporary + " could not be removed"), std::string::npos)
            << reason;
    }
    EXPECT_EQ(TemporariesIn(drive.Folder()).size(), clips.size());
    ::mount(nullptr, drive.Folder().c_str(), nullptr, MS_REMOUNT, nullptr);
}

// ---- The journal cannot record ----------------------------------------------------------------

TEST_F(FaultTest, NothingIsCopiedWhenTheJournalCannotRecordSinceACrashCouldNotBeResumed) {
    ScratchMount journalDisk(tree.NativePath("journal"), "tmpfs", "size=256k");
    if (!journalDisk.Mounted())
        GTEST_SKIP() << journalDisk.Why();
    TaskServiceOptions options = TestOptions(home, std::make_shared<CountingBackend>(kChunk));
    options.journalPath = journalDisk.Folder() + "/journal.sqlite";
    TaskService service(options);
    {
        std::ofstream filler(journalDisk.Folder() + "/filler", std::ios::binary);
        const std::string block(4096, 'x');
        while (filler.write(block.data(), static_cast<std::streamsize>(block.size())))
            filler.flush();
    }
    Submit(service, {{"A001.MOV", 100u << 10}, {"A002.MOV", 100u << 10}}, primary, backup);

    const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
    EXPECT_EQ(outcome.status, OutcomeStatus::Failed);
    // SQLite says "database or disk is full" or "disk I/O error", as the page it could not write.
    EXPECT_NE(Fnd::ToUTF8(outcome.journalProblem).find(options.journalPath + " cannot be used"),
              std::string::npos)
        << Fnd::ToUTF8(outcome.journalProblem);
    EXPECT_EQ(outcome.filesCopied, 0u);
    EXPECT_EQ(outcome.filesFailed, 4u);
    for (const Fnd::WString& folder : {primary, backup}) {
        for (const char* name : {"A001.MOV", "A002.MOV"}) {
            EXPECT_NE(ReasonFor(folder, name).find("not copied, since a crash could not be resumed"),
                      std::string::npos)
                << ReasonFor(folder, name);
            EXPECT_FALSE(Exists(Native(folder, name)));
        }
    }
}

// ---- The source fails or goes away while it is read ---------------------------------------------

// A card pulled while a clip is read (its file cut short, or gone from the folder though the open
// descriptor still reads) or a read error: the clip's copies fail alone, whether it streams on its
// own or is read within a group of small files, and even a copy nobody reads back is no copy.
TEST_F(FaultTest, ASourceThatFailsOrGoesAwayWhileReadIsNoCopyAndNothingOfItIsImported) {
    constexpr auto Remove = [](const std::string& path) {
        std::filesystem::remove(path);
        return 0;
    };
    const struct {
        const char* name;
        std::uint64_t size;
        std::uint64_t at; // the offset whose read meets the fault
        int (*fault)(const std::string&);
        const char* reason;
    } cases[] = {
        {"A001.MOV", 6 * kChunk, 2 * kChunk,
         [](const std::string& path) {
             std::filesystem::resize_file(path, kChunk + 100);
             return 0;
         },
         "it changed while it was being read"},
        {"A002.MOV", 6 * kChunk, 2 * kChunk, Remove, "it was removed while it was being read"},
        {"A003.MOV", 6 * kChunk, 2 * kChunk, [](const std::string&) { return EIO; },
         "source could not be read: Input/output error"},
        {"S002.MOV", 10u << 10, 0, Remove, "it was removed while it was being read"},
    };
    CopyHooks hooks;
    hooks.beforeRead = [&](const std::string& path, std::uint64_t offset) {
        for (const auto& pulled : cases)
            if (offset == pulled.at && path.ends_with(pulled.name))
                return pulled.fault(path);
        return 0;
    };
    for (const std::uint32_t mode : {kVerifyMD5, QL::IngestTask::kVerifyNone}) {
        SCOPED_TRACE("mode " + std::to_string(mode));
        batch = fluxcore::utility::Guid::CreateUnique();
        log.files.clear();
        for (const Fnd::WString& folder : {primary, backup})
            std::filesystem::remove_all(Fnd::ToUTF8(folder));
        std::map<std::string, std::uint64_t> clips{{"A004.MOV", 6 * kChunk}, {"S001.MOV", 10u << 10}};
        for (const auto& pulled : cases)
            clips.emplace(pulled.name, pulled.size);
        for (const auto& [name, size] : clips)
            tree.MakeFileOfSize("card/" + name, size);
        TaskService service(TestOptions(home, std::make_shared<CountingBackend>(kChunk, hooks)));
        Submit(service, clips, primary, backup, mode);
        const BatchOutcomeMessage& outcome = RunUntilOutcome(log, batch);
        EXPECT_EQ(outcome.filesFailed, 8u);
        EXPECT_EQ(outcome.itemsImported, 2u);
        for (const Fnd::WString& folder : {primary, backup}) {
            for (const auto& pulled : cases)
                ExpectFailed(service, folder, pulled.name, pulled.reason);
            ExpectCopied(folder, "A004.MOV");
            ExpectCopied(folder, "S001.MOV");
        }
    }
}

// ---- The copy is damaged or cannot be read back ---------------------------------------------------

// Each mode that reads the copy back catches a single flipped bit, the comparison naming where it
// lies from the first byte to the last, the size check a copy cut short, and a read-back that
// fails is no proof either; the damaged temporary is removed, so no final name ever holds it.
TEST_F(FaultTest, ACopyDamagedOrUnreadableAtReadBackIsCaughtByEveryModeThatCanSeeIt) {
    constexpr std::uint64_t kSize = 4 * kChunk + 333;
    constexpr std::uint64_t kCutShort = kSize;
    constexpr std::uint64_t kUnreadable = kSize + 1;
    const struct {
        std::uint32_t mode;
        std::uint64_t at; // the byte flipped, or what else befalls the copy
        std::string reason;
    } cases[] = {
        {kVerifyMD5, kChunk + 7, "verification failed: MD5 differs"},
        {kVerifyBitByBit, 0, "verification failed: contents differ at byte 0"},
        {kVerifyBitByBit, kSize - 1, "verification failed: contents differ at byte " + std::to_string(kSize - 1)},
        {kVerifyBitByBit, kCutShort, "verification failed: sizes differ"},
        {QL::IngestTask::kVerifyFileSize, kCutShort, "verification failed: sizes differ"},
        {kVerifyMD5, kUnreadable, "could not read back the copy: Input/output error"},
        {kVerifyBitByBit, kUnreadable, "could not read back the copy: Input/output error"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        const std::string name = "M" + std::to_string(c.mode) + "B" + std::to_string(c.at) + ".MOV";
        batch = fluxcore::utility::Guid::CreateUnique();
        CopyHooks hooks;
        hooks.afterWrite = [&](const std::string& temporary) {
            if (temporary.find("/backup/") == std::string::npos || c.at == kUnreadable)
                return;
            if (c.at == kCutShort)
                std::filesystem::resize_file(temporary, kSize - 1);
            else
                FlipByte(temporary, c.at);
        };
        hooks.failReadBack = [&](const std::string& copy, std::uint64_t offset) {
            return c.at == kUnreadable && copy.find("/backup/") != std::string::npos && offset >= kChunk ? EIO : 0;
        };
        TaskService service(TestOptions(home, std::make_shared<CountingBackend>(kChunk, hooks)));
        Submit(service, {{name, kSize}}, primary, backup, c.mode);
        RunUntilOutcome(log, batch);
        ExpectCopied(primary, name);
        ExpectFailed(service, backup, name, c.reason);
    }
}

// ---- A destination that ignores case --------------------------------------------------------------

// As exFAT or a casefolded folder would: a name is taken when any spelling of it exists.
bool TakenIgnoringCase(const std::string& path) {
    const std::string wanted = Fnd::PathUtils::FileNameOf(path);
    for (const auto& entry : std::filesystem::directory_iterator(Fnd::PathUtils::FolderOf(path)))
        if (::strcasecmp(entry.path().filename().c_str(), wanted.c_str()) == 0)
            return true;
    return false;
}

TEST_F(FaultTest, NamesDifferingOnlyInCaseNeverOverwriteEachOtherWhereCaseIsIgnored) {
    for (const std::int32_t action : {QL::kCopyActionNone, QL::kCopyActionKeepBoth}) {
        SCOPED_TRACE("action " + std::to_string(action));
        const Fnd::WString folder = tree.Path("folded" + std::to_string(action));
        batch = fluxcore::utility::Guid::CreateUnique();
        tree.MakeFile("card/Case.mov", "the first clip");
        tree.MakeFile("card/case.mov", "the second clip, another one");
        CopyHooks hooks;
        hooks.nameTaken = TakenIgnoringCase;
        TaskService service(TestOptions(home, std::make_shared<CountingBackend>(kChunk, hooks)));
        Submit(service, {{"Case.mov", 0}, {"case.mov", 0}}, folder, {}, kVerifyMD5, action);
        RunUntilOutcome(log, batch);

        // The two are copied side by side: either may get there first.
        const std::string upper = ReasonFor(folder, "Case.mov");
        const std::string lower = ReasonFor(folder, "case.mov");
        std::multiset<std::string> contents;
        for (const auto& entry : std::filesystem::directory_iterator(Fnd::ToUTF8(folder)))
            if (entry.path().filename() != "ascmhl") // the history of the copy
                contents.insert(ReadFileBytes(entry.path().string()));
        if (action == QL::kCopyActionNone) {
            EXPECT_EQ(std::multiset<std::string>({upper, lower}),
                      std::multiset<std::string>({"copied", "target exists"}));
            ASSERT_EQ(contents.size(), 1u) << "no temporary is left beside the one copy";
            EXPECT_EQ(*contents.begin(), upper == "copied" ? "the first clip" : "the second clip, another one");
        } else {
            EXPECT_EQ(upper, "copied");
            EXPECT_EQ(lower, "copied");
            EXPECT_EQ(contents, std::multiset<std::string>({"the first clip", "the second clip, another one"}));
            EXPECT_TRUE(Exists(Native(folder, "Case (1).mov")) || Exists(Native(folder, "case (1).mov")));
        }
    }
}

} // namespace
} // namespace igd::test
