#include "ChunkPool.h"

namespace QL::Engine {

ChunkPool::ChunkPool(std::size_t chunkCount, std::size_t chunkBytes)
    : chunkCount_(chunkCount == 0 ? 1 : chunkCount), chunkBytes_(chunkBytes) {
    chunks_.reserve(chunkCount_);
    free_.reserve(chunkCount_);
}

Chunk* ChunkPool::Acquire() {
    std::unique_lock lock(mutex_);
    if (free_.empty() && chunks_.size() < chunkCount_) {
        chunks_.push_back(std::make_unique<Chunk>(chunkBytes_));
        return chunks_.back().get();
    }
    released_.wait(lock, [this] { return !free_.empty(); });
    Chunk* chunk = free_.back();
    free_.pop_back();
    return chunk;
}

void ChunkPool::Release(Chunk* chunk) {
    {
        std::lock_guard lock(mutex_);
        free_.push_back(chunk);
    }
    released_.notify_one();
}

void ChunkPool::Drop(Chunk* chunk) {
    if (chunk->holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
        Release(chunk);
}

} // namespace QL::Engine
