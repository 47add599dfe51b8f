#include "TranscodeTestSupport.h"

namespace igd::test {

Av::EncoderSettings ProResProxy() {
    Av::EncoderSettings settings;
    settings.container = "mov";
    settings.extension = "mov";
    settings.videoEncoder = "prores_ks";
    settings.profile = "proxy";
    settings.audioEncoder = "pcm_s16le";
    return settings;
}

Av::SourceClip ClipOf(const std::string& video) {
    Av::SourceClip clip;
    clip.segments.push_back({video, {}});
    return clip;
}

Av::TranscodeRequest RequestOf(std::vector<Av::SourceClip> clips, std::vector<Av::TranscodeOutput> outputs) {
    Av::TranscodeRequest request;
    request.clips = std::move(clips);
    request.outputs = std::move(outputs);
    return request;
}

} // namespace igd::test
