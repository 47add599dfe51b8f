#pragma once
#include <map>
#include <string>
#include <vector>

#include "Fnd/WString.h"
#include "fluxcore/Guid.h"
#include "fluxmediatypes/MediaTypes.h"

namespace Proj {

// The values of one metadata schema on an item.
struct ItemMetadata {
    Fnd::WString namespaceURI;
    std::string prefix;
    std::map<Fnd::WString, Fnd::WString> values; // field key to value
};

// The digest a file of an item was verified with when it was copied, named by its algorithm
// ("md5", "xxh128", "xxh3", "xxh64") and written in lower-case hex.
struct FileDigest {
    Fnd::WString path;
    std::string algorithm;
    std::string hex;
    bool operator==(const FileDigest&) const = default;
};

// One media item of a project. Its path is its identity: importing the same path again updates
// the item.
struct ProjectItem {
    Fnd::WString path;
    Fnd::WString name;
    Fnd::WString format;
    std::vector<Fnd::WString> extraPaths;
    fluxmediatypes::Time inPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::Time outPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::FrameRate frameRate = fluxmediatypes::kFrameRate_Zero;
    fluxcore::utility::Guid clipGuid;   // all zero: none assigned
    std::vector<ItemMetadata> metadata; // by namespace; a later import merges values into these
    Fnd::WString bin;                   // the bin's name; empty for the root bin
    // Of the item's files, by path; a later import replaces the digest of a path it brings and
    // keeps the others.
    std::vector<FileDigest> digests;
};

} // namespace Proj
