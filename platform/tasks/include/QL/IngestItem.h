#pragma once
#include <map>
#include <memory>
#include <vector>

#include "Fnd/WString.h"
#include "fluxmediatypes/MediaTypes.h"

namespace QL {

// One thing the service imports into the project once its work is done.
struct IngestItem {
    Fnd::WString path; // absolute path of the file that will exist when the task is done
    Fnd::WString name; // name shown in the project
    Fnd::WString format;
    std::vector<Fnd::WString> extraPaths; // absolute paths of its side files
    fluxmediatypes::Time inPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::Time outPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::FrameRate frameRate = fluxmediatypes::kFrameRate_Zero;
};

using IngestItemMap = std::map<Fnd::WString, std::shared_ptr<IngestItem>>;

} // namespace QL
