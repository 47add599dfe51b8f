#pragma once
#include <functional>

#include "ClipTimeline.h"

extern "C" {
#include <libavutil/frame.h>
}

namespace Av {

// Where the decoded picture and sound of one span go, and what runs between packets (the caller's
// checkpoint and progress; it may throw to stop).
struct SpanSinks {
    // A picture at the given second of the span, lasting frameSeconds.
    std::function<void(const AVFrame&, double at, double frameSeconds)> picture;
    // Sound inside the span, in order.
    std::function<void(const AVFrame&)> sound;
    std::function<void()> betweenPackets;
};

// Decodes the part of a segment a span names: seeks to the key frame before its start, drops what
// lies before it and stops at its end. Throws MediaError naming the file when the picture ends
// more than a frame before the length its container promised (a truncated file).
void DecodeSpan(const SegmentSpan& span, bool wantSound, const SpanSinks& sinks);

} // namespace Av
