#pragma once
#include <chrono>

#include "Av/Transcoder.h"

namespace Av {

// The caller's checkpoint and progress: stops with MediaCancelled when the checkpoint says so, and
// reports a few times a second at most.
class ProgressMeter {
public:
    ProgressMeter(const TranscodeRequest& request, std::int64_t framesTotal, double secondsTotal);

    // Between packets: throws MediaCancelled when the caller stops.
    void Checkpoint() const;
    void Frame(double secondsDone);
    // The last report, whatever time the previous one went out.
    void Finish();

    const TranscodeProgress& Progress() const { return progress_; }

private:
    const TranscodeRequest& request_;
    TranscodeProgress progress_;
    std::chrono::steady_clock::time_point lastReport_{};
};

} // namespace Av
