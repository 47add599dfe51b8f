#include "QL/Engine/CopyControl.h"

namespace QL::Engine {

void CopyControl::Pause() {
    std::lock_guard lock(mutex_);
    paused_ = true;
}

void CopyControl::Resume() {
    {
        std::lock_guard lock(mutex_);
        paused_ = false;
    }
    resumed_.notify_all();
}

void CopyControl::Cancel() {
    {
        // Under the lock, so that a copy about to wait cannot miss the wake-up.
        std::lock_guard lock(mutex_);
        cancelled_.store(true, std::memory_order_release);
    }
    resumed_.notify_all();
}

bool CopyControl::IsPaused() const {
    std::lock_guard lock(mutex_);
    return paused_;
}

bool CopyControl::Checkpoint() {
    std::unique_lock lock(mutex_);
    resumed_.wait(lock, [this] { return !paused_ || IsCancelled(); });
    return !IsCancelled();
}

} // namespace QL::Engine
