// Encoder preset files as a user drops them into $IGD_HOME/encoder-presets from anywhere.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "Av/EncoderPresetFile.h"
#include "FuzzScratch.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Av::EncoderPresetReadResult result =
        Av::ReadEncoderPresetFile(igd::fuzz::WriteScratchFile("input.igdencoder", data, size).string());
    // Either a reason a user can act on, or a preset an encoder can be set up from.
    if (!result) {
        if (result.error.empty())
            std::abort();
        return 0;
    }
    const Av::EncoderPresetDocument& preset = *result.document;
    const Av::EncoderSettings& s = preset.settings;
    if (preset.name.empty() || preset.exporter.empty() || s.videoEncoder.empty())
        std::abort();
    if ((s.width == 0) != (s.height == 0) || s.width < 0 || s.height < 0 || s.width % 2 || s.height % 2)
        std::abort();
    if ((s.frameRateNum == 0) != (s.frameRateDen == 0) || s.frameRateNum < 0 || s.frameRateDen < 0)
        std::abort();
    if (s.videoBitRate < 0 || s.audioBitRate < 0 || s.audioSampleRate < 0)
        std::abort();
    return 0;
}
