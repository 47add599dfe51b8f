#pragma once
#include <cstdint>
#include <vector>

#include "Fnd/Date.h"
#include "Fnd/WString.h"

namespace QL {

class IngestUtils {
public:
    // A site's fixed configuration, read by Utilities::GetConfigurableIngestSettings.
    struct IngestSettings {
        // The options are fixed: the dialog reads and writes no option preferences.
        bool settingsLocked = false;
        // When not empty, offered as the destination subfolder instead of a time stamp.
        Fnd::WString defaultSubfolder;
    };

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
    // Links are seen through, also where the end of path is still to be made.
    static bool FolderContain(const Fnd::WString& folder, const Fnd::WString& path, bool recursive);
    // True if both name one folder: by their names, or on disk through links or mounts.
    static bool SameFolder(const Fnd::WString& a, const Fnd::WString& b);
    // Asks what to do about an existing target, through the interaction driver. False: the user
    // gave up. applyToAll 1: the answer holds for the rest of the batch. allowApplyToAll offers
    // the apply-to-all box; onlyInCopyList says the target is not on disk yet but queued;
    // allowCancel offers Cancel.
    static bool WarnUserForExistPath(const Fnd::WString& source, const Fnd::WString& target, bool isDirectory,
                                     int& action, int& applyToAll, bool allowApplyToAll, bool onlyInCopyList,
                                     bool allowCancel);
    // The path is a symbolic link.
    static bool IsLinkFile(const Fnd::WString& path);

    // True if the sources fit on every destination's filesystem. Folders count with everything
    // below them (links are counted as links, never followed). Destinations on one filesystem
    // share its free space, so their needs add up; a destination that does not exist yet is
    // measured at its nearest existing ancestor. What already stands in a destination under a
    // source's own name (a file of the same size, a folder) needs no space: an ingest cut short
    // can be finished on the disk it filled. On false, failingPath names the first
    // destination of a filesystem that is short and missingBytes how much is missing; an empty
    // destination gives false with an empty failingPath and no bytes.
    static bool EnoughSpaceForCopy(const std::vector<Fnd::WString>& sourcePaths,
                                   const std::vector<Fnd::WString>& destinationPaths,
                                   Fnd::WString& failingPath, std::uint64_t& missingBytes);

    // The date formatted by a strftime pattern ("%Y-%m-%d_%H-%M-%S") in local time and the
    // user's locale; the present moment unless a date is given.
    static Fnd::WString DateFormatter(const Fnd::WString& pattern, Fnd::Date date = Fnd::Date::Now());
};

} // namespace QL
