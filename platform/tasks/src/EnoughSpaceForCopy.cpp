#include <fts.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"
#include "QL/IngestUtils.h"

namespace QL {
namespace {

// A filesystem that destinations write to, with the space it offers and what they need of it.
struct DestinationVolume {
    dev_t device;
    std::uint64_t freeBytes;
    std::uint64_t blockSize;
    std::uint64_t needed = 0;
    Fnd::WString firstPath; // the destination the user is told about
};

// A destination as the walk over the sources sees it.
struct DestinationFolder {
    std::string path;
    std::size_t volume; // index into the volumes
};

std::uint64_t RoundUp(std::uint64_t size, std::uint64_t blockSize) {
    return (size + blockSize - 1) / blockSize * blockSize;
}

// A destination folder is often created by the copy itself: its nearest existing ancestor is
// where its bytes will land.
bool MeasureVolume(const Fnd::WString& destination, DestinationVolume& volume) {
    std::string path = Fnd::ToUTF8(Mid::Utilities::NormalizePathWithoutUNC(destination));
    struct stat info {};
    while (::stat(path.c_str(), &info) != 0) {
        if ((errno != ENOENT && errno != ENOTDIR) || path == "/" || path == ".")
            return false;
        path = Fnd::PathUtils::FolderOf(path);
    }
    struct statvfs space {};
    if (::statvfs(path.c_str(), &space) != 0)
        return false;
    const std::uint64_t unit = space.f_frsize != 0 ? space.f_frsize : space.f_bsize;
    volume.device = info.st_dev;
    volume.freeBytes = static_cast<std::uint64_t>(space.f_bavail) * unit;
    volume.blockSize = unit != 0 ? unit : 1;
    return true;
}

// Sources nested in another source (a folder and a file inside it) are copied once, with the
// folder; sorting puts every folder right before what lies inside it.
std::vector<std::string> OutermostSources(const std::vector<Fnd::WString>& sourcePaths) {
    std::vector<std::string> sorted;
    sorted.reserve(sourcePaths.size());
    for (const Fnd::WString& source : sourcePaths)
        if (!source.empty())
            sorted.push_back(Fnd::ToUTF8(Mid::Utilities::NormalizePathWithoutUNC(source)));
    std::sort(sorted.begin(), sorted.end());
    std::vector<std::string> outermost;
    for (std::string& path : sorted) {
        if (!outermost.empty()) {
            const std::string& folder = outermost.back();
            const bool inside = folder == "/" || (path.size() > folder.size() && path.starts_with(folder) &&
                                                  path[folder.size()] == '/');
            if (path == folder || inside)
                continue;
        }
        outermost.push_back(std::move(path));
    }
    return outermost;
}

// What already stands where the entry's copy would go, under the source's own name in the
// destination, takes no new space: a file of the same size is either left as it is or swapped
// for its copy one at a time, and an existing folder is merged into.
bool AlreadyStands(const std::string& target, const struct stat& source) {
    struct stat existing {};
    if (::lstat(target.c_str(), &existing) != 0)
        return false;
    if (S_ISDIR(source.st_mode))
        return S_ISDIR(existing.st_mode);
    return S_ISREG(existing.st_mode) && existing.st_size == source.st_size;
}

void AddEntry(const std::string& relative, const struct stat& info,
              const std::vector<DestinationFolder>& destinations, std::vector<DestinationVolume>& volumes) {
    if (!S_ISREG(info.st_mode) && !S_ISDIR(info.st_mode))
        return;
    for (const DestinationFolder& destination : destinations) {
        if (AlreadyStands(destination.path + "/" + relative, info))
            continue;
        DestinationVolume& volume = volumes[destination.volume];
        volume.needed += S_ISREG(info.st_mode) ? RoundUp(static_cast<std::uint64_t>(info.st_size), volume.blockSize)
                                               : volume.blockSize;
    }
}

// One walk over all sources for every destination at once; links are neither followed nor
// counted, a missing or unreadable entry counts nothing (the existence checks report those).
void MeasureSources(const std::vector<std::string>& sources, const std::vector<DestinationFolder>& destinations,
                    std::vector<DestinationVolume>& volumes) {
    if (sources.empty() || destinations.empty())
        return;
    std::vector<char*> roots;
    roots.reserve(sources.size() + 1);
    for (const std::string& source : sources)
        roots.push_back(const_cast<char*>(source.c_str()));
    roots.push_back(nullptr);
    FTS* walk = ::fts_open(roots.data(), FTS_PHYSICAL | FTS_NOCHDIR, nullptr);
    if (walk == nullptr)
        return;
    // Where the source being walked starts its path: below it, the entry's path in a destination.
    std::size_t rootParentLength = 0;
    while (const FTSENT* entry = ::fts_read(walk)) {
        if (entry->fts_level == FTS_ROOTLEVEL) {
            const std::string_view root(entry->fts_path, entry->fts_pathlen);
            const std::size_t slash = root.rfind('/');
            rootParentLength = slash == std::string_view::npos ? 0 : slash + 1;
        }
        if (entry->fts_info == FTS_F || entry->fts_info == FTS_D)
            AddEntry(std::string(entry->fts_path + rootParentLength, entry->fts_pathlen - rootParentLength),
                     *entry->fts_statp, destinations, volumes);
    }
    ::fts_close(walk);
}

} // namespace

bool IngestUtils::EnoughSpaceForCopy(const std::vector<Fnd::WString>& sourcePaths,
                                     const std::vector<Fnd::WString>& destinationPaths,
                                     Fnd::WString& failingPath, std::uint64_t& missingBytes) {
    std::vector<DestinationVolume> volumes;
    std::vector<DestinationFolder> folders;
    for (const Fnd::WString& destination : destinationPaths) {
        if (destination.empty()) {
            failingPath.clear();
            missingBytes = 0;
            return false;
        }
        DestinationVolume measured{};
        // A destination that cannot be measured is left to the existence and access checks.
        if (!MeasureVolume(destination, measured))
            continue;
        auto same = std::find_if(volumes.begin(), volumes.end(),
                                 [&](const DestinationVolume& v) { return v.device == measured.device; });
        if (same == volumes.end()) {
            measured.firstPath = destination;
            same = volumes.insert(volumes.end(), measured);
        }
        folders.push_back({Fnd::ToUTF8(Mid::Utilities::NormalizePathWithoutUNC(destination)),
                           static_cast<std::size_t>(same - volumes.begin())});
    }

    MeasureSources(OutermostSources(sourcePaths), folders, volumes);

    for (const DestinationVolume& volume : volumes) {
        if (volume.needed > volume.freeBytes) {
            failingPath = volume.firstPath;
            missingBytes = volume.needed - volume.freeBytes;
            return false;
        }
    }
    return true;
}

} // namespace QL
