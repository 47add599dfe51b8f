#pragma once
#include <cstdint>
#include <map>
#include <string>

namespace Av {

// What an encoder preset asks of an output file: container, video and audio encoding. Sizes and
// rates left at 0 follow the source.
struct EncoderSettings {
    std::string container;      // the muxer's name: "mov", "mxf", "mp4"
    std::string extension;      // of the output file, without dot: "mov", "mxf", "mp4"
    std::string videoEncoder;   // the encoder's name: "prores_ks", "dnxhd", "libx264", "libx265"
    std::string profile;        // the encoder's profile option value: "proxy", "dnxhr_sq", "high", ...
    std::string pixelFormat;    // e.g. "yuv422p10le"; empty: the first the encoder takes
    std::int64_t videoBitRate = 0; // bits per second; 0: what the encoder and profile choose
    int width = 0;              // 0: same as source
    int height = 0;
    int frameRateNum = 0;       // 0: same as source
    int frameRateDen = 0;
    std::string audioEncoder;   // "pcm_s16le", "pcm_s24le", "aac"; empty: no audio in the output
    std::int64_t audioBitRate = 0;
    int audioSampleRate = 0;    // 0: same as source
    // Further private options of the video encoder (for example "crf", "preset", "vendor").
    std::map<std::string, std::string> videoOptions;

    bool operator==(const EncoderSettings&) const = default;
};

} // namespace Av
