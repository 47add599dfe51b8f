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

// A filesystem that destinations write to, with the space it offers.
struct DestinationVolume {
    dev_t device;
    std::uint64_t freeBytes;
    std::uint64_t blockSize;
    std::size_t copies = 0; // destinations on it: each receives every source
    Fnd::WString firstPath; // the destination the user is told about
};

// What the sources take on a filesystem of one block size: files occupy whole blocks, and each
// folder at least one.
struct SourceTotal {
    std::uint64_t blockSize;
    std::uint64_t bytes = 0;
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

void AddEntry(const struct stat& info, std::vector<SourceTotal>& totals) {
    if (S_ISREG(info.st_mode)) {
        const auto size = static_cast<std::uint64_t>(info.st_size);
        for (SourceTotal& total : totals)
            total.bytes += RoundUp(size, total.blockSize);
    } else if (S_ISDIR(info.st_mode)) {
        for (SourceTotal& total : totals)
            total.bytes += total.blockSize;
    }
}

// One walk over all sources for every block size at once; links are neither followed nor
// counted, a missing or unreadable entry counts nothing (the existence checks report those).
void MeasureSources(const std::vector<std::string>& sources, std::vector<SourceTotal>& totals) {
    if (sources.empty())
        return;
    std::vector<char*> roots;
    roots.reserve(sources.size() + 1);
    for (const std::string& source : sources)
        roots.push_back(const_cast<char*>(source.c_str()));
    roots.push_back(nullptr);
    FTS* walk = ::fts_open(roots.data(), FTS_PHYSICAL | FTS_NOCHDIR, nullptr);
    if (walk == nullptr)
        return;
    while (const FTSENT* entry = ::fts_read(walk)) {
        if (entry->fts_info == FTS_F || entry->fts_info == FTS_D)
            AddEntry(*entry->fts_statp, totals);
    }
    ::fts_close(walk);
}

} // namespace

bool IngestUtils::EnoughSpaceForCopy(const std::vector<Fnd::WString>& sourcePaths,
                                     const std::vector<Fnd::WString>& destinationPaths,
                                     Fnd::WString& failingPath, std::uint64_t& missingBytes) {
    std::vector<DestinationVolume> volumes;
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
        ++same->copies;
    }

    std::vector<SourceTotal> totals;
    for (const DestinationVolume& volume : volumes)
        if (std::none_of(totals.begin(), totals.end(),
                         [&](const SourceTotal& t) { return t.blockSize == volume.blockSize; }))
            totals.push_back({volume.blockSize});
    MeasureSources(OutermostSources(sourcePaths), totals);

    for (const DestinationVolume& volume : volumes) {
        const auto total = std::find_if(totals.begin(), totals.end(), [&](const SourceTotal& t) {
            return t.blockSize == volume.blockSize;
        });
        const std::uint64_t needed = total->bytes * volume.copies;
        if (needed > volume.freeBytes) {
            failingPath = volume.firstPath;
            missingBytes = needed - volume.freeBytes;
            return false;
        }
    }
    return true;
}

} // namespace QL
