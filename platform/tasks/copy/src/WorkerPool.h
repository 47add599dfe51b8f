#pragma once
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace QL::Engine {

// Threads made once and kept for the life of their owner, that run the items of a loop side by
// side: a group's small reads each wait on the disk, and several in flight keep its queue full
// where one at a time would leave it idle between requests. Several loops may run at once.
class WorkerPool {
public:
    explicit WorkerPool(std::size_t threads);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete;
    WorkerPool& operator=(const WorkerPool&) = delete;

    // Runs work(i) for every i below count, on the pool's threads and the caller's, and returns
    // when all are done. work must not throw.
    void ForEach(std::size_t count, const std::function<void(std::size_t)>& work);

private:
    struct Loop {
        const std::function<void(std::size_t)>* work = nullptr;
        std::size_t count = 0;
        std::size_t next = 0; // the first item not yet taken
        std::size_t done = 0;
    };

    // Takes and runs items of the loop until none is left; with the lock held on entry and exit.
    void RunItems(Loop& loop, std::unique_lock<std::mutex>& lock);
    void Serve();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::shared_ptr<Loop>> loops_; // with items not yet taken
    bool stopping_ = false;
    std::vector<std::thread> threads_;
};

} // namespace QL::Engine
