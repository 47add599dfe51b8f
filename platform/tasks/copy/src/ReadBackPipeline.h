#pragma once
#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <mutex>
#include <vector>

#include "AlignedBuffer.h"
#include "FileIo.h"
#include "MediumReader.h"

namespace QL::Engine {

// Reads a range of a copy back from its medium with several reads in flight, and hands the
// pieces to one consumer strictly in order. A single direct read at a time leaves the disk idle
// between requests and while the consumer hashes; a few concurrent ones keep its queue full.
class ReadBackPipeline {
public:
    // What the consumer makes of a piece: false stops the pipeline (a failed check, a cancel).
    using Consumer = std::function<bool(const std::byte* data, const IoResult& read, std::uint64_t offset)>;

    // depth pieces of pieceBytes (aligned) are in memory, each read by a thread of its own.
    ReadBackPipeline(MediumReader& reader, std::size_t pieceBytes, std::size_t depth);

    // Reads [from, to) and gives every piece to consume, in order. toEnd: reads on to the end of
    // the file instead, whatever to says. The consumer sees the short (or failed) piece that ends
    // the range, and nothing after it. Answers false when the consumer stopped it.
    bool Run(std::uint64_t from, std::uint64_t to, bool toEnd, const Consumer& consume);

    std::size_t PieceBytes() const { return pieceBytes_; }

private:
    struct Slot {
        AlignedBuffer buffer;
        IoResult read;
        std::uint64_t piece = 0;
        bool ready = false;
    };

    void ReadPieces(std::uint64_t from, std::uint64_t to, bool toEnd);

    MediumReader& reader_;
    const std::size_t pieceBytes_;
    std::vector<Slot> slots_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::uint64_t claimed_ = 0;  // pieces handed to readers
    std::uint64_t consumed_ = 0; // pieces the consumer is done with
    bool stopped_ = false;       // no more pieces are claimed
};

} // namespace QL::Engine
