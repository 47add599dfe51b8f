#include "CopiesInFlight.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

namespace QL::Engine {

CopiesInFlight::CopiesInFlight(std::size_t width) : width_(std::max<std::size_t>(1, width)) {
    threads_.reserve(width_);
    for (std::size_t i = 0; i < width_; ++i)
        threads_.emplace_back(&CopiesInFlight::Run, this);
}

CopiesInFlight::~CopiesInFlight() {
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return waiting_.empty(); });
        stopping_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_)
        thread.join();
}

void CopiesInFlight::Start(Work work, std::size_t targetCount) {
    auto slot = std::make_shared<Slot>();
    slot->work = std::move(work);
    slot->targetCount = targetCount;
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return running_ < width_; });
        ++running_;
        started_.push_back(slot);
        waiting_.push_back(std::move(slot));
    }
    changed_.notify_all();
}

bool CopiesInFlight::Empty() const {
    std::lock_guard lock(mutex_);
    return started_.empty();
}

bool CopiesInFlight::OldestFinished() const {
    std::lock_guard lock(mutex_);
    return !started_.empty() && started_.front()->finished;
}

std::vector<CopyOutcome> CopiesInFlight::TakeOldest() {
    std::unique_lock lock(mutex_);
    if (started_.empty())
        throw std::logic_error("CopiesInFlight::TakeOldest with no copy started");
    changed_.wait(lock, [&] { return started_.front()->finished; });
    std::vector<CopyOutcome> outcomes = std::move(started_.front()->outcomes);
    started_.pop_front();
    return outcomes;
}

void CopiesInFlight::Run() {
    for (;;) {
        std::shared_ptr<Slot> slot;
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [&] { return stopping_ || !waiting_.empty(); });
            if (waiting_.empty())
                return;
            slot = std::move(waiting_.front());
            waiting_.pop_front();
        }
        changed_.notify_all();
        std::vector<CopyOutcome> outcomes;
        try {
            outcomes = slot->work();
        } catch (const std::exception& error) {
            CopyOutcome failed;
            failed.reason = error.what();
            outcomes.assign(slot->targetCount, failed);
        }
        {
            std::lock_guard lock(mutex_);
            slot->outcomes = std::move(outcomes);
            slot->work = nullptr;
            slot->finished = true;
            --running_;
        }
        changed_.notify_all();
    }
}

} // namespace QL::Engine
