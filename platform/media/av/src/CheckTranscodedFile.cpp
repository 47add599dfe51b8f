#include "Av/ClipInfo.h"
#include "Av/MediaError.h"
#include "Av/Transcoder.h"

#include <cmath>

#include "Encoder.h"
#include "SecondsText.h"

namespace Av {
void CheckTranscodedFile(const std::string& path, const EncoderSettings& settings, const ExpectedOutput& expected) {
    const ClipInfo info = ProbeClip(path);
    auto differs = [&](const std::string& what) { throw MediaError(path + ": " + what); };
    const std::string codec = CodecNameOfEncoder(settings.videoEncoder);
    if (!info.HasVideo())
        differs("it holds no video");
    if (info.videoCodec != codec)
        differs("its video is " + info.videoCodec + ", not " + codec);
    if (info.width != expected.width || info.height != expected.height)
        differs("its picture is " + std::to_string(info.width) + "x" + std::to_string(info.height) + ", not " +
                std::to_string(expected.width) + "x" + std::to_string(expected.height));
    if (std::int64_t(info.frameRateNum) * expected.frameRateDen != std::int64_t(expected.frameRateNum) * info.frameRateDen)
        differs("its frame rate is " + std::to_string(info.frameRateNum) + "/" + std::to_string(info.frameRateDen) +
                ", not " + std::to_string(expected.frameRateNum) + "/" + std::to_string(expected.frameRateDen));
    if (expected.audio && info.audioStreams == 0)
        differs("it has no sound");
    const double frame = expected.frameRateNum > 0 ? double(expected.frameRateDen) / expected.frameRateNum : 0;
    if (std::abs(info.durationSeconds - expected.seconds) > frame + 1e-3)
        differs("it lasts " + SecondsText(info.durationSeconds) + ", not " + SecondsText(expected.seconds));
}

} // namespace Av
