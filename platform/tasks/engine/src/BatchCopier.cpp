#include "BatchCopier.h"

#include <sys/stat.h>

#include <algorithm>
#include <exception>

#include "Fnd/PathUtils.h"
#include "Fnd/StationUtils.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {
namespace {

// Sources copied at once. Two keep both processor cores busy hashing on a two-core machine and
// overlap one file's opening and final checks with another's streaming; more would mostly add
// seeks and memory (each copy holds about 50 MiB of buffers).
constexpr std::size_t kSourcesInFlight = 2;

std::vector<CopyOutcome> FailedOutcomes(std::size_t count, const std::string& reason) {
    std::vector<CopyOutcome> outcomes(count);
    for (CopyOutcome& outcome : outcomes) {
        outcome.status = CopyStatus::Failed;
        outcome.reason = reason;
    }
    return outcomes;
}

std::uint64_t SizeOnDisk(const std::string& path, std::uint64_t fallback) {
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode))
        return static_cast<std::uint64_t>(info.st_size);
    return fallback;
}

} // namespace

BatchCopier::BatchCopier(BatchRun& run, RunJournal& journal, CopyBackend& backend, BatchCounters& counters,
                         std::shared_ptr<DestinationFolders> folders)
    : run_(run), journal_(journal), backend_(backend), counters_(counters), folders_(std::move(folders)) {}

void BatchCopier::CopyAll(const std::unordered_map<std::int64_t, std::uint32_t>& verifyModeOfTask) {
    const std::vector<SourceGroup> groups = GroupBySource(run_.files, verifyModeOfTask);
    std::vector<GroupSource> sources(groups.size());
    std::uint64_t filesTotal = 0;
    std::uint64_t bytesTotal = 0;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        struct stat info {};
        if (::stat(Fnd::ToUTF8(groups[i].source).c_str(), &info) == 0) {
            sources[i].isFolder = S_ISDIR(info.st_mode);
            sources[i].size = sources[i].isFolder ? 0 : static_cast<std::uint64_t>(info.st_size);
        }
        if (!sources[i].isFolder) {
            ++filesTotal;
            bytesTotal += sources[i].size;
        }
    }
    // The destinations as they stand now: a folder that goes away from under the run is not made
    // again.
    for (const FileRecord& file : run_.files)
        folders_->Note(Fnd::PathUtils::FolderOf(Fnd::ToUTF8(file.target)));
    run_.progress->SetTotals(filesTotal, bytesTotal);
    run_.progress->PostNow();

    CopiesInFlight copies(kSourcesInFlight);
    std::deque<Begun> begun;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        // Waits here while paused; false once cancelled.
        if (!run_.control->Checkpoint()) {
            FinishInOrder(copies, begun, /*wait=*/true);
            SettleRest(groups, i, FileState::Cancelled);
            break;
        }
        if (sources[i].isFolder) {
            // A folder's files may be the next sources: the folder stands first.
            FinishInOrder(copies, begun, /*wait=*/true);
            Begun folder = Begin(groups[i], sources[i]);
            if (!JournalRecords()) {
                SettleRest(groups, i, FileState::Failed, NotCopiedReason());
                break;
            }
            std::vector<CopyOutcome> outcomes;
            try {
                outcomes = backend_.CopyFolder(Fnd::ToUTF8(groups[i].source), folder.targets);
            } catch (const std::exception& error) {
                outcomes = FailedOutcomes(folder.targets.size(), error.what());
            }
            Finish(folder, std::move(outcomes));
            continue;
        }
        // Two files of the batch with one target (kept both) also share its temporary name: the
        // later one starts once the earlier is settled, so the first keeps the name in plan order.
        FinishInOrder(copies, begun, /*wait=*/SharesTargetInFlight(groups[i], begun));
        Begun next = Begin(groups[i], sources[i]);
        if (!JournalRecords()) {
            if (!next.isFolder)
                run_.progress->FileFinished(next.progressFile);
            FinishInOrder(copies, begun, /*wait=*/true);
            SettleRest(groups, i, FileState::Failed, NotCopiedReason());
            break;
        }
        begun.push_back(std::move(next));
        const std::uint64_t progressFile = begun.back().progressFile;
        copies.Start(
            [this, sourcePath = Fnd::ToUTF8(groups[i].source), targets = begun.back().targets,
             verifyMode = groups[i].verifyMode, progressFile] {
                return backend_.CopyFile(
                    sourcePath, targets, verifyMode, *run_.control,
                    [this, progressFile](std::uint64_t done) { run_.progress->Bytes(progressFile, done); });
            },
            begun.back().targets.size());
    }
    FinishInOrder(copies, begun, /*wait=*/true);
    run_.progress->PostNow();
}

void BatchCopier::FinishInOrder(CopiesInFlight& copies, std::deque<Begun>& begun, bool wait) {
    while (!begun.empty() && (wait || copies.OldestFinished())) {
        Finish(begun.front(), copies.TakeOldest());
        begun.pop_front();
    }
}

bool BatchCopier::SharesTargetInFlight(const SourceGroup& group, const std::deque<Begun>& begun) const {
    // Spellings that differ in case only are one name where a destination ignores case.
    const auto sameName = [](const Fnd::WString& a, const Fnd::WString& b) {
        const auto fold = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
        return a.size() == b.size() &&
               std::equal(a.begin(), a.end(), b.begin(), [&](char16_t x, char16_t y) { return fold(x) == fold(y); });
    };
    for (const Begun& copy : begun)
        for (const FileRecord* inFlight : copy.files)
            for (std::size_t index : group.files)
                if (sameName(run_.files[index].target, inFlight->target))
                    return true;
    return false;
}

BatchCopier::Begun BatchCopier::Begin(const SourceGroup& group, const GroupSource& source) {
    Begun begun;
    begun.verifyMode = group.verifyMode;
    begun.isFolder = source.isFolder;
    std::vector<const FileRecord*> journalled;
    for (std::size_t index : group.files) {
        FileRecord& file = run_.files[index];
        begun.files.push_back(&file);
        journalled.push_back(&file);
        // The plan places a folder's content under the folder's own target, whatever was answered
        // for the folder: so keep both and replace of a folder mean merging into it. A folder
        // holds no data; each file below it has its own answer.
        const std::int32_t action =
            source.isFolder && file.action != kCopyActionSkip ? kCopyActionNone : file.action;
        begun.targets.push_back(CopyTarget{Fnd::ToUTF8(file.target), action, folders_});
        file.state = FileState::Copying;
        file.temporary =
            source.isFolder ? std::string() : FileCopier::TemporaryPathFor(begun.targets.back().path);
    }
    // The temporaries are on record before the first byte is written, so a crash can clean them.
    journal_.UpdateFiles(journalled);
    if (!source.isFolder)
        begun.progressFile = run_.progress->FileStarted(group.source, source.size);
    return begun;
}

void BatchCopier::Finish(Begun& begun, std::vector<CopyOutcome> outcomes) {
    if (outcomes.size() != begun.targets.size())
        outcomes = FailedOutcomes(begun.targets.size(),
                                  "the copy answered for " + std::to_string(outcomes.size()) + " of " +
                                      std::to_string(begun.targets.size()) + " targets");
    std::vector<const FileRecord*> journalled;
    std::vector<FileStatus> statuses;
    for (std::size_t i = 0; i < begun.files.size(); ++i) {
        statuses.push_back(Settle(*begun.files[i], outcomes[i], begun.isFolder));
        journalled.push_back(begun.files[i]);
    }
    // On record before it is reported: a host that stops on an outcome finds it in the journal.
    journal_.UpdateFiles(journalled);
    for (std::size_t i = 0; i < begun.files.size(); ++i)
        PostOutcome(run_, *begun.files[i], statuses[i], begun.verifyMode, outcomes[i].verifiedBy);
    if (!begun.isFolder)
        run_.progress->FileFinished(begun.progressFile);
}

void BatchCopier::SettleRest(const std::vector<SourceGroup>& groups, std::size_t from, FileState state,
                             const std::string& reason) {
    const bool cancelled = state == FileState::Cancelled;
    std::vector<const FileRecord*> settled;
    for (std::size_t g = from; g < groups.size(); ++g) {
        for (std::size_t index : groups[g].files) {
            FileRecord& file = run_.files[index];
            file.state = state;
            file.temporary.clear();
            file.reason = reason;
            settled.push_back(&file);
            ++(cancelled ? counters_.filesCancelled : counters_.filesFailed);
        }
    }
    journal_.UpdateFiles(settled);
    for (std::size_t g = from; g < groups.size(); ++g) {
        for (std::size_t index : groups[g].files)
            PostOutcome(run_, run_.files[index], cancelled ? FileStatus::Cancelled : FileStatus::Failed,
                        groups[g].verifyMode);
    }
}

bool BatchCopier::JournalRecords() const {
    return run_.journalProblem.empty();
}

std::string BatchCopier::NotCopiedReason() const {
    return "not copied, since a crash could not be resumed: " + run_.journalProblem;
}

FileStatus BatchCopier::Settle(FileRecord& file, const CopyOutcome& outcome, bool isFolder) {
    // What could not be removed stays on record for a later clean-up.
    file.temporary = outcome.leftover;
    FileStatus status = FileStatus::Failed;
    switch (outcome.status) {
    case CopyStatus::Copied:
        file.state = FileState::Verified;
        file.finalPath = outcome.finalPath.empty() ? Fnd::ToUTF8(file.target) : outcome.finalPath;
        file.checksum = outcome.checksum;
        file.checksumAlgorithm = outcome.checksumAlgorithm;
        file.size = SizeOnDisk(file.finalPath, outcome.bytes);
        file.reason.clear();
        status = FileStatus::Copied;
        counters_.filesCopied += isFolder ? 0 : 1;
        break;
    case CopyStatus::Skipped:
        file.state = FileState::Skipped;
        file.finalPath = outcome.finalPath.empty() ? Fnd::ToUTF8(file.target) : outcome.finalPath;
        file.size = SizeOnDisk(file.finalPath, 0);
        file.reason.clear();
        status = FileStatus::Skipped;
        counters_.filesSkipped += isFolder ? 0 : 1;
        break;
    case CopyStatus::Failed:
        file.state = FileState::Failed;
        file.reason = outcome.reason.empty() ? "the copy failed" : outcome.reason;
        status = FileStatus::Failed;
        ++counters_.filesFailed;
        break;
    case CopyStatus::Cancelled:
        file.state = FileState::Cancelled;
        status = FileStatus::Cancelled;
        ++counters_.filesCancelled;
        break;
    }
    return status;
}

void BatchCopier::PostOutcome(const BatchRun& run, const FileRecord& file, FileStatus status,
                              std::uint32_t verifyMode, VerifiedBy verifiedBy) {
    FileOutcomeMessage message;
    message.batch = run.batch;
    message.source = file.source;
    message.target = file.target;
    message.finalPath = Fnd::FromUTF8(file.finalPath);
    message.status = status;
    message.reason = Fnd::FromUTF8(file.reason);
    message.checksum = file.checksum;
    message.checksumAlgorithm = file.checksumAlgorithm;
    message.verifyMode = verifyMode;
    message.verifiedBy = verifiedBy;
    message.bytes = file.size;
    Fnd::StationUtils::PostMessageToUIThread(kStation_TaskService, message, false);
}

} // namespace QL::Engine
