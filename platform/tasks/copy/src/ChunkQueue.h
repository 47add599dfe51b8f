#pragma once
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>

#include "ChunkPool.h"

namespace QL::Engine {

// How the source stream ended, as the reader tells each writer.
struct SourceEnd {
    enum class Kind { Complete, Failed, Cancelled };
    Kind kind = Kind::Cancelled;
    std::string reason;     // for Failed
    std::string digest;     // hex digest of the source (see SourceDigestAlgorithm)
    std::uint64_t size = 0; // bytes read
};

// The chunks on their way from the reader to one writer. Its length is bounded by the pool the
// chunks come from, not here.
class ChunkQueue {
public:
    void Push(Chunk* chunk);
    // No more chunks will come; end says why.
    void Close(SourceEnd end);
    // The next chunk, waiting for one; nullptr once closed and drained.
    Chunk* Pop();
    // Valid after Pop answered nullptr.
    const SourceEnd& End() const { return end_; }

private:
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Chunk*> chunks_;
    bool closed_ = false;
    SourceEnd end_;
};

} // namespace QL::Engine
