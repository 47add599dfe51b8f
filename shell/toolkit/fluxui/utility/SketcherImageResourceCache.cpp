#include "fluxui/utility/SketcherImageResourceCache.h"

namespace fluxui::utility {

std::optional<SketcherImageResourceCache::ImagePtr>
SketcherImageResourceCache::Find(const std::string& key) const {
    const auto found = entries_.find(key);
    if (found == entries_.end())
        return std::nullopt;
    return found->second;
}

void SketcherImageResourceCache::Store(const std::string& key, ImagePtr image) {
    entries_.insert_or_assign(key, std::move(image));
}

} // namespace fluxui::utility
