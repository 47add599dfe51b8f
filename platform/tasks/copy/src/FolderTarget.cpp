#include "LinkedFolder.h"
#include "FolderTarget.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "ErrorText.h"
#include "FileIo.h"
#include "QL/CopySetting.h"
#include "TargetFolder.h"
#include "TargetNames.h"

namespace QL::Engine {
namespace {

constexpr unsigned kMostNumberedNames = 100000;

CopyOutcome Failed(std::string reason) {
    CopyOutcome outcome;
    outcome.status = CopyStatus::Failed;
    outcome.reason = std::move(reason);
    return outcome;
}

CopyOutcome Made(const std::string& path, const struct stat& sourceStatus, bool created) {
    // Only a folder made here takes the source's time; an existing one is the user's.
    if (created) {
        const struct timespec times[2] = {sourceStatus.st_atim, sourceStatus.st_mtim};
        if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0)
            return Failed(Because("could not set the modification time", errno));
        SyncFolderOf(path);
    }
    CopyOutcome outcome;
    outcome.status = CopyStatus::Copied;
    outcome.finalPath = path;
    return outcome;
}

bool IsFolder(const std::string& path, bool& exists) {
    struct stat status;
    exists = ::lstat(path.c_str(), &status) == 0;
    return exists && S_ISDIR(status.st_mode);
}

} // namespace

CopyOutcome MakeFolderTarget(const CopyTarget& target, const struct stat& sourceStatus) {
    // The folder itself too: merging into a link would write every file of it elsewhere.
    if (FolderPathHasLink(target.path))
        return Failed(kLinkedFolderReason);
    bool exists = false;
    const bool isFolder = IsFolder(target.path, exists);
    if (target.action == kCopyActionSkip) {
        CopyOutcome outcome;
        outcome.status = CopyStatus::Skipped;
        outcome.finalPath = target.path;
        return outcome;
    }
    if (exists && target.action != kCopyActionKeepBoth) {
        // Merge into a folder; a file in the way is never removed to make room.
        return isFolder ? Made(target.path, sourceStatus, /*created=*/false) : Failed("target exists");
    }
    if (std::string reason = PrepareFolderOf(target); !reason.empty())
        return Failed(std::move(reason));
    for (unsigned n = 0; n < kMostNumberedNames; ++n) {
        const std::string candidate = NumberedPath(target.path, n, /*isFolder=*/true);
        // mkdir refuses an existing name atomically, so two copies never share a new folder.
        if (::mkdir(candidate.c_str(), 0777) == 0)
            return Made(candidate, sourceStatus, /*created=*/true);
        if (errno != EEXIST)
            return Failed(FolderAwareReason(target, Because("could not create the folder", errno)));
        if (target.action != kCopyActionKeepBoth) {
            // Appeared meanwhile: as above.
            const bool nowFolder = IsFolder(candidate, exists);
            return nowFolder ? Made(candidate, sourceStatus, false) : Failed("target exists");
        }
    }
    return Failed(Because("could not create the folder", EEXIST));
}

} // namespace QL::Engine
