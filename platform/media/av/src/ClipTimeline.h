#pragma once
#include <cstdint>
#include <string>
#include <vector>

#include "Av/ClipInfo.h"
#include "Av/SourceClip.h"

namespace Av {

// The part of one segment a transcode uses, in the segment's own seconds from its first frame.
struct SegmentSpan {
    const ClipSegment* segment = nullptr;
    ClipInfo video;          // what the picture's file holds
    ClipInfo firstAudioFile; // the first separate sound file, when there are some
    double from = 0;
    double length = 0;
};

// Every segment of every clip in playing order, cut to the in and out points, with the totals
// progress is measured against.
struct ClipTimeline {
    std::vector<SegmentSpan> spans;
    std::vector<std::size_t> clipStarts; // index of each clip's first span
    double seconds = 0;
    std::int64_t frames = 0;
    bool cut = false;                    // some clip has an in or an out point
    std::string startTimecode;           // of the first frame used, as the first clip records it

    // Throws MediaError naming the file: not media, no video, no segments, or points outside the clip.
    static ClipTimeline Of(const std::vector<SourceClip>& clips);
};

// The length of a segment's picture in seconds, as its container promises it.
double PictureSeconds(const ClipInfo& info);

} // namespace Av
