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

    // After the copies: a generation in the ingested folder of each copy task that copied or kept
    // a file. What could not be written is kept for Amend.
    void Record(const BatchRun& run);

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
