#pragma once
#include <cstdint>
#include <vector>

extern "C" {
#include <libavutil/frame.h>
}

namespace Av {

// The PNG file of an 8-bit RGB picture.
std::vector<std::uint8_t> EncodePng(const AVFrame& rgb);

} // namespace Av
