#pragma once
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include "fluxui/utility/SketcherImage.h"

namespace fluxui::utility {

// The images a provider has already looked up, so each picture is found and measured once. A
// name known to have no image is kept too (as null), so a missing picture is not searched for at
// every repaint.
class SketcherImageResourceCache {
public:
    using ImagePtr = std::shared_ptr<const SketcherImage>;

    // The entry for a key: nothing when the key was never stored, else the image or null.
    std::optional<ImagePtr> Find(const std::string& key) const;
    void Store(const std::string& key, ImagePtr image);
    void Clear() { entries_.clear(); }
    std::size_t Size() const { return entries_.size(); }

private:
    std::unordered_map<std::string, ImagePtr> entries_;
};

} // namespace fluxui::utility
