#include "FinalRename.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "ErrorText.h"
#include "QL/CopySetting.h"
#include "TargetNames.h"

namespace QL::Engine {
namespace {

// Past this many numbered names something else is wrong; stop rather than loop.
constexpr unsigned kMostNumberedNames = 100000;

bool Unsupported(int error) {
    return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

} // namespace

int RenameNoReplace(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return 0;
    if (!Unsupported(errno))
        return errno;
    // Filesystems without RENAME_NOREPLACE (NFS, some FUSE): link() refuses an existing name just
    // as atomically.
    if (::link(from.c_str(), to.c_str()) == 0) {
        ::unlink(from.c_str());
        return 0;
    }
    if (errno != EPERM && errno != EOPNOTSUPP && errno != ENOSYS)
        return errno;
    // No hard links either (FAT family): the best left is to look before renaming.
    struct stat existing;
    if (::lstat(to.c_str(), &existing) == 0)
        return EEXIST;
    return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int RenameToFreeName(const std::string& from, const std::string& target, std::string& taken,
                     const std::function<bool(const std::string&)>& nameTaken) {
    for (unsigned n = 0; n < kMostNumberedNames; ++n) {
        const std::string candidate = NumberedPath(target, n, /*isFolder=*/false);
        const int error = nameTaken && nameTaken(candidate) ? EEXIST : RenameNoReplace(from, candidate);
        if (error == 0) {
            taken = candidate;
            return 0;
        }
        if (error != EEXIST)
            return error;
    }
    return EEXIST;
}

std::string GiveFinalName(const CopyTarget& target, const std::string& temporary, const CopyHooks& hooks,
                          std::string& finalPath) {
    finalPath = target.path;
    int error = 0;
    if (target.action == kCopyActionKeepBoth) {
        error = RenameToFreeName(temporary, target.path, finalPath, hooks.nameTaken);
    } else if (target.action == kCopyActionReplace) {
        error = ::rename(temporary.c_str(), target.path.c_str()) == 0 ? 0 : errno;
    } else {
        error = hooks.nameTaken && hooks.nameTaken(target.path) ? EEXIST : RenameNoReplace(temporary, target.path);
        if (error == EEXIST)
            return "target exists";
    }
    return error == 0 ? std::string() : Because("could not give the copy its name", error);
}

} // namespace QL::Engine
