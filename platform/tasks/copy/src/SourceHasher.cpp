#include "SourceHasher.h"

#include <exception>

namespace QL::Engine {

SourceHasher::SourceHasher(ChunkPool& pool, LaneHasher& lanes, Checksum::Algorithm algorithm,
                           std::optional<Checksum::Algorithm> also)
    : pool_(pool) {
    if (algorithm == Checksum::Algorithm::Md5)
        md5_ = lanes.OpenStream();
    else
        hasher_ = Checksum::MakeHasher(algorithm);
    if (also && *also != algorithm)
        also_ = Checksum::MakeHasher(*also);
    thread_ = std::thread(&SourceHasher::Run, this);
}

SourceHasher::~SourceHasher() {
    queue_.Close(SourceEnd{});
    if (thread_.joinable())
        thread_.join();
}

void SourceHasher::Run() {
    while (Chunk* chunk = queue_.Pop()) {
        try {
            if (!failed_) {
                if (md5_)
                    md5_->Update(chunk->buffer.Data(), chunk->length);
                else
                    hasher_->Update(chunk->buffer.Data(), chunk->length);
                if (also_)
                    also_->Update(chunk->buffer.Data(), chunk->length);
            }
        } catch (const std::exception&) {
            failed_ = true;
        }
        // Dropped whatever happened, or the reader would wait for it forever.
        pool_.Drop(chunk);
    }
}

bool SourceHasher::Finish() {
    queue_.Close(SourceEnd{});
    thread_.join();
    if (failed_)
        return false;
    digest_ = md5_ ? md5_->FinishHex() : hasher_->FinishHex();
    alsoDigest_ = also_ ? also_->FinishHex() : digest_;
    return true;
}

} // namespace QL::Engine
