#pragma once
#include <chrono>
#include <cstdint>
#include <deque>

namespace QL::Engine {

// Decides when a progress message is due and how fast the bytes go, from samples of the bytes
// done. The rate is measured over the last few seconds so that it follows a change of medium
// without jumping at every chunk. Times are given, never read, so that it can be tested.
class ProgressMeter {
public:
    using Clock = std::chrono::steady_clock;

    ProgressMeter(std::chrono::milliseconds interval, std::chrono::milliseconds window);

    // Records the bytes done now; true when a message is due (the first sample, then at most one
    // per interval).
    bool Sample(std::uint64_t bytesDone, Clock::time_point now);
    // Bytes per second over the window; 0 until half a second has been measured.
    double BytesPerSecond() const;
    // After a pause the old samples would understate the rate: start measuring again.
    void Restart();

private:
    struct Point {
        Clock::time_point time;
        std::uint64_t bytes;
    };

    std::chrono::milliseconds interval_;
    std::chrono::milliseconds window_;
    std::deque<Point> samples_;
    bool sampled_ = false;
    Clock::time_point lastDue_{};
};

} // namespace QL::Engine
