#pragma once
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace Mid {

// A picture of a clip as PNG bytes, ready for the toolkit's picture supply, and its size in pixels.
struct FrameImage {
    std::vector<std::uint8_t> png;
    int width = 0;
    int height = 0;
};

// What a browser shows of a clip beside its picture.
struct ClipFacts {
    double durationSeconds = 0;
    std::int64_t frameCount = 0; // video frames; 0 without video
    int frameRateNum = 0;        // 0/1 without video
    int frameRateDen = 1;
    int width = 0;
    int height = 0;
    std::string videoCodec;      // the decoder's name: "prores", "h264", ...; empty without video
    std::string audioCodec;      // empty without audio
    int audioChannels = 0;
    std::string startTimecode;   // "HH:MM:SS:FF" (";" before frames for drop frame); empty when none

    bool operator==(const ClipFacts&) const = default;
};

// A clip that gives no picture or facts: not media, truncated, no video, or no media layer in this
// build. The message names the file and the reason in one line.
class FrameUnavailable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Pictures and facts of clips for the media pane and the browser. Callers ask from any thread, for
// thousands of clips; an answer already known costs no decoding.
class FrameService {
public:
    virtual ~FrameService() = default;

    // The installed service; without one, a service that has no frames and throws FrameUnavailable.
    static FrameService& GetInstance();
    // Installs the host's service (null: none again). Done once at start-up.
    static std::shared_ptr<FrameService> Install(std::shared_ptr<FrameService> service);

    // The frame at atSeconds from the clip's start (0: its first frame; past the end: its last),
    // scaled to width pixels with the picture's own aspect ratio. Throws FrameUnavailable.
    virtual FrameImage PosterFrame(const std::string& path, int width, double atSeconds = 0) = 0;
    // Throws FrameUnavailable.
    virtual ClipFacts Facts(const std::string& path) = 0;
};

} // namespace Mid
