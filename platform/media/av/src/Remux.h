#pragma once
#include <string>

#include "Av/EncoderSettings.h"
#include "ClipTimeline.h"
#include "ProgressMeter.h"

namespace Av {

// Whether every span already holds what the settings ask (codec, profile, size, rate, pixel
// format, sound codec), uncut, so that the output can be copied without decoding.
bool CanRemux(const ClipTimeline& timeline, const EncoderSettings& settings);

// Copies the streams of every span into one file, times made continuous. Answers the reason the
// output failed, empty when written whole. Throws MediaError for a source it cannot read.
std::string Remux(const ClipTimeline& timeline, const EncoderSettings& settings, const std::string& path,
                  ProgressMeter& meter, double secondsBefore);

} // namespace Av
