#include "QL/Engine/FileCopier.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <stdexcept>
#include <utility>

#include "AlignedBuffer.h"
#include "ChunkPool.h"
#include "CopyJob.h"
#include "ErrorText.h"
#include "FinalRename.h"
#include "FolderTarget.h"
#include "LaneHasher.h"
#include "QL/CopySetting.h"
#include "SourceHasher.h"
#include "SourceReader.h"
#include "TargetActions.h"
#include "TargetCopy.h"
#include "TargetNames.h"
#include "TemporaryFile.h"
#include "VerifyAlgorithms.h"

namespace QL::Engine {
namespace {

// Chunks in memory per copy, whatever the number of targets: the reader runs at most this many
// chunks ahead of the slowest target.
constexpr std::size_t kChunksInFlight = 4;
// Chunks written between flushes that let verification trail the writing. Frequent flushes cost
// little with direct writes, and whatever is unflushed when the source ends is checked after it,
// with the disk otherwise idle.
constexpr std::uint64_t kChunksPerFlush = 2;
// Read-back pieces and how many of them are read at once per target. One direct read at a time
// leaves the disk idle between requests and while the piece is hashed; with a few in flight the
// whole ingest runs about a fifth faster. Small pieces keep each target's share of memory at one
// chunk, so that many targets still fit.
constexpr std::size_t kReadBackBytes = 2u << 20;
constexpr std::size_t kReadBacksInFlight = 4;

using Copies = std::vector<std::unique_ptr<TargetCopy>>;

// The reading loop: each chunk of the source goes to every target still copying, and progress is
// told per chunk. Answers how the stream ended.
SourceEnd Stream(SourceReader& reader, ChunkPool& pool, SourceHasher* hasher, const Copies& copies,
                 CopyControl& control, const ProgressFunction& progress, const ExpectedDigest* expected) {
    std::vector<TargetCopy*> receivers;
    receivers.reserve(copies.size());
    for (;;) {
        receivers.clear();
        for (const auto& copy : copies) {
            if (copy->Live())
                receivers.push_back(copy.get());
        }
        if (receivers.empty())
            return SourceEnd{SourceEnd::Kind::Failed, "no target left", {}, 0};
        if (!control.Checkpoint())
            return SourceEnd{SourceEnd::Kind::Cancelled, {}, {}, 0};
        Chunk* chunk = pool.Acquire();
        if (const int error = reader.ReadInto(*chunk)) {
            pool.Release(chunk);
            return SourceEnd{SourceEnd::Kind::Failed, Because("source could not be read", error), {}, 0};
        }
        if (chunk->length == 0) {
            pool.Release(chunk);
            SourceEnd end = reader.Finish();
            if (hasher && end.kind == SourceEnd::Kind::Complete) {
                if (!hasher->Finish())
                    return SourceEnd{SourceEnd::Kind::Failed, "source could not be hashed", {}, 0};
                end.digest = hasher->Digest();
                if (expected && hasher->AlsoDigest() != expected->hex)
                    return SourceEnd{SourceEnd::Kind::Failed, HistoryMismatchReason(*expected), {}, 0};
            }
            return end;
        }
        const int hashers = hasher ? 1 : 0;
        chunk->holders.store(static_cast<int>(receivers.size()) + hashers, std::memory_order_release);
        if (hasher)
            hasher->Push(chunk);
        for (TargetCopy* receiver : receivers)
            receiver->Queue().Push(chunk);
        if (progress)
            progress(chunk->offset + chunk->length);
    }
}

} // namespace

FileCopier::FileCopier(std::size_t chunkBytes, CopyHooks hooks)
    : chunkBytes_(std::max<std::size_t>(kIoAlignment, RoundUpToAlignment(chunkBytes))),
      hooks_(std::move(hooks)), hasher_(LaneHasher::Create()) {}

std::vector<CopyOutcome> FileCopier::CopyFile(const std::string& source,
                                              const std::vector<CopyTarget>& targets,
                                              std::uint32_t verifyMode, CopyControl& control,
                                              const ProgressFunction& progress,
                                              const ExpectedDigest* expected) const {
    RequireVerifyMode(verifyMode);
    for (const CopyTarget& target : targets)
        RequireValidTarget(target);

    std::vector<CopyOutcome> outcomes(targets.size());
    std::vector<std::size_t> pending;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        if (!SettleWithoutData(targets[i], outcomes[i]))
            pending.push_back(i);
    }
    const auto settlePending = [&](CopyStatus status, const std::string& reason) {
        for (const std::size_t i : pending) {
            outcomes[i].status = status;
            outcomes[i].reason = reason;
        }
        return outcomes;
    };
    if (pending.empty())
        return outcomes;
    if (!control.Checkpoint())
        return settlePending(CopyStatus::Cancelled, "cancelled");

    SourceReader reader(source, hooks_.beforeRead);
    if (const int error = reader.Open())
        return settlePending(CopyStatus::Failed, Because("source could not be read", error));

    // A small file needs no more memory than its own size.
    const auto size = static_cast<std::uint64_t>(reader.Status().st_size);
    const std::size_t bufferBytes = std::max<std::size_t>(
        kIoAlignment,
        static_cast<std::size_t>(std::min<std::uint64_t>(chunkBytes_, RoundUpToAlignment(size))));
    ChunkPool pool(kChunksInFlight, bufferBytes);
    CopyJob job;
    job.source = source;
    job.sourceStatus = reader.Status();
    job.verifyMode = verifyMode;
    job.bufferBytes = bufferBytes;
    job.readBackBytes = std::min(bufferBytes, kReadBackBytes);
    job.readBacksInFlight = kReadBacksInFlight;
    job.flushEvery = kChunksPerFlush * bufferBytes;
    job.control = &control;
    job.hooks = &hooks_;
    job.pool = &pool;
    job.hasher = hasher_.get();

    // Declared after the pool: the hasher and the writers give chunks back to it until they are
    // joined.
    auto hasher = std::make_unique<SourceHasher>(
        pool, *hasher_, SourceDigestAlgorithm(verifyMode),
        expected ? std::optional<Checksum::Algorithm>(expected->algorithm) : std::nullopt);
    Copies copies;
    copies.reserve(pending.size());
    for (const std::size_t i : pending) {
        copies.push_back(std::make_unique<TargetCopy>(targets[i], job));
        if (copies.back()->Prepare())
            copies.back()->Start();
    }
    const SourceEnd end = Stream(reader, pool, hasher.get(), copies, control, progress, expected);
    for (const auto& copy : copies)
        copy->Queue().Close(end);
    for (std::size_t k = 0; k < copies.size(); ++k)
        outcomes[pending[k]] = copies[k]->Finish();
    return outcomes;
}

std::vector<CopyOutcome> FileCopier::CopyFolder(const std::string& source,
                                                const std::vector<CopyTarget>& targets) const {
    for (const CopyTarget& target : targets)
        RequireValidTarget(target);
    struct stat status {};
    int error = ::stat(source.c_str(), &status) == 0 ? 0 : errno;
    if (error == 0 && !S_ISDIR(status.st_mode))
        error = ENOTDIR;
    if (error == 0) {
        // A folder that cannot be listed was gathered without its files: made empty, it would
        // pass for copied.
        const int folder = ::open(source.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        error = folder < 0 ? errno : 0;
        if (folder >= 0)
            ::close(folder);
    }
    std::vector<CopyOutcome> outcomes;
    outcomes.reserve(targets.size());
    for (const CopyTarget& target : targets) {
        CopyOutcome outcome;
        if (target.action == kCopyActionSkip || error == 0) {
            outcomes.push_back(MakeFolderTarget(target, status));
        } else {
            outcome.reason = Because("source could not be read", error);
            outcomes.push_back(std::move(outcome));
        }
    }
    return outcomes;
}

std::string FileCopier::TemporaryPathFor(const std::string& finalPath) {
    return TemporaryVariant(finalPath, 0);
}

bool FileCopier::IsTemporaryName(const std::string& fileName) {
    return IsTemporaryFileName(fileName);
}

int FileCopier::CreateTemporaryFile(const std::string& finalPath, std::string& temporary) {
    const int fd = CreateTemporaryFor(finalPath, temporary);
    if (fd < 0)
        return -fd;
    ::close(fd);
    return 0;
}

std::string FileCopier::NumberedName(const std::string& path, unsigned n) {
    return NumberedPath(path, n, /*isFolder=*/false);
}

int FileCopier::RenameWithoutReplacing(const std::string& from, const std::string& to) {
    return RenameNoReplace(from, to);
}

bool FileCopier::IsTemporaryNameFor(const std::string& fileName, const std::string& finalName) {
    return IsTemporaryFileNameFor(fileName, finalName);
}

} // namespace QL::Engine
