#include "ChunkQueue.h"

#include <utility>

namespace QL::Engine {

void ChunkQueue::Push(Chunk* chunk) {
    {
        std::lock_guard lock(mutex_);
        chunks_.push_back(chunk);
    }
    changed_.notify_one();
}

void ChunkQueue::Close(SourceEnd end) {
    {
        std::lock_guard lock(mutex_);
        if (closed_)
            return;
        closed_ = true;
        end_ = std::move(end);
    }
    changed_.notify_one();
}

Chunk* ChunkQueue::Pop() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return closed_ || !chunks_.empty(); });
    if (chunks_.empty())
        return nullptr;
    Chunk* chunk = chunks_.front();
    chunks_.pop_front();
    return chunk;
}

} // namespace QL::Engine
