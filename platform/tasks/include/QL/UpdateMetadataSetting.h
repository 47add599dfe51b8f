#pragma once
#include <cstdint>
#include <map>

#include "Fnd/WString.h"
#include "QL/IngestItem.h"
#include "fluxcore/Guid.h"

namespace QL::IngestTask {

// Import in place, with names and metadata written to the project and sidecars.
struct UpdateMetadataSetting {
    std::map<Fnd::WString, Fnd::WString> renames; // absolute path to new base name
    std::map<Fnd::WString, fluxcore::utility::Guid> clipGuids;
    std::uint64_t reserved = 0;
    IngestItemMap importItems;
    bool addToProject = true;
};

} // namespace QL::IngestTask
