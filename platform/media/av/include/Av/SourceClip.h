#pragma once
#include <optional>
#include <string>
#include <vector>

namespace Av {

// One recorded piece of a clip: a file with the picture, and the files of its sound when the
// camera keeps them apart (one per channel, as on P2 cards); without those the sound is taken from
// the picture's file.
struct ClipSegment {
    std::string video;
    std::vector<std::string> audio;
};

// A clip as a transcode reads it: its segments played one after the other (the chapters of a
// GoPro video, the parts of a spanned shot), cut to the in and out points (seconds from the start
// of the first segment; nothing means the start and the end).
struct SourceClip {
    std::vector<ClipSegment> segments;
    std::optional<double> inSeconds;
    std::optional<double> outSeconds;
};

} // namespace Av
