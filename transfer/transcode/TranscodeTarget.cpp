#include "transfer/transcode/TranscodeTarget.h"

namespace IGD {

TranscodeTarget FindTranscodeTarget(IngestSettingsController& settings, std::uint32_t index) {
    if (settings.GetDestinations().empty())
        return {};
    DestinationSetting& record = settings.GetDestinationSetting(static_cast<std::int32_t>(index));
    return {&record, record.destination ? record.destination->GetTranscodeSetting() : nullptr};
}

} // namespace IGD
