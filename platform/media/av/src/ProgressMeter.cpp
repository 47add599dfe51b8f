#include "ProgressMeter.h"

#include "Av/MediaError.h"

namespace Av {

namespace {
constexpr std::chrono::milliseconds kReportEvery{250};
}

ProgressMeter::ProgressMeter(const TranscodeRequest& request, std::int64_t framesTotal, double secondsTotal)
    : request_(request) {
    progress_.framesTotal = framesTotal;
    progress_.secondsTotal = secondsTotal;
}

void ProgressMeter::Checkpoint() const {
    if (request_.checkpoint && !request_.checkpoint())
        throw MediaCancelled();
}

void ProgressMeter::Frame(double secondsDone) {
    ++progress_.framesDone;
    progress_.secondsDone = secondsDone;
    const auto now = std::chrono::steady_clock::now();
    if (request_.progress && now - lastReport_ >= kReportEvery) {
        lastReport_ = now;
        request_.progress(progress_);
    }
}

void ProgressMeter::Finish() {
    if (request_.progress)
        request_.progress(progress_);
}

} // namespace Av
