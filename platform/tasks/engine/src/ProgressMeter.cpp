#include "ProgressMeter.h"

namespace QL::Engine {

ProgressMeter::ProgressMeter(std::chrono::milliseconds interval, std::chrono::milliseconds window)
    : interval_(interval), window_(window) {}

bool ProgressMeter::Sample(std::uint64_t bytesDone, Clock::time_point now) {
    samples_.push_back({now, bytesDone});
    // Keep one sample older than the window, so the measured span covers all of it.
    while (samples_.size() > 2 && now - samples_[1].time >= window_)
        samples_.pop_front();

    if (sampled_ && now - lastDue_ < interval_)
        return false;
    sampled_ = true;
    lastDue_ = now;
    return true;
}

double ProgressMeter::BytesPerSecond() const {
    if (samples_.size() < 2)
        return 0;
    const Point& first = samples_.front();
    const Point& last = samples_.back();
    const std::chrono::duration<double> span = last.time - first.time;
    if (span.count() < 0.5 || last.bytes < first.bytes)
        return 0;
    return static_cast<double>(last.bytes - first.bytes) / span.count();
}

void ProgressMeter::Restart() {
    samples_.clear();
}

} // namespace QL::Engine
