#pragma once
#include <memory>
#include <optional>
#include <string>
#include <thread>

#include "ChunkPool.h"
#include "ChunkQueue.h"
#include "Checksum/Checksum.h"
#include "LaneHasher.h"

namespace QL::Engine {

// Takes the digest of the source on a thread of its own, as one more holder of each chunk, so that
// the reader goes on to the next chunk while this one is hashed. MD5 goes through the lane hasher;
// the xxHash family is fast enough to be taken here. A second algorithm may be asked for as well:
// the one a history of the source lists it with.
class SourceHasher {
public:
    SourceHasher(ChunkPool& pool, LaneHasher& lanes, Checksum::Algorithm algorithm,
                 std::optional<Checksum::Algorithm> also = std::nullopt);
    ~SourceHasher();
    SourceHasher(const SourceHasher&) = delete;
    SourceHasher& operator=(const SourceHasher&) = delete;

    // Chunks come in source order; each is dropped back to the pool once hashed.
    void Push(Chunk* chunk) { queue_.Push(chunk); }
    // After the last chunk: false when hashing failed. Then Digest (and AlsoDigest) hold the
    // lower-case hex digests of everything pushed.
    bool Finish();
    const std::string& Digest() const { return digest_; }
    const std::string& AlsoDigest() const { return alsoDigest_; }

private:
    void Run();

    ChunkPool& pool_;
    ChunkQueue queue_;
    std::unique_ptr<LaneHasher::Stream> md5_;
    std::unique_ptr<Checksum::Hasher> hasher_; // when the digest is no MD5
    std::unique_ptr<Checksum::Hasher> also_;
    bool failed_ = false;
    std::string digest_;
    std::string alsoDigest_;
    std::thread thread_;
};

} // namespace QL::Engine
