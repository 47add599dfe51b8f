#include "BatchCopier.h"

#include <sys/stat.h>

#include <algorithm>
#include <exception>
#include <unordered_set>

#include "Fnd/PathUtils.h"
#include "Fnd/StationUtils.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"
#include "QL/Engine/GroupCopier.h"

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
    std::vector<SourceFacts> sources(groups.size());
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
    for (std::size_t i = 0; i < groups.size();) {
        // Waits here while paused; false once cancelled.
        if (!run_.control->Checkpoint()) {
            FinishInOrder(copies, begun, /*wait=*/true);
            SettleRest(groups, i, FileState::Cancelled);
            break;
        }
        if (sources[i].isFolder) {
            // A folder's files may be the next sources: the folder stands first.
            FinishInOrder(copies, begun, /*wait=*/true);
            Begun folder = Begin(groups, sources, i, i + 1);
            if (!JournalRecords()) {
                SettleRest(groups, i, FileState::Failed, NotCopiedReason());
                break;
            }
            std::vector<CopyOutcome> outcomes;
            try {
                outcomes = backend_.CopyFolder(Fnd::ToUTF8(groups[i].source), folder.sources[0].copy.targets);
            } catch (const std::exception& error) {
                outcomes = FailedOutcomes(folder.TargetCount(), error.what());
            }
            Finish(folder, std::move(outcomes));
            ++i;
            continue;
        }
        const std::size_t end = GroupEnd(sources, i);
        // Two files of the batch with one target (kept both) also share its temporary name: the
        // later one starts once the earlier is settled, so the first keeps the name in plan order.
        FinishInOrder(copies, begun, /*wait=*/SharesTargetInFlight(groups, i, end, begun));
        Begun next = Begin(groups, sources, i, end);
        if (!JournalRecords()) {
            for (const BegunSource& source : next.sources)
                run_.progress->FileFinished(source.progressFile);
            FinishInOrder(copies, begun, /*wait=*/true);
            SettleRest(groups, i, FileState::Failed, NotCopiedReason());
            break;
        }
        StartCopy(copies, begun, std::move(next));
        i = end;
    }
    FinishInOrder(copies, begun, /*wait=*/true);
    backend_.BatchEnded();
    run_.progress->PostNow();
}

std::size_t BatchCopier::GroupEnd(const std::vector<SourceFacts>& sources, std::size_t from) const {
    const std::uint64_t largest = backend_.LargestGroupedFile();
    const auto small = [&](std::size_t i) { return !sources[i].isFolder && sources[i].size <= largest; };
    if (!small(from))
        return from + 1;
    std::uint64_t bytes = 0;
    std::size_t end = from;
    while (end < sources.size() && small(end) && end - from < GroupCopier::kMostFiles &&
           bytes + GroupCopier::Footprint(sources[end].size) <= GroupCopier::kMostBytes) {
        bytes += GroupCopier::Footprint(sources[end].size);
        ++end;
    }
    return end;
}

void BatchCopier::StartCopy(CopiesInFlight& copies, std::deque<Begun>& begun, Begun next) {
    const std::size_t targetCount = next.TargetCount();
    begun.push_back(std::move(next));
    const Begun& started = begun.back();
    if (started.grouped) {
        std::vector<SourceCopy> group;
        std::vector<std::uint64_t> progressFiles;
        for (const BegunSource& source : started.sources) {
            group.push_back(source.copy);
            progressFiles.push_back(source.progressFile);
        }
        copies.Start(
            [this, group = std::move(group), progressFiles = std::move(progressFiles)] {
                std::vector<std::vector<CopyOutcome>> perSource = backend_.CopyGroup(
                    group, *run_.control, [this, &progressFiles](std::size_t source, std::uint64_t done) {
                        run_.progress->Bytes(progressFiles.at(source), done);
                    });
                std::vector<CopyOutcome> outcomes;
                for (auto& sourceOutcomes : perSource)
                    for (auto& outcome : sourceOutcomes)
                        outcomes.push_back(std::move(outcome));
                return outcomes;
            },
            targetCount);
        return;
    }
    const BegunSource& source = started.sources[0];
    copies.Start(
        [this, copy = source.copy, progressFile = source.progressFile] {
            return backend_.CopyFile(copy, *run_.control, [this, progressFile](std::uint64_t done) {
                run_.progress->Bytes(progressFile, done);
            });
        },
        targetCount);
}

void BatchCopier::FinishInOrder(CopiesInFlight& copies, std::deque<Begun>& begun, bool wait) {
    while (!begun.empty() && (wait || copies.OldestFinished())) {
        Finish(begun.front(), copies.TakeOldest());
        begun.pop_front();
    }
}

bool BatchCopier::SharesTargetInFlight(const std::vector<SourceGroup>& groups, std::size_t from, std::size_t to,
                                       const std::deque<Begun>& begun) const {
    if (begun.empty())
        return false;
    // Spellings that differ in case only are one name where a destination ignores case.
    std::unordered_set<Fnd::WString> inFlight;
    for (const Begun& copy : begun)
        for (const BegunSource& source : copy.sources)
            for (const FileRecord* file : source.files)
                inFlight.insert(Fnd::ToLowerASCII(file->target));
    for (std::size_t g = from; g < to; ++g)
        for (std::size_t index : groups[g].files)
            if (inFlight.count(Fnd::ToLowerASCII(run_.files[index].target)) != 0)
                return true;
    return false;
}

std::size_t BatchCopier::Begun::TargetCount() const {
    std::size_t count = 0;
    for (const BegunSource& source : sources)
        count += source.copy.targets.size();
    return count;
}

BatchCopier::Begun BatchCopier::Begin(const std::vector<SourceGroup>& groups, const std::vector<SourceFacts>& sources,
                                      std::size_t from, std::size_t to) {
    Begun begun;
    begun.grouped = !sources[from].isFolder && sources[from].size <= backend_.LargestGroupedFile();
    std::vector<const FileRecord*> journalled;
    for (std::size_t g = from; g < to; ++g) {
        const SourceGroup& group = groups[g];
        BegunSource& source = begun.sources.emplace_back();
        source.isFolder = sources[g].isFolder;
        source.copy.source = Fnd::ToUTF8(group.source);
        source.copy.verifyMode = group.verifyMode;
        if (!source.isFolder && run_.expectedDigestOf)
            source.copy.expected = run_.expectedDigestOf(source.copy.source);
        for (std::size_t index : group.files) {
            FileRecord& file = run_.files[index];
            source.files.push_back(&file);
            journalled.push_back(&file);
            // The plan places a folder's content under the folder's own target, whatever was
            // answered for the folder: so keep both and replace of a folder mean merging into it.
            // A folder holds no data; each file below it has its own answer.
            const std::int32_t action =
                source.isFolder && file.action != kCopyActionSkip ? kCopyActionNone : file.action;
            source.copy.targets.push_back(CopyTarget{Fnd::ToUTF8(file.target), action, folders_});
            file.state = FileState::Copying;
            file.temporary = source.isFolder ? std::string()
                                             : FileCopier::TemporaryPathFor(source.copy.targets.back().path);
        }
        if (!source.isFolder)
            source.progressFile = run_.progress->FileStarted(group.source, sources[g].size);
    }
    // The temporaries are on record before the first byte is written, so a crash can clean them.
    journal_.UpdateFiles(journalled);
    return begun;
}

void BatchCopier::Finish(Begun& begun, std::vector<CopyOutcome> outcomes) {
    const std::size_t targetCount = begun.TargetCount();
    if (outcomes.size() != targetCount)
        outcomes = FailedOutcomes(targetCount, "the copy answered for " + std::to_string(outcomes.size()) + " of " +
                                                   std::to_string(targetCount) + " targets");
    std::vector<const FileRecord*> journalled;
    std::vector<FileStatus> statuses;
    std::size_t k = 0;
    for (const BegunSource& source : begun.sources)
        for (FileRecord* file : source.files) {
            statuses.push_back(Settle(*file, outcomes[k++], source.isFolder));
            journalled.push_back(file);
        }
    // On record before it is reported: a host that stops on an outcome finds it in the journal.
    journal_.UpdateFiles(journalled);
    k = 0;
    for (const BegunSource& source : begun.sources) {
        for (const FileRecord* file : source.files) {
            PostOutcome(run_, *file, statuses[k], source.copy.verifyMode, outcomes[k].verifiedBy);
            ++k;
        }
        if (!source.isFolder)
            run_.progress->FileFinished(source.progressFile);
    }
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
