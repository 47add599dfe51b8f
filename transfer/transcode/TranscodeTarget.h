#pragma once
// What a transcode or stitch section writes to: a destination's record and the transcode setting
// its destination holds.
#include <cstdint>
#include <memory>

#include "settings/IngestSettingsController.h"

namespace IGD {

struct TranscodeTarget {
    DestinationSetting* record = nullptr;
    // Null when the record has no destination or the destination no transcode setting.
    std::shared_ptr<QL::IngestTask::TranscodeSetting> setting;
};

// The record of that index (the primary's past the end, as the controller answers); no record
// while the controller holds no destinations.
TranscodeTarget FindTranscodeTarget(IngestSettingsController& settings, std::uint32_t index);

} // namespace IGD
