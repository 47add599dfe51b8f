#pragma once
#include <condition_variable>
#include <cstdint>
#include <mutex>

namespace QL::Engine {

// How far a copy is flushed to its medium, shared between the target's writer, which moves it
// on, and its verifier, which reads back only what is flushed.
class FlushedMark {
public:
    void Publish(std::uint64_t flushedBytes) {
        {
            std::lock_guard lock(mutex_);
            flushed_ = flushedBytes;
        }
        changed_.notify_one();
    }

    // No more marks will come.
    void End() {
        {
            std::lock_guard lock(mutex_);
            ended_ = true;
        }
        changed_.notify_one();
    }

    // Waits until more than checked is flushed and answers it in upTo; false once ended.
    bool WaitBeyond(std::uint64_t checked, std::uint64_t& upTo) {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return ended_ || flushed_ > checked; });
        if (ended_)
            return false;
        upTo = flushed_;
        return true;
    }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t flushed_ = 0;
    bool ended_ = false;
};

} // namespace QL::Engine
