#include "settings/DestinationSetting.h"

namespace IGD {

void DestinationSetting::AddPathToMRU(const Fnd::WString& path) {
    if (path.empty())
        return;
    std::vector<Fnd::WString> recent;
    recent.reserve(kMaxRecentPaths);
    recent.push_back(path);
    // The bound is on old positions, not on the new length: an equal entry uses up its position.
    for (std::size_t position = 0; position < kMaxRecentPaths - 1 && position < pathsMRU.size(); ++position)
        if (pathsMRU[position] != path)
            recent.push_back(pathsMRU[position]);
    pathsMRU = std::move(recent);
}

} // namespace IGD
