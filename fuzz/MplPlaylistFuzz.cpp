// AVCHD playlists (PLAYLIST/*.MPL, *.mpls) as a damaged card may hold them.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "FuzzScratch.h"
#include "MplPlaylist.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto items = Browse::ReadMplPlayItems(igd::fuzz::WriteScratchFile("00000.MPL", data, size));
    for (const Browse::MplPlayItem& item : items)
        if (item.stream.size() > 5)
            std::abort();
    // The first item has nothing before it to continue.
    if (!items.empty() && items.front().continuesPrevious)
        std::abort();
    return 0;
}
