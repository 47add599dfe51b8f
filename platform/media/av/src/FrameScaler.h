#pragma once
#include "AvHandles.h"

namespace Av {

// The height a picture of the frame takes at the width, keeping its display aspect (non-square
// pixels included); at least 1.
int ScaledHeight(const AVFrame& frame, int width);

// A decoded picture scaled to width pixels, as 8-bit RGB: what a PNG of it holds.
AvFramePtr ScaleToRgb(const AVFrame& frame, int width);

} // namespace Av
