#pragma once
// A few threads asking the frame service for the facts and thumbnail of each clip of a listing,
// those on screen first. A person scrolls while thousands are waiting: the next job is always the
// waiting one nearest the visible range.
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Mid/FrameService.h"

namespace fluxmediabrowser {

struct FactResult {
    std::uint64_t generation = 0;
    std::size_t entry = 0;
    std::optional<Mid::ClipFacts> facts;
    bool factsUnavailable = false;
    std::shared_ptr<const Mid::FrameImage> thumbnail;
};

class FactWorkers {
public:
    // Called on a worker thread for each finished job.
    using DeliverFunction = std::function<void(FactResult)>;

    FactWorkers(unsigned workers, int thumbnailWidth, DeliverFunction deliver);
    // Finishes the jobs running, drops the waiting ones.
    ~FactWorkers();
    FactWorkers(const FactWorkers&) = delete;
    FactWorkers& operator=(const FactWorkers&) = delete;

    // The clips of a listing, by entry index, in place of every job still waiting. A generation
    // older than one already given is dropped whole. Answers how many jobs were dropped, of the
    // old ones and these, so that the caller can count what will never be delivered.
    std::size_t Replace(std::uint64_t generation, std::map<std::size_t, std::string> jobs);
    // Entries first..last (inclusive) are on screen.
    void SetVisible(std::size_t first, std::size_t last);

private:
    void Run();
    // The waiting job nearest the visible range; the lock is held.
    std::map<std::size_t, std::string>::iterator NextLocked();
    FactResult Ask(std::uint64_t generation, std::size_t entry, const std::string& path) const;

    const unsigned workerCount_;
    const int thumbnailWidth_;
    const DeliverFunction deliver_;

    std::mutex mutex_;
    std::condition_variable wake_;
    bool stopping_ = false;
    std::uint64_t generation_ = 0;
    std::map<std::size_t, std::string> waiting_;
    std::size_t visibleFirst_ = 0;
    std::size_t visibleLast_ = 0;
    std::vector<std::thread> threads_;
};

} // namespace fluxmediabrowser
