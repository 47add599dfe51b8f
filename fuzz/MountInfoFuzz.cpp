// The system's mount table as the browser reads it for its places: a text the kernel writes, but
// with mount points any user can name (spaces, escapes, newlines through \012).
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>

#include "fluxmediabrowser/Places.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto volumes = fluxmediabrowser::ParseMountedVolumes(
        text, [](const std::string& device) { return !device.empty() && device.front() == 's'; });
    bool fixedSeen = false;
    std::set<Fnd::WString> paths;
    for (const fluxmediabrowser::Place& place : volumes) {
        // Removable media first, each mount point once, every one a volume with a name.
        if (place.kind != fluxmediabrowser::Place::Kind::Volume || place.name.empty() ||
            !paths.insert(place.path).second || (place.removable && fixedSeen))
            std::abort();
        fixedSeen = fixedSeen || !place.removable;
    }
    return 0;
}
