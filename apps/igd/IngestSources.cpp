#include "IngestSources.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "Fnd/PathUtils.h"

namespace igd {
namespace {

Fnd::WString FolderOf(const Fnd::WString& path) {
    const std::size_t slash = path.rfind(u'/');
    return slash == 0 ? Fnd::WString(u"/") : path.substr(0, slash);
}

Fnd::WString NameOf(const Fnd::WString& path) {
    return path.substr(path.rfind(u'/') + 1);
}

} // namespace

std::vector<Fnd::WString> DistinctSources(const std::vector<Fnd::WString>& sources) {
    // The sidecars the library attaches to a file: "<name>.xmp" and "<stem>.xmp" beside it.
    std::unordered_set<Fnd::WString> sidecars;
    for (const Fnd::WString& source : sources) {
        if (Fnd::PathUtils::IsDirectory(source))
            continue;
        Fnd::WString directory;
        Fnd::WString stem;
        Fnd::WString extension;
        Fnd::PathUtils::SplitPath(source, nullptr, &directory, &stem, &extension);
        if (Fnd::EqualsIgnoringASCIICase(extension, u".xmp"))
            continue;
        sidecars.insert(source + u".xmp");
        sidecars.insert(directory + stem + u".xmp");
    }
    std::vector<Fnd::WString> distinct;
    std::unordered_set<Fnd::WString> seen;
    for (const Fnd::WString& source : sources)
        if (sidecars.count(source) == 0 && seen.insert(source).second)
            distinct.push_back(source);
    return distinct;
}

bool AllFiles(const std::vector<Fnd::WString>& sources) {
    return std::none_of(sources.begin(), sources.end(),
                        [](const Fnd::WString& source) { return Fnd::PathUtils::IsDirectory(source); });
}

std::vector<SourceFolder> GroupByFolder(const std::vector<Fnd::WString>& sources) {
    std::vector<SourceFolder> groups;
    std::unordered_map<Fnd::WString, std::size_t> groupOfFolder;
    for (const Fnd::WString& source : sources) {
        const Fnd::WString folder = FolderOf(source);
        const auto [found, added] = groupOfFolder.emplace(folder, groups.size());
        if (added)
            groups.push_back(SourceFolder{folder, {}});
        groups[found->second].names.push_back(NameOf(source));
    }
    return groups;
}

} // namespace igd
