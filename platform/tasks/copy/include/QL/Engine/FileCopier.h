#pragma once
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "QL/Engine/CopyControl.h"

namespace QL::Engine {

// Paths here are UTF-8, as the operating system takes them; the scheduler converts once.

// One target of a source. action is a copy action of the task contract: 0 nothing is expected
// at the target (an existing one is then a conflict, reported, never overwritten), 1 skip (keep
// the existing file), 2 keep both (write under a new unique name beside it), 3 replace.
struct CopyTarget {
    std::string path;
    std::int32_t action = 0;
};

// How a destination's copy was checked.
enum class VerifiedBy {
    NotVerified,  // no verification asked, or the file was skipped
    Size,         // sizes compared
    DirectRead,   // read back with O_DIRECT, bypassing the page cache
    DroppedCache, // the filesystem refused O_DIRECT: cached pages dropped, then read back
};

enum class CopyStatus {
    Copied,    // the verified copy stands under finalPath
    Skipped,   // action 1: the existing target was kept, nothing written
    Failed,    // nothing stands under a final name for this target; reason says why
    Cancelled, // cancelled before it finished; the temporary is removed
};

struct CopyOutcome {
    CopyStatus status = CopyStatus::Failed;
    std::string finalPath; // differs from the target's path for keep both
    std::string reason;    // one line, for a failure: "verification failed: MD5 differs", ...
    VerifiedBy verifiedBy = VerifiedBy::NotVerified;
    std::string checksum;  // hex MD5 of the source when the verify mode is MD5; else empty
    std::uint64_t bytes = 0;
};

// Test seams: fault injection between the steps of a copy. Empty in production.
struct CopyHooks {
    // After a temporary is written and flushed, before it is verified.
    std::function<void(const std::string& temporaryPath)> afterWrite;
    // Before each write to a target; answering an errno (ENOSPC, EIO) makes that write fail so.
    std::function<int(const std::string& temporaryPath, std::uint64_t offset)> failWrite;
};

// Called from copying threads with the bytes of the source done so far.
using ProgressFunction = std::function<void(std::uint64_t sourceBytesDone)>;

// Streams one source to all its targets: the source is read once, in large aligned chunks, and
// each chunk goes to every target in parallel. Each target is written to a temporary name in its
// folder (folders created), flushed, verified by verifyMode (the task contract's values), given
// the source's modification time, and only then renamed to its final name. A failing target
// does not stop the others.
class FileCopier {
public:
    explicit FileCopier(std::size_t chunkBytes = 8u << 20, CopyHooks hooks = {});

    std::vector<CopyOutcome> CopyFile(const std::string& source, const std::vector<CopyTarget>& targets,
                                      std::uint32_t verifyMode, CopyControl& control,
                                      const ProgressFunction& progress) const;

    // A folder entry: creates each target folder (action 2 makes a unique one) with the source's
    // modification time. Its files are copied one by one through CopyFile.
    std::vector<CopyOutcome> CopyFolder(const std::string& source, const std::vector<CopyTarget>& targets) const;

    // The temporary name used for a target: hidden, in the target's folder, recognisable by
    // IsTemporaryName so that resume can clean what a crash left.
    static std::string TemporaryPathFor(const std::string& finalPath);
    static bool IsTemporaryName(const std::string& fileName);

private:
    std::size_t chunkBytes_;
    CopyHooks hooks_;
};

} // namespace QL::Engine
