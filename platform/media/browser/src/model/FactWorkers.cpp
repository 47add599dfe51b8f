#include "FactWorkers.h"

#include <algorithm>

namespace fluxmediabrowser {

FactWorkers::FactWorkers(unsigned workers, int thumbnailWidth, DeliverFunction deliver)
    : workerCount_(std::max(1u, workers)), thumbnailWidth_(thumbnailWidth), deliver_(std::move(deliver)) {}

FactWorkers::~FactWorkers() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
        waiting_.clear();
    }
    wake_.notify_all();
    for (std::thread& thread : threads_)
        thread.join();
}

std::size_t FactWorkers::Replace(std::uint64_t generation, std::map<std::size_t, std::string> jobs) {
    std::size_t dropped = 0;
    {
        std::lock_guard lock(mutex_);
        if (generation < generation_)
            return jobs.size();
        generation_ = generation;
        dropped = waiting_.size();
        waiting_ = std::move(jobs);
        // Threads start with the first clips: a browser that only ever shows folders needs none.
        if (!waiting_.empty() && threads_.empty())
            for (unsigned i = 0; i < workerCount_; ++i)
                threads_.emplace_back([this] { Run(); });
    }
    wake_.notify_all();
    return dropped;
}

void FactWorkers::SetVisible(std::size_t first, std::size_t last) {
    std::lock_guard lock(mutex_);
    visibleFirst_ = first;
    visibleLast_ = std::max(first, last);
}

std::map<std::size_t, std::string>::iterator FactWorkers::NextLocked() {
    auto after = waiting_.lower_bound(visibleFirst_);
    if (after != waiting_.end() && after->first <= visibleLast_)
        return after;
    if (after == waiting_.begin())
        return after;
    auto before = std::prev(after);
    if (after == waiting_.end())
        return before;
    return visibleFirst_ - before->first <= after->first - visibleLast_ ? before : after;
}

FactResult FactWorkers::Ask(std::uint64_t generation, std::size_t entry, const std::string& path) const {
    FactResult result{generation, entry, std::nullopt, false, nullptr};
    Mid::FrameService& service = Mid::FrameService::GetInstance();
    try {
        result.facts = service.Facts(path);
    } catch (const Mid::FrameUnavailable&) {
        // A clip the media layer cannot read still shows its name and size.
        result.factsUnavailable = true;
        return result;
    }
    // Sound alone has facts and no picture.
    if (result.facts->width > 0) {
        try {
            result.thumbnail = std::make_shared<const Mid::FrameImage>(service.PosterFrame(path, thumbnailWidth_));
        } catch (const Mid::FrameUnavailable&) {
        }
    }
    return result;
}

void FactWorkers::Run() {
    for (;;) {
        std::uint64_t generation = 0;
        std::size_t entry = 0;
        std::string path;
        {
            std::unique_lock lock(mutex_);
            wake_.wait(lock, [this] { return stopping_ || !waiting_.empty(); });
            if (stopping_)
                return;
            auto next = NextLocked();
            generation = generation_;
            entry = next->first;
            path = std::move(next->second);
            waiting_.erase(next);
        }
        deliver_(Ask(generation, entry, path));
    }
}

} // namespace fluxmediabrowser
