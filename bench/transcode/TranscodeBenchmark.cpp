// Transcodes one clip to one or more outputs with a named setting, for bench/transcode/run to time
// against the ffmpeg program:
//     bench_transcode SOURCE SETTING OUTPUT [OUTPUT...]
// SETTING is prores-proxy (prores_ks, profile proxy, pcm_s16le in QuickTime, as the source's size
// and rate) or h264 (libx264 and aac in MP4). Prints the frames and frames per second.
#include <chrono>
#include <cstdio>
#include <string>

#include "Av/MediaError.h"
#include "Av/Transcoder.h"

namespace {

bool SettingNamed(const std::string& name, Av::EncoderSettings& settings) {
    if (name == "prores-proxy") {
        settings.container = "mov";
        settings.videoEncoder = "prores_ks";
        settings.profile = "proxy";
        settings.audioEncoder = "pcm_s16le";
        return true;
    }
    if (name == "h264") {
        settings.container = "mp4";
        settings.videoEncoder = "libx264";
        settings.audioEncoder = "aac";
        return true;
    }
    return false;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "usage: bench_transcode SOURCE prores-proxy|h264 OUTPUT [OUTPUT...]\n");
        return 2;
    }
    Av::TranscodeRequest request;
    request.clips.push_back({{{argv[1], {}}}, {}, {}});
    Av::EncoderSettings settings;
    if (!SettingNamed(argv[2], settings)) {
        std::fprintf(stderr, "bench_transcode: no setting is called %s\n", argv[2]);
        return 2;
    }
    for (int i = 3; i < argc; ++i)
        request.outputs.push_back({argv[i], settings});
    const auto start = std::chrono::steady_clock::now();
    try {
        const Av::TranscodeResult result = Av::Transcode(request);
        const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        for (const Av::OutputResult& output : result.outputs)
            if (!output.error.empty()) {
                std::fprintf(stderr, "bench_transcode: %s\n", output.error.c_str());
                return 1;
            }
        std::printf("%lld frames in %.2f s: %.1f frames per second\n", static_cast<long long>(result.progress.framesDone),
                    seconds, double(result.progress.framesDone) / seconds);
    } catch (const Av::MediaError& error) {
        std::fprintf(stderr, "bench_transcode: %s\n", error.what());
        return 1;
    }
    return 0;
}
