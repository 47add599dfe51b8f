#pragma once
// The texts of a player's position and marks.
#include <cstdint>
#include <string_view>

#include "Fnd/WString.h"
#include "fluxmediatypes/MediaTypes.h"

namespace Mid {

// "HH:MM:SS:FF" of a frame counted from the clip's start, at the clip's rate rounded to whole
// frames a second (a 29.97 clip counts 30 a second, as non-drop timecode does).
Fnd::WString FrameTimecode(std::int64_t index, double rate);

// The frames a timecode "HH:MM:SS:FF" (";" before the frames too) counts at the rate, rounded to
// whole frames a second; 0 for a text that is no timecode.
std::int64_t TimecodeFrames(std::string_view timecode, double rate);

// "In 00:00:01:05  Out --": the marks in ticks, "--" for one not set, counted from startFrame.
Fnd::WString MarksText(fluxmediatypes::Time in, fluxmediatypes::Time out, fluxmediatypes::FrameRate frameTicks,
                       double rate, std::int64_t startFrame = 0);

} // namespace Mid
