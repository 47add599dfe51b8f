#pragma once
#include <vector>

#include "Fnd/WString.h"

namespace QL {

class IngestUtils {
public:
    // True if every path exists. On false, failingPath names the first that does not; an empty
    // entry gives false with an empty failingPath.
    static bool PathsExist(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath);
    // The same for write access by this process.
    static bool PathsAreWritable(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath);
    // The same; names the second occurrence of a path that occurs twice. Paths are compared after
    // normalisation, and two existing paths that are the same folder on disk (through a link)
    // count as the same.
    static bool NoDuplicatedPaths(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath);
    // True if path lies strictly inside folder; with recursive false only as a direct child.
    static bool FolderContain(const Fnd::WString& folder, const Fnd::WString& path, bool recursive);
    // Asks what to do about an existing target, through the interaction driver. False: the user
    // gave up. applyToAll 1: the answer holds for the rest of the batch. allowApplyToAll offers
    // the apply-to-all box; onlyInCopyList says the target is not on disk yet but queued;
    // allowCancel offers Cancel.
    static bool WarnUserForExistPath(const Fnd::WString& source, const Fnd::WString& target, bool isDirectory,
                                     int& action, int& applyToAll, bool allowApplyToAll, bool onlyInCopyList,
                                     bool allowCancel);
    // The path is a symbolic link.
    static bool IsLinkFile(const Fnd::WString& path);
};

} // namespace QL
