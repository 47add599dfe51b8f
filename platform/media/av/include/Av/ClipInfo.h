#pragma once
#include <cstdint>
#include <string>

namespace Av {

// What one media file holds, as its container and first streams tell it.
struct ClipInfo {
    std::string path;
    std::string container;         // the demuxer's short name, e.g. "mov,mp4,m4a,3gp,3g2,mj2", "mxf"
    double durationSeconds = 0;    // of the longest stream
    std::int64_t frameCount = 0;   // video frames; 0 without video
    int frameRateNum = 0;          // 0/1 without video
    int frameRateDen = 1;
    int width = 0;
    int height = 0;
    std::string videoCodec;        // the decoder's name: "prores", "h264", "dnxhd", ...
    std::string videoProfile;      // e.g. "Proxy", "High"; empty when the codec names none
    std::string pixelFormat;       // e.g. "yuv422p10le"
    std::string audioCodec;        // empty without audio
    int audioChannels = 0;         // of the first audio stream
    int audioSampleRate = 0;
    int videoStreams = 0;
    int audioStreams = 0;
    std::string startTimecode;     // "HH:MM:SS:FF" (";" before frames for drop frame); empty when none is recorded

    bool HasVideo() const { return videoStreams > 0; }
    // One frame in seconds; 0 without video.
    double FrameSeconds() const { return frameRateNum > 0 ? double(frameRateDen) / frameRateNum : 0.0; }
};

// Opens the file and reads what it holds. Throws MediaError naming the file and the reason when it
// is not media FFmpeg can read.
ClipInfo ProbeClip(const std::string& path);

} // namespace Av
