#pragma once
#include "fluxmediatypes/MediaTypes.h"

namespace fluxmediabrowser {

// In and out points the user set on a clip in the media browser.
struct TranscodeClipSetting {
    fluxmediatypes::FrameRate frameRate = fluxmediatypes::kFrameRate_Zero;
    fluxmediatypes::Time inPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::Time outPoint = fluxmediatypes::kTime_Invalid;
};

} // namespace fluxmediabrowser
