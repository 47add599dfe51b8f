#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Checksum/Checksum.h"
#include "QL/Engine/CopyControl.h"
#include "QL/Engine/DestinationFolders.h"
#include "QL/Engine/FaultSeams.h"

namespace QL::Engine {

class LaneHasher;

// Paths here are UTF-8, as the operating system takes them; the scheduler converts once.

// One target of a source. action is a copy action of the task contract: 0 nothing is expected
// at the target (an existing one is then a conflict, reported, never overwritten), 1 skip (keep
// the existing file), 2 keep both (write under a new unique name beside it), 3 replace.
// folders: the run's destination folders, which decide what may be created; without them the
// target's folders are simply made.
struct CopyTarget {
    CopyTarget() = default;
    CopyTarget(std::string targetPath, std::int32_t copyAction = 0,
               std::shared_ptr<DestinationFolders> destinationFolders = nullptr)
        : path(std::move(targetPath)), action(copyAction), folders(std::move(destinationFolders)) {}

    std::string path;
    std::int32_t action = 0;
    std::shared_ptr<DestinationFolders> folders;
};

// What a source is known to hash to, from the ASC MHL history of the card or drive it is on: the
// copy fails, with nothing under a final name, unless the source read now hashes the same.
struct ExpectedDigest {
    Checksum::Algorithm algorithm = Checksum::Algorithm::Md5;
    std::string hex;       // lower-case
    std::string listedIn;  // the history's generation file that lists the source, for the reason
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
    // Copied: where the copy stands, which differs from the target's path for keep both.
    // Skipped: the target's path. Failed and Cancelled: empty.
    std::string finalPath;
    // One line for Failed (and "cancelled" for Cancelled): "target exists", "verification failed:
    // MD5 differs", "verification failed: contents differ at byte N", "verification failed: sizes
    // differ", "could not write the copy: No space left on device", "source could not be read:
    // ..."; errors of the system end with the system's text for them.
    std::string reason;
    VerifiedBy verifiedBy = VerifiedBy::NotVerified;
    // The source's digest taken while it was read (lower-case hex) and its algorithm's name
    // ("md5", "xxh128", "xxh3", "xxh64"): the verify mode's checksum, else xxh128, so that every
    // copy can be listed in the destination's manifest. Empty when nothing was copied.
    std::string checksum;
    std::string checksumAlgorithm;
    std::uint64_t bytes = 0;
    // A temporary that could not be removed (the disk turned read-only): the reason names it, and
    // whoever cleans up later must remove it.
    std::string leftover;
};

// Called from copying threads with the bytes of the source done so far.
using ProgressFunction = std::function<void(std::uint64_t sourceBytesDone)>;

// Streams one source to all its targets: the source is read once, in large aligned chunks, and
// each chunk goes to every target in parallel. Each target is written to a temporary name in its
// folder (folders created, as far as the target's DestinationFolders allow), flushed, verified by
// verifyMode (the task contract's values), given the source's modification time, and only then
// renamed to its final name. A failing target does not stop the others.
//
// Memory is bounded whatever the file size: four chunks shared by all targets, and per target
// four read-back buffers of at most 2 MiB each, read into at once (two buffers, one read at a
// time, for bit by bit). Verification runs behind the writing, on regions already flushed, so
// that it costs little more time than the writing itself. CopyFile may run on several threads at
// once. A value that is no copy action or verify mode, or a target
// path that names no file, is a fault of the caller: std::invalid_argument.
class FileCopier {
public:
    // chunkBytes is rounded up to the direct I/O alignment (4 KiB).
    explicit FileCopier(std::size_t chunkBytes = 8u << 20, CopyHooks hooks = {});

    std::vector<CopyOutcome> CopyFile(const std::string& source, const std::vector<CopyTarget>& targets,
                                      std::uint32_t verifyMode, CopyControl& control,
                                      const ProgressFunction& progress,
                                      const ExpectedDigest* expected = nullptr) const;

    // A folder entry: creates each target folder (action 2 makes a unique one) with the source's
    // modification time. Its files are copied one by one through CopyFile. An existing folder is
    // no conflict for actions 0 and 3: the files merge into it, and its time is left alone; a file
    // in the way fails ("target exists") and is never removed.
    std::vector<CopyOutcome> CopyFolder(const std::string& source,
                                        const std::vector<CopyTarget>& targets) const;

    // The temporary name used for a target: hidden, in the target's folder, recognisable by
    // IsTemporaryName so that resume can clean what a crash left. When that name is taken (a
    // leftover, or another copy to the same name) a numbered variant is used, which
    // IsTemporaryName recognises too: clean by IsTemporaryName, not by this name alone.
    static std::string TemporaryPathFor(const std::string& finalPath);
    static bool IsTemporaryName(const std::string& fileName);
    // Whether a file name is that of a temporary for the final name, numbered or not.
    static bool IsTemporaryNameFor(const std::string& fileName, const std::string& finalName);
    // For the service's other writers (transcodes): the copier's own temporaries, so that resume
    // cleans after them alike, its keep-both names (n = 0 is the path itself, then "name (n)") and
    // its rename that never replaces. Both operations answer 0 or an errno (EEXIST: name taken).
    static int CreateTemporaryFile(const std::string& finalPath, std::string& temporary);
    static std::string NumberedName(const std::string& path, unsigned n);
    static int RenameWithoutReplacing(const std::string& from, const std::string& to);

private:
    std::size_t chunkBytes_;
    CopyHooks hooks_;
    // Every MD5 of the copies this copier runs at once goes through one hashing thread.
    std::shared_ptr<LaneHasher> hasher_;
};

} // namespace QL::Engine
