#include "Mid/Utilities.h"

#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <vector>

#include "Fnd/PathUtils.h"
#include "fluxcore/FileUtils.h"

namespace Mid::Utilities {

namespace {

using Fnd::WString;
using Fnd::WStringView;

constexpr Fnd::WChar kSeparator = u'/';

std::vector<WStringView> SplitSegments(WStringView path) {
    std::vector<WStringView> segments;
    std::size_t start = 0;
    while (start <= path.size()) {
        auto end = path.find(kSeparator, start);
        if (end == WStringView::npos)
            end = path.size();
        if (end > start)
            segments.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return segments;
}

WString JoinSegments(bool absolute, const std::vector<WStringView>& segments, std::size_t first = 0) {
    WString out;
    if (absolute)
        out.push_back(kSeparator);
    for (std::size_t i = first; i < segments.size(); ++i) {
        if (i > first)
            out.push_back(kSeparator);
        out.append(segments[i]);
    }
    return out;
}

// The lexical comparison below needs both paths anchored at the same place.
WString MakeAbsolute(WStringView path) {
    if (!path.empty() && path.front() == kSeparator)
        return NormalizePathWithoutUNC(path);
    std::error_code error;
    const auto cwd = std::filesystem::current_path(error);
    const WString base = error ? WString(1, kSeparator) : Fnd::FromUTF8(cwd.native());
    return NormalizePathWithoutUNC(Fnd::PathUtils::CombinePaths(base, path));
}

// The filesystem a path is or will be on: that of its nearest existing ancestor.
bool DeviceOf(const WString& absolutePath, dev_t& device) {
    WString probe = absolutePath;
    while (!probe.empty()) {
        struct stat info {};
        if (::stat(Fnd::ToUTF8(probe).c_str(), &info) == 0) {
            device = info.st_dev;
            return true;
        }
        probe = fluxcore::utility::FileUtils::GetParentPath(probe);
    }
    return false;
}

} // namespace

WString NormalizePathWithoutUNC(WStringView path) {
    if (path.empty())
        return {};
    const bool absolute = path.front() == kSeparator;
    std::vector<WStringView> kept;
    for (const WStringView segment : SplitSegments(path)) {
        if (segment == u".")
            continue;
        if (segment == u"..") {
            if (!kept.empty() && kept.back() != u"..")
                kept.pop_back();
            else if (!absolute)
                kept.push_back(segment); // a relative path may climb above where it starts
            // The parent of the root is the root.
            continue;
        }
        kept.push_back(segment);
    }
    if (kept.empty())
        return absolute ? WString(1, kSeparator) : WString(u".");
    return JoinSegments(absolute, kept);
}

WString CombinePaths(WStringView first, WStringView second) {
    return Fnd::PathUtils::CombinePaths(NormalizePathWithoutUNC(first), second);
}

bool ArePathsRelative(WStringView base, bool baseIsFolder, WStringView path, bool pathIsFolder,
                      WString& relative) {
    relative.clear();
    // Whether path is a folder changes nothing on POSIX: the way to it is spelled the same.
    WString baseFolder = MakeAbsolute(base);
    if (!baseIsFolder)
        baseFolder = fluxcore::utility::FileUtils::GetParentPath(baseFolder);
    const WString target = MakeAbsolute(path);

    dev_t baseDevice{}, targetDevice{};
    if (!DeviceOf(baseFolder, baseDevice) || !DeviceOf(target, targetDevice) || baseDevice != targetDevice)
        return false;

    const auto from = SplitSegments(baseFolder);
    const auto to = SplitSegments(target);
    std::size_t common = 0;
    while (common < from.size() && common < to.size() && from[common] == to[common])
        ++common;

    for (std::size_t i = common; i < from.size(); ++i) {
        if (!relative.empty())
            relative.push_back(kSeparator);
        relative.append(u"..");
    }
    if (common < to.size()) {
        if (!relative.empty())
            relative.push_back(kSeparator);
        relative.append(JoinSegments(false, to, common));
    }
    if (relative.empty())
        relative.assign(1, u'.');
    return true;
}

WString AddBootVolumePath(WStringView path) {
    return WString(path);
}

} // namespace Mid::Utilities
