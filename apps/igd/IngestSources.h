#pragma once
#include <vector>

#include "Fnd/WString.h"

namespace igd {

// The sources of `igd ingest`, absolute and normalised, in the order given, named once each.
// A ".xmp" file that is the sidecar of another source is dropped: it travels with its media, and
// naming it again (as `card/*` does) would copy it twice.
std::vector<Fnd::WString> DistinctSources(const std::vector<Fnd::WString>& sources);

// Whether every source is a file (no folder).
bool AllFiles(const std::vector<Fnd::WString>& sources);

// The sources grouped by the folder that holds them, groups in the order of their first source.
struct SourceFolder {
    Fnd::WString folder;
    std::vector<Fnd::WString> names; // file or folder names inside it
};
std::vector<SourceFolder> GroupByFolder(const std::vector<Fnd::WString>& sources);

} // namespace igd
