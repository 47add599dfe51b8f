#pragma once
#include <cstddef>
#include <span>
#include <string>

namespace fluxui::utility {

// One image file as a presenter draws it: which resource, its bytes and its size. PNG bytes are
// decoded by the presenter; the library reads only the header.
struct SketcherImage {
    std::string resourceType; // "PNG" or "SVG"
    std::string resourceName; // as the store names it, e.g. SP_ADD_SM_N_D_AT_2X
    std::span<const std::byte> bytes;
    float scale = 1.0f; // device pixels per layout unit
    int pixelWidth = 0;
    int pixelHeight = 0;
};

} // namespace fluxui::utility
