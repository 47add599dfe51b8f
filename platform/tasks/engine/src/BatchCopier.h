#pragma once
#include <cstdint>
#include <unordered_map>

#include "BatchCounters.h"
#include "QL/Engine/CopyBackend.h"
#include "QL/Engine/TaskServiceMessages.h"
#include "RunJournal.h"
#include "SourceGroups.h"

namespace QL::Engine {

// The copy half of a batch: every pending file of the run, one source at a time, each source
// read once for all its targets. Each file is journalled as copying before it is touched and
// settled after; its outcome is posted. Stops between sources once the batch is cancelled.
class BatchCopier {
public:
    BatchCopier(BatchRun& run, RunJournal& journal, CopyBackend& backend, BatchCounters& counters);

    void CopyAll(const std::unordered_map<std::int64_t, std::uint32_t>& verifyModeOfTask);

    // Posts the outcome of one file as it stands.
    static void PostOutcome(const BatchRun& run, const FileRecord& file, FileStatus status,
                            std::uint32_t verifyMode, VerifiedBy verifiedBy = VerifiedBy::NotVerified);

private:
    struct GroupSource {
        bool isFolder = false;
        std::uint64_t size = 0;
    };

    void CopyGroup(const SourceGroup& group, const GroupSource& source);
    void CancelRest(const std::vector<SourceGroup>& groups, std::size_t from);
    void Settle(FileRecord& file, const CopyOutcome& outcome, std::uint32_t verifyMode);

    BatchRun& run_;
    RunJournal& journal_;
    CopyBackend& backend_;
    BatchCounters& counters_;
};

} // namespace QL::Engine
