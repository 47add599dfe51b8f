#include "SourceHasher.h"

#include <exception>

namespace QL::Engine {

SourceHasher::SourceHasher(ChunkPool& pool, LaneHasher& hasher)
    : pool_(pool), md5_(hasher.OpenStream()), thread_(&SourceHasher::Run, this) {}

SourceHasher::~SourceHasher() {
    queue_.Close(SourceEnd{});
    if (thread_.joinable())
        thread_.join();
}

void SourceHasher::Run() {
    while (Chunk* chunk = queue_.Pop()) {
        try {
            if (!failed_)
                md5_->Update(chunk->buffer.Data(), chunk->length);
        } catch (const std::exception&) {
            failed_ = true;
        }
        // Dropped whatever happened, or the reader would wait for it forever.
        pool_.Drop(chunk);
    }
}

std::string SourceHasher::FinishHex() {
    queue_.Close(SourceEnd{});
    thread_.join();
    return failed_ ? std::string() : md5_->FinishHex();
}

} // namespace QL::Engine
