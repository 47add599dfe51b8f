#include "WorkerPool.h"

#include <algorithm>

namespace QL::Engine {

WorkerPool::WorkerPool(std::size_t threads) {
    threads_.reserve(threads);
    for (std::size_t i = 0; i < threads; ++i)
        threads_.emplace_back(&WorkerPool::Serve, this);
}

WorkerPool::~WorkerPool() {
    {
        std::lock_guard lock(mutex_);
        stopping_ = true;
    }
    changed_.notify_all();
    for (std::thread& thread : threads_)
        thread.join();
}

void WorkerPool::ForEach(std::size_t count, const std::function<void(std::size_t)>& work) {
    if (count == 0)
        return;
    auto loop = std::make_shared<Loop>();
    loop->work = &work;
    loop->count = count;
    std::unique_lock lock(mutex_);
    if (count > 1) {
        loops_.push_back(loop);
        changed_.notify_all();
    }
    RunItems(*loop, lock);
    changed_.wait(lock, [&] { return loop->done == loop->count; });
}

void WorkerPool::RunItems(Loop& loop, std::unique_lock<std::mutex>& lock) {
    while (loop.next < loop.count) {
        const std::size_t item = loop.next++;
        if (loop.next == loop.count)
            loops_.erase(std::remove_if(loops_.begin(), loops_.end(),
                                        [&](const std::shared_ptr<Loop>& queued) { return queued.get() == &loop; }),
                         loops_.end());
        lock.unlock();
        (*loop.work)(item);
        lock.lock();
        if (++loop.done == loop.count)
            changed_.notify_all();
    }
}

void WorkerPool::Serve() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [&] { return stopping_ || !loops_.empty(); });
        if (loops_.empty())
            return;
        // Held while its items run: the caller's wait keeps the loop's work alive as well.
        const std::shared_ptr<Loop> loop = loops_.front();
        RunItems(*loop, lock);
    }
}

} // namespace QL::Engine
