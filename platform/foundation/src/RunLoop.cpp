#include "Fnd/RunLoop.h"

#include <stdexcept>
#include <utility>

#include "InstalledRunLoop.h"

namespace Fnd {

void QueueRunLoop::Post(Task task, bool urgent) {
    // An empty task would fail only when drained, far from the code that posted it.
    if (!task)
        throw std::invalid_argument("RunLoop::Post: empty task");
    std::lock_guard lock(mutex_);
    if (urgent) {
        queue_.insert(queue_.begin() + static_cast<std::ptrdiff_t>(urgentCount_), std::move(task));
        ++urgentCount_;
    } else {
        queue_.push_back(std::move(task));
    }
}

std::size_t QueueRunLoop::Drain(std::size_t maxTasks) {
    std::size_t ran = 0;
    while (ran < maxTasks) {
        Task task;
        {
            std::lock_guard lock(mutex_);
            if (queue_.empty())
                break;
            task = std::move(queue_.front());
            queue_.pop_front();
            if (urgentCount_ > 0)
                --urgentCount_;
        }
        // Run unlocked: the task may post, or drain again from a nested modal loop.
        ++ran;
        task();
    }
    return ran;
}

std::size_t QueueRunLoop::Pending() const {
    std::lock_guard lock(mutex_);
    return queue_.size();
}

namespace {

// Created on first use and never destroyed, so that posts from threads still running at exit
// find a queue.
struct RunLoopSlot {
    std::mutex mutex;
    std::shared_ptr<QueueRunLoop> defaultQueue{new QueueRunLoop, [](QueueRunLoop*) {}};
    std::shared_ptr<RunLoop> installed = defaultQueue;
};

RunLoopSlot& Slot() {
    static RunLoopSlot* slot = new RunLoopSlot;
    return *slot;
}

} // namespace

std::shared_ptr<RunLoop> detail::AcquireRunLoop() {
    auto& slot = Slot();
    std::lock_guard lock(slot.mutex);
    return slot.installed;
}

RunLoop& GetRunLoop() {
    return *detail::AcquireRunLoop();
}

void SetRunLoop(std::shared_ptr<RunLoop> loop) {
    auto& slot = Slot();
    std::shared_ptr<RunLoop> previous;
    {
        std::lock_guard lock(slot.mutex);
        previous = std::exchange(slot.installed, loop ? std::move(loop) : slot.defaultQueue);
    }
    // The previous loop may be destroyed here, outside the lock, in case its destructor posts.
}

QueueRunLoop& GetDefaultQueue() {
    return *Slot().defaultQueue;
}

} // namespace Fnd
