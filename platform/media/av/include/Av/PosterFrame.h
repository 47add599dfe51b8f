#pragma once
#include <string>

#include "Mid/FrameService.h"

namespace Av {

// Decodes the frame of the clip at atSeconds from its start (0: the first; past the end: the last)
// and scales it to width pixels keeping its display aspect, as PNG. Throws MediaError naming the
// file when it is not media, has no video or gives no picture; std::invalid_argument for a width
// below 1.
Mid::FrameImage DecodePosterFrame(const std::string& path, int width, double atSeconds = 0);

} // namespace Av
