#pragma once
// The ASC MHL histories of a batch's copies: what a source's own history says it must hash to,
// and, once copied, a new generation in each destination's ingested folder, continuing the
// history the media brought along.
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>

#include "BatchRun.h"
#include "Mhl/History.h"
#include "TaskFinisher.h"

namespace QL::Engine {

class CopyHistories {
public:
    // Points run.expectedDigestOf at the histories found above each source.
    explicit CopyHistories(BatchRun& run);

    // Once a copy task is finished (its copies settled, its sidecars written): a generation in its
    // ingested folder, when it copied or kept a file, listing written as they stand. What could
    // not be written is kept for Amend.
    void Record(const BatchRun& run, const RunTask& task, const std::vector<std::string>& written);

    // A copy task whose history could not be written fails, saying why.
    void Amend(const RunTask& task, TaskResult& result) const;

private:
    struct Cache {
        std::mutex mutex;
        // By folder: the history kept there, or none.
        std::unordered_map<std::string, std::shared_ptr<const Mhl::History>> histories;
    };
    static std::optional<ExpectedDigest> ExpectedDigestOf(Cache& cache, const std::string& source);

    std::shared_ptr<Cache> cache_ = std::make_shared<Cache>();
    std::int64_t startedAt_ = 0;
    std::map<std::int64_t, std::string> problems_; // by task id
};

} // namespace QL::Engine
