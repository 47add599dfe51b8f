#pragma once
#include <string>
#include <thread>

#include "ChunkPool.h"
#include "ChunkQueue.h"
#include "LaneHasher.h"

namespace QL::Engine {

// Takes the MD5 of the source on a thread of its own, as one more holder of each chunk, so that
// the reader goes on to the next chunk while this one is hashed.
class SourceHasher {
public:
    SourceHasher(ChunkPool& pool, LaneHasher& hasher);
    ~SourceHasher();
    SourceHasher(const SourceHasher&) = delete;
    SourceHasher& operator=(const SourceHasher&) = delete;

    // Chunks come in source order; each is dropped back to the pool once hashed.
    void Push(Chunk* chunk) { queue_.Push(chunk); }
    // After the last chunk: the lower-case hex digest of everything pushed; empty when hashing
    // failed.
    std::string FinishHex();

private:
    void Run();

    ChunkPool& pool_;
    ChunkQueue queue_;
    std::unique_ptr<LaneHasher::Stream> md5_;
    bool failed_ = false;
    std::thread thread_;
};

} // namespace QL::Engine
