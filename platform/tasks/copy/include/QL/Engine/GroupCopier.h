#pragma once
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// One source and every target it goes to, as a copy of a batch asks for it.
struct SourceCopy {
    std::string source;
    std::vector<CopyTarget> targets;
    std::uint32_t verifyMode = 0xFFFFFFFFu;
    std::optional<ExpectedDigest> expected;
};

// Called with a source's index in the group and its bytes read.
using GroupProgressFunction = std::function<void(std::size_t source, std::uint64_t bytesDone)>;

class GroupBuffers;
class WorkerPool;

// Copies a group of small files with the costs of one: a card's XML, thumbnails and index files
// would otherwise each pay a flush, a dropped cache, a folder flush and their own threads, which
// cost far more than their bytes. Each source is read whole in one call and written to every
// target's temporary in one; then one flush per destination filesystem makes the whole group
// durable; then every copy is read back from the medium and checked; then the verified copies
// take their final names, and each folder is flushed once. What FileCopier promises holds per
// file: nothing stands under a final name unless it is complete and, when asked, verified; a
// failing file or target fails alone. Buffers come from a pool kept for the copier's life and
// its group, never per file. CopyGroup may run on several threads at once.
class GroupCopier {
public:
    // Files up to this size go through groups; larger ones stream through FileCopier.
    static constexpr std::uint64_t kLargestFile = 2u << 20;
    // A group holds at most this many sources, and this many bytes of them (each file rounded up
    // to the direct I/O alignment, see Footprint): what the group keeps in memory at once.
    static constexpr std::size_t kMostFiles = 256;
    static constexpr std::uint64_t kMostBytes = 24u << 20;
    static std::uint64_t Footprint(std::uint64_t fileSize);

    explicit GroupCopier(CopyHooks hooks = {});
    ~GroupCopier();

    // Outcomes per source, per target, in the order given. Values that are no copy action or verify
    // mode, or a target path naming no file, are faults of the caller: std::invalid_argument.
    std::vector<std::vector<CopyOutcome>> CopyGroup(const std::vector<SourceCopy>& group, CopyControl& control,
                                                    const GroupProgressFunction& progress) const;

    // Frees the pooled buffers: a batch has ended, and a long-running host should not keep them.
    void ReleaseBuffers();

private:
    std::unique_ptr<GroupBuffers> AcquireBuffers() const;
    void ReturnBuffers(std::unique_ptr<GroupBuffers> buffers) const;

    CopyHooks hooks_;
    std::unique_ptr<WorkerPool> readers_; // reads a group's files side by side
    mutable std::mutex poolMutex_;
    mutable std::vector<std::unique_ptr<GroupBuffers>> pool_;
};

} // namespace QL::Engine
