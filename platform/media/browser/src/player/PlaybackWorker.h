#pragma once
// The decoding thread of one preview player. It owns the clip's reader, takes the latest of what
// the UI thread asks (open, show a frame, play, pause) and hands pictures back through the run
// loop, each tagged with the generation of the item it belongs to.
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <limits>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "Mid/ClipPlayback.h"
#include "fluxmediatypes/MediaTypes.h"

namespace Mid {

// What the worker reports, called on the UI thread; a generation other than the listener's
// latest is an item it has moved on from.
class PlaybackListener {
public:
    virtual ~PlaybackListener() = default;
    virtual void ClipOpened(std::uint64_t generation, double rate, std::int64_t frameCount) = 0;
    virtual void ClipFailed(std::uint64_t generation, const std::string& reason) = 0;
    virtual void FrameDecoded(std::uint64_t generation, const PlaybackFrame& frame) = 0;
    // Play that began with the serial given to Play has ended.
    virtual void PlayingStopped(std::uint64_t generation, std::uint64_t playSerial) = 0;
};

class PlaybackWorker {
public:
    static constexpr std::int64_t kToTheEnd = std::numeric_limits<std::int64_t>::max();

    // The listener is reached only while it lives: a player that is gone drops what was in flight.
    explicit PlaybackWorker(std::weak_ptr<PlaybackListener> listener);
    ~PlaybackWorker();
    PlaybackWorker(const PlaybackWorker&) = delete;
    PlaybackWorker& operator=(const PlaybackWorker&) = delete;

    // Drops the clip before, opens this one with the factory and shows its frame at start.
    void Open(std::shared_ptr<ClipPlaybackFactory> factory, std::string path, std::uint64_t generation,
              fluxmediatypes::Time start);
    // Shows one frame; while playing, play goes on from there. A newer ask replaces one not yet taken.
    void ShowFrame(std::int64_t index);
    void ShowTime(fluxmediatypes::Time time);
    // Plays on from the frame shown, paced by the clip's rate, through lastIndex.
    void Play(std::int64_t lastIndex, std::uint64_t playSerial);
    void Pause();
    // The box pictures are fitted to, in pixels.
    void SetBox(int width, int height);

private:
    struct FrameAsk {
        std::int64_t value = 0;
        bool isTime = false;
    };
    struct OpenAsk {
        std::shared_ptr<ClipPlaybackFactory> factory;
        std::string path;
        std::uint64_t generation = 0;
    };
    using Clock = std::chrono::steady_clock;

    void Run();
    void DoOpen(const OpenAsk& ask);
    void DoShow(const FrameAsk& ask, int width, int height);
    // One paced step of play; false when play has reached its end.
    bool DoPlayStep(std::int64_t dueIndex, std::int64_t lastIndex, int width, int height);
    void Fail(const std::string& reason);
    template <typename Call> void Report(Call call);

    std::weak_ptr<PlaybackListener> listener_;

    std::mutex mutex_;
    std::condition_variable wake_;
    // Asked by the UI thread, under mutex_.
    std::optional<OpenAsk> openAsk_;
    std::optional<FrameAsk> frameAsk_;
    bool playing_ = false;
    bool restartClock_ = false;
    std::int64_t lastIndex_ = kToTheEnd;
    std::uint64_t playSerial_ = 0;
    int boxWidth_ = 0;
    int boxHeight_ = 0;
    bool quit_ = false;

    // The worker's own.
    std::unique_ptr<ClipPlayback> playback_;
    std::uint64_t generation_ = 0;
    std::int64_t shownIndex_ = -1;
    Clock::time_point clockBase_;
    std::int64_t clockBaseIndex_ = 0;

    std::thread thread_;
};

} // namespace Mid
