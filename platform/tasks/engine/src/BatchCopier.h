#pragma once
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "CopiesInFlight.h"
#include "QL/Engine/BatchCounters.h"
#include "QL/Engine/CopyBackend.h"
#include "QL/Engine/TaskServiceMessages.h"
#include "RunJournal.h"
#include "SourceGroups.h"

namespace QL::Engine {

// The copy half of a batch: every pending file of the run, each source read once for all its
// targets, two sources at a time (folders alone, in their place). Each file is journalled as
// copying before it is touched and settled after, in the plan's order; its outcome is posted.
// Stops starting sources once the batch is cancelled.
class BatchCopier {
public:
    // folders: the destinations as the run knows them; more are noted as the copying begins.
    BatchCopier(BatchRun& run, RunJournal& journal, CopyBackend& backend, BatchCounters& counters,
                std::shared_ptr<DestinationFolders> folders);

    void CopyAll(const std::unordered_map<std::int64_t, std::uint32_t>& verifyModeOfTask);

    // Posts the outcome of one file as it stands.
    static void PostOutcome(const BatchRun& run, const FileRecord& file, FileStatus status,
                            std::uint32_t verifyMode, VerifiedBy verifiedBy = VerifiedBy::NotVerified);

private:
    struct SourceFacts {
        bool isFolder = false;
        std::uint64_t size = 0;
    };

    // A source begun: its files journalled as copying, waiting for the copy's outcomes.
    struct BegunSource {
        std::vector<FileRecord*> files;
        SourceCopy copy;
        bool isFolder = false;
        std::uint64_t progressFile = 0;
    };
    // What one copy in flight does: one source, or a group of small ones.
    struct Begun {
        std::vector<BegunSource> sources;
        bool grouped = false; // small files, copied together
        std::size_t TargetCount() const;
    };

    // Journals the files of groups [from, to) as copying, in one commit.
    Begun Begin(const std::vector<SourceGroup>& groups, const std::vector<SourceFacts>& sources, std::size_t from,
                std::size_t to);
    // Where the small files from this one on end their group: the first index past it.
    std::size_t GroupEnd(const std::vector<SourceFacts>& sources, std::size_t from) const;
    void StartCopy(CopiesInFlight& copies, std::deque<Begun>& begun, Begun next);
    bool SharesTargetInFlight(const std::vector<SourceGroup>& groups, std::size_t from, std::size_t to,
                              const std::deque<Begun>& begun) const;
    // Outcomes of every target of every source of it, in order.
    void Finish(Begun& begun, std::vector<CopyOutcome> outcomes);
    // Settles the copies in flight from the oldest on: all of them with wait, else those finished.
    void FinishInOrder(CopiesInFlight& copies, std::deque<Begun>& begun, bool wait);
    // Settles every file of the groups from this one on without copying: cancelled, or failed
    // for the reason.
    void SettleRest(const std::vector<SourceGroup>& groups, std::size_t from, FileState state,
                    const std::string& reason = {});
    // Copying starts only while the journal records it: after a crash, what it does not know of
    // could neither be resumed nor cleaned.
    bool JournalRecords() const;
    std::string NotCopiedReason() const;
    // Records the outcome in the file's record and answers the status to report. A folder made or
    // merged into is no file copied or skipped; one that failed is a failure all the same.
    FileStatus Settle(FileRecord& file, const CopyOutcome& outcome, bool isFolder);

    BatchRun& run_;
    RunJournal& journal_;
    CopyBackend& backend_;
    BatchCounters& counters_;
    std::shared_ptr<DestinationFolders> folders_;
};

} // namespace QL::Engine
