#pragma once
// The directory list of the browser: where a person starts looking for media.
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "Fnd/WString.h"

namespace fluxmediabrowser {

struct Place {
    enum class Kind { Home, Volume, Favorite, Recent };
    Kind kind = Kind::Home;
    Fnd::WString name; // as shown: a volume's label or folder name, a directory's name
    Fnd::WString path;
    bool removable = false; // a card reader, a USB drive
    bool operator==(const Place&) const = default;
};

// Whether the block device (e.g. "sdb1", "mmcblk0p1") is removable media.
using RemovableQuery = std::function<bool(const std::string& device)>;

// Mounted volumes worth browsing from the text of /proc/self/mountinfo: real devices only (no
// proc, sysfs, tmpfs, overlays or snaps), removable media first, each group in mount order.
std::vector<Place> ParseMountedVolumes(std::string_view mountInfo, const RemovableQuery& isRemovable);
// The same for this machine (/proc/self/mountinfo and /sys/block/*/removable).
std::vector<Place> MountedVolumes();

// Home, then the volumes, then the favourites, then the recent directories.
std::vector<Place> ListPlaces();

} // namespace fluxmediabrowser
