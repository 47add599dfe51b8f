#pragma once
// Decoded pictures of one clip in play order, for a preview player. The media layer installs the
// reader; without one, nothing can be played and a player shows its clip's name only.
#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Mid {

// One picture as 8-bit RGBA rows without padding (width * 4 bytes each).
struct PlaybackFrame {
    std::shared_ptr<const std::vector<std::uint8_t>> rgba;
    int width = 0;
    int height = 0;
    std::int64_t index = 0; // the frame's number from the clip's start
    double seconds = 0;     // its time from the clip's start
};

// A clip that cannot be played: the message names the file and the reason in one line.
class PlaybackUnavailable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Reads one clip. Used by one thread at a time; the player's decoding thread owns it.
class ClipPlayback {
public:
    virtual ~ClipPlayback() = default;
    virtual double FrameRate() const = 0;          // frames per second
    virtual std::int64_t FrameCount() const = 0;   // video frames of the clip
    // The frame at index (clamped into the clip), scaled to fit maxWidth x maxHeight with the
    // picture's own aspect ratio. Throws PlaybackUnavailable.
    virtual PlaybackFrame Seek(std::int64_t index, int maxWidth, int maxHeight) = 0;
    // The frame after the last one read, or nothing at the end. Throws PlaybackUnavailable.
    virtual std::optional<PlaybackFrame> Next(int maxWidth, int maxHeight) = 0;
};

class ClipPlaybackFactory {
public:
    virtual ~ClipPlaybackFactory() = default;
    // Throws PlaybackUnavailable.
    virtual std::unique_ptr<ClipPlayback> Open(const std::string& path) = 0;

    // The installed factory, or null.
    static std::shared_ptr<ClipPlaybackFactory> GetInstance();
    static void Install(std::shared_ptr<ClipPlaybackFactory> factory);
};

} // namespace Mid
