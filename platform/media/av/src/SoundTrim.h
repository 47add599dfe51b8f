#pragma once
#include "AvHandles.h"

namespace Av {

// Where decoded sound lies against the part of a segment a transcode uses: start is the stream's
// first time, from and length the part in seconds.
struct SoundWindow {
    AVRational timeBase{1, 1};
    std::int64_t start = 0;
    double from = 0;
    double length = 0;
};

// The samples of frame inside the window: the frame itself when whole, a copy of the part inside,
// or nullptr when none is; pastEnd tells when the frame lies wholly after the window.
FramePtr TrimSound(const AVFrame& frame, const SoundWindow& window, bool& pastEnd);

} // namespace Av
