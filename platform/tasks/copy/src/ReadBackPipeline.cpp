#include "ReadBackPipeline.h"

#include <algorithm>
#include <thread>

namespace QL::Engine {

ReadBackPipeline::ReadBackPipeline(MediumReader& reader, std::size_t pieceBytes, std::size_t depth)
    : reader_(reader), pieceBytes_(std::max<std::size_t>(kIoAlignment, RoundUpToAlignment(pieceBytes))) {
    slots_.reserve(std::max<std::size_t>(1, depth));
    for (std::size_t i = 0; i < std::max<std::size_t>(1, depth); ++i)
        slots_.push_back(Slot{AlignedBuffer(pieceBytes_), {}, 0, false});
}

void ReadBackPipeline::ReadPieces(std::uint64_t from, std::uint64_t to, bool toEnd) {
    for (;;) {
        std::uint64_t piece = 0;
        {
            std::unique_lock lock(mutex_);
            // A slot is free again only once the consumer is done with the piece it held.
            changed_.wait(lock, [&] { return stopped_ || claimed_ < consumed_ + slots_.size(); });
            if (stopped_)
                return;
            const std::uint64_t offset = from + claimed_ * pieceBytes_;
            if (!toEnd && offset >= to) {
                stopped_ = true;
                changed_.notify_all();
                return;
            }
            piece = claimed_++;
        }
        const std::uint64_t offset = from + piece * pieceBytes_;
        const std::size_t length =
            toEnd ? pieceBytes_ : static_cast<std::size_t>(std::min<std::uint64_t>(pieceBytes_, to - offset));
        Slot& slot = slots_[piece % slots_.size()];
        const IoResult read = reader_.Read(slot.buffer.Data(), length, offset);
        {
            std::lock_guard lock(mutex_);
            slot.read = read;
            slot.piece = piece;
            slot.ready = true;
            // Past a short or failed read there is nothing left to read.
            if (read.error != 0 || read.bytes < length)
                stopped_ = true;
        }
        changed_.notify_all();
    }
}

bool ReadBackPipeline::Run(std::uint64_t from, std::uint64_t to, bool toEnd, const Consumer& consume) {
    if (!toEnd && from >= to)
        return true;
    {
        std::lock_guard lock(mutex_);
        claimed_ = 0;
        consumed_ = 0;
        stopped_ = false;
        for (Slot& slot : slots_)
            slot.ready = false;
    }
    std::vector<std::thread> readers;
    readers.reserve(slots_.size());
    for (std::size_t i = 0; i < slots_.size(); ++i)
        readers.emplace_back(&ReadBackPipeline::ReadPieces, this, from, to, toEnd);

    bool completed = true;
    for (std::uint64_t piece = 0;; ++piece) {
        Slot& slot = slots_[piece % slots_.size()];
        {
            std::unique_lock lock(mutex_);
            changed_.wait(
                lock, [&] { return (slot.ready && slot.piece == piece) || (stopped_ && piece >= claimed_); });
            if (!(slot.ready && slot.piece == piece))
                break; // every piece there was is consumed
        }
        const std::uint64_t offset = from + piece * pieceBytes_;
        const std::size_t length =
            toEnd ? pieceBytes_ : static_cast<std::size_t>(std::min<std::uint64_t>(pieceBytes_, to - offset));
        const bool more = consume(slot.buffer.Data(), slot.read, offset);
        const bool last = slot.read.error != 0 || slot.read.bytes < length;
        {
            std::lock_guard lock(mutex_);
            slot.ready = false;
            consumed_ = piece + 1;
            if (!more || last)
                stopped_ = true;
        }
        changed_.notify_all();
        if (!more) {
            completed = false;
            break;
        }
        if (last)
            break;
    }
    for (std::thread& reader : readers)
        reader.join();
    return completed;
}

} // namespace QL::Engine
