#include "fluxmediabrowser/Places.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "fluxcore/ZString.h"
#include "fluxmediabrowser/FavoritesPref.h"

namespace fluxmediabrowser {
namespace {

// The kernel writes space, tab, newline and backslash in paths as \ooo.
std::string Unescaped(std::string_view field) {
    std::string out;
    out.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
        if (field[i] == '\\' && i + 3 < field.size() && std::all_of(field.begin() + i + 1, field.begin() + i + 4, [](char c) {
                return c >= '0' && c <= '7';
            })) {
            out += char((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 + (field[i + 3] - '0'));
            i += 3;
        } else {
            out += field[i];
        }
    }
    return out;
}

std::vector<std::string_view> Fields(std::string_view line) {
    std::vector<std::string_view> fields;
    std::size_t at = 0;
    while (at < line.size()) {
        const std::size_t start = line.find_first_not_of(' ', at);
        if (start == std::string_view::npos)
            break;
        const std::size_t end = std::min(line.find(' ', start), line.size());
        fields.push_back(line.substr(start, end - start));
        at = end;
    }
    return fields;
}

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

// Shares a person browses for media; local block devices are recognised by their source.
bool IsNetworkType(std::string_view type) {
    static constexpr std::array<std::string_view, 8> kTypes{"nfs",  "nfs4",  "cifs",      "smb3",
                                                            "smbfs", "9p", "fuse.sshfs", "fuse.rclone"};
    return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end();
}

// Filesystems of the system itself or images of software, never of media.
bool IsSystemType(std::string_view type) {
    static constexpr std::array<std::string_view, 6> kTypes{"squashfs", "overlay", "tmpfs",
                                                            "devtmpfs", "ramfs",   "efivarfs"};
    return std::find(kTypes.begin(), kTypes.end(), type) != kTypes.end();
}

// Folders of the system, whose mounts (boot partitions, containers, snaps) hold no media.
bool IsSystemMountPoint(std::string_view mountPoint) {
    static constexpr std::array<std::string_view, 9> kFolders{"/boot", "/proc", "/sys", "/dev",  "/snap",
                                                              "/var",  "/usr",  "/etc", "/tmp"};
    for (std::string_view folder : kFolders)
        if (mountPoint == folder || StartsWith(mountPoint, std::string(folder) + "/"))
            return true;
    // The desktop mounts plugged devices under /run/media; the rest of /run is the system's.
    return StartsWith(mountPoint, "/run/") && !StartsWith(mountPoint, "/run/media/");
}

// Trailing slashes name no component of their own; a path of slashes alone names itself.
std::string LastComponent(const std::string& path) {
    const std::size_t end = path.find_last_not_of('/');
    if (end == std::string::npos)
        return path;
    const std::size_t slash = path.find_last_of('/', end);
    return path.substr(slash == std::string::npos ? 0 : slash + 1, end - (slash == std::string::npos ? 0 : slash + 1) + 1);
}

bool ReadsTrue(const std::string& file) {
    std::ifstream in(file);
    char value = 0;
    return in >> value && value == '1';
}

Fnd::WString HomeDirectory() {
    const char* home = std::getenv("HOME");
    return Fnd::FromUTF8(home && *home ? home : "/");
}

Fnd::WString NameOf(const Fnd::WString& path) {
    const std::size_t slash = path.find_last_of(u'/');
    const Fnd::WString name = slash == Fnd::WString::npos ? path : path.substr(slash + 1);
    return name.empty() ? path : name;
}

} // namespace

std::vector<Place> ParseMountedVolumes(std::string_view mountInfo, const RemovableQuery& isRemovable) {
    std::vector<Place> removable;
    std::vector<Place> fixed;
    std::set<std::string> seen;
    std::istringstream lines{std::string(mountInfo)};
    for (std::string line; std::getline(lines, line);) {
        const std::vector<std::string_view> fields = Fields(line);
        const auto separator = std::find(fields.begin(), fields.end(), "-");
        if (fields.size() < 6 || separator == fields.end() || fields.end() - separator < 3)
            continue;
        const std::string root = Unescaped(fields[3]);
        const std::string mountPoint = Unescaped(fields[4]);
        const std::string_view type = separator[1];
        const std::string source = Unescaped(separator[2]);
        const bool device = StartsWith(source, "/dev/") && !StartsWith(source, "/dev/loop");
        if (IsSystemType(type) || IsSystemMountPoint(mountPoint) || !(device || IsNetworkType(type)))
            continue;
        // A bind mount of a folder is no volume of its own; a root filesystem on a subvolume is.
        if (root != "/" && mountPoint != "/")
            continue;
        if (!seen.insert(mountPoint).second)
            continue;
        Place place;
        place.kind = Place::Kind::Volume;
        place.path = Fnd::FromUTF8(mountPoint);
        place.name = mountPoint == "/" ? fluxcore::Localize("$$$/MediaBrowser/Places/Computer=Computer")
                                       : Fnd::FromUTF8(LastComponent(mountPoint));
        place.removable = StartsWith(mountPoint, "/media/") || StartsWith(mountPoint, "/run/media/") ||
                          (device && isRemovable && isRemovable(LastComponent(source)));
        (place.removable ? removable : fixed).push_back(std::move(place));
    }
    removable.insert(removable.end(), std::make_move_iterator(fixed.begin()), std::make_move_iterator(fixed.end()));
    return removable;
}

std::vector<Place> MountedVolumes() {
    std::ifstream in("/proc/self/mountinfo");
    std::stringstream text;
    text << in.rdbuf();
    return ParseMountedVolumes(text.str(), [](const std::string& device) {
        // A partition says nothing itself; the disk it lies on does.
        const std::string block = "/sys/class/block/" + device;
        std::error_code error;
        const std::filesystem::path real = std::filesystem::canonical(block, error);
        return ReadsTrue(block + "/removable") || (!error && ReadsTrue((real.parent_path() / "removable").string()));
    });
}

std::vector<Place> ListPlaces() {
    std::vector<Place> places;
    places.push_back({Place::Kind::Home, fluxcore::Localize("$$$/MediaBrowser/Places/Home=Home"), HomeDirectory(), false});
    for (Place& volume : MountedVolumes())
        places.push_back(std::move(volume));
    for (const Fnd::WString& favorite : FavoriteDirectories())
        places.push_back({Place::Kind::Favorite, NameOf(favorite), favorite, false});
    for (const Fnd::WString& recent : RecentDirectories())
        places.push_back({Place::Kind::Recent, NameOf(recent), recent, false});
    return places;
}

} // namespace fluxmediabrowser
