#pragma once
// Image sizes read from the file headers, so the library knows how large a picture is without
// decoding it.
#include <cstddef>
#include <optional>
#include <span>

namespace fluxui::utility {

struct PixelSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

// Width and height of the IHDR chunk; nothing when the bytes are not a PNG.
std::optional<PixelSize> ReadPngPixelSize(std::span<const std::byte> bytes);

// Width and height of the root element's viewBox, rounded to whole units; nothing without one.
std::optional<PixelSize> ReadSvgViewBoxSize(std::span<const std::byte> bytes);

} // namespace fluxui::utility
