#pragma once
#include <atomic>
#include <condition_variable>
#include <mutex>

namespace QL::Engine {

// Pause and cancel as the scheduler sets them and the copy engine obeys them between chunks.
// Shared by every copy of a batch; safe from any thread.
class CopyControl {
public:
    void Pause();
    void Resume();
    void Cancel();
    bool IsCancelled() const { return cancelled_.load(std::memory_order_acquire); }
    bool IsPaused() const;

    // Called by a copy between chunks: waits while paused. False once cancelled.
    bool Checkpoint();

private:
    mutable std::mutex mutex_;
    std::condition_variable resumed_;
    bool paused_ = false;
    std::atomic<bool> cancelled_{false};
};

} // namespace QL::Engine
