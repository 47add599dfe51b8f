#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

#include "AlignedBuffer.h"
#include "Checksum/Checksum.h"
#include "ChunkQueue.h"
#include "LaneHasher.h"
#include "MediumReader.h"
#include "QL/Engine/CopyControl.h"
#include "QL/Engine/FileCopier.h"
#include "ReadBackPipeline.h"

namespace QL::Engine {

// Checks one copy against its source by reading the copy back from the medium: MD5 against the
// digest taken while the source was read, or byte by byte against the source read back from its
// medium too. It can trail the writer, checking each flushed region while later ones are still
// being written, so that checking costs little more time than writing.
class CopyVerifier {
public:
    // verifyMode is a checksum mode or kVerifyBitByBit. A checksum check keeps readsInFlight reads
    // of bufferBytes going while it hashes; a byte-by-byte one reads copy and source in turn.
    CopyVerifier(std::uint32_t verifyMode, std::string sourcePath, std::size_t bufferBytes,
                 std::size_t readsInFlight, CopyControl& control, LaneHasher& hasher,
                 const CopyHooks& hooks);

    // Opens the copy (and, byte by byte, the source) for reading back. Empty, or the reason.
    std::string Open(const std::string& copyPath);

    // Checks the copy up to upTo, which is flushed and on the direct I/O alignment. False once the
    // check has failed or was cancelled.
    bool CheckUpTo(std::uint64_t upTo);
    // After the final flush: checks the rest, to the end of the copy, and concludes.
    bool CheckToEnd(const SourceEnd& source);

    bool Failed() const { return failed_.load(std::memory_order_acquire); }
    bool Cancelled() const { return cancelled_; }
    // For a failed check: "verification failed: MD5 differs", "... XXH128 differs", ...
    const std::string& Reason() const { return reason_; }
    VerifiedBy Method() const;

private:
    bool Check(std::uint64_t upTo, bool toEnd);
    bool HashUpTo(std::uint64_t upTo, bool toEnd);
    bool CompareUpTo(std::uint64_t upTo, bool toEnd);
    bool Fail(std::string reason);

    const std::uint32_t verifyMode_;
    const std::string sourcePath_;
    CopyControl& control_;
    const CopyHooks& hooks_;
    MediumReader copy_;
    MediumReader source_;
    std::unique_ptr<ReadBackPipeline> pipeline_;
    std::unique_ptr<AlignedBuffer> copyBuffer_;
    std::unique_ptr<AlignedBuffer> sourceBuffer_;
    std::unique_ptr<LaneHasher::Stream> md5_;
    std::unique_ptr<Checksum::Hasher> hasher_; // a checksum other than MD5
    Checksum::Algorithm algorithm_ = Checksum::Algorithm::Md5;
    std::uint64_t checked_ = 0;
    std::atomic<bool> failed_{false};
    bool cancelled_ = false;
    std::string reason_;
};

} // namespace QL::Engine
