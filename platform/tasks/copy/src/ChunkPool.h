#pragma once
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

#include "AlignedBuffer.h"

namespace QL::Engine {

// One chunk of the source on its way to the targets.
struct Chunk {
    explicit Chunk(std::size_t bytes) : buffer(bytes) {}

    AlignedBuffer buffer;
    std::size_t length = 0;
    std::uint64_t offset = 0;
    std::atomic<int> holders{0}; // writers that have yet to write it
};

// The few chunks a copy may hold in memory, whatever the file size and the number of targets.
// The reader waits here when the slowest writer is a whole pool behind: that bounds both memory
// and how far the fastest target runs ahead.
class ChunkPool {
public:
    ChunkPool(std::size_t chunkCount, std::size_t chunkBytes);

    // A free chunk; buffers are made on first need, so a small file costs one small buffer.
    Chunk* Acquire();
    // Called by whoever drops the last hold on a chunk.
    void Release(Chunk* chunk);
    // For writers: drops one hold, and gives the chunk back when it was the last.
    void Drop(Chunk* chunk);

private:
    const std::size_t chunkCount_;
    const std::size_t chunkBytes_;
    std::mutex mutex_;
    std::condition_variable released_;
    std::vector<std::unique_ptr<Chunk>> chunks_;
    std::vector<Chunk*> free_;
};

} // namespace QL::Engine
