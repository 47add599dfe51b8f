#pragma once
#include <chrono>
#include <cstdint>
#include <mutex>

#include "Fnd/WString.h"
#include "ProgressMeter.h"
#include "QL/Engine/CopyControl.h"
#include "fluxcore/Guid.h"

namespace QL::Engine {

// The progress of one batch, fed by its worker (and the copier's reading thread) and posted as
// BatchProgressMessage, throttled to the interval. Safe from any thread.
class BatchProgress {
public:
    BatchProgress(const fluxcore::utility::Guid& batch, const CopyControl& control,
                  std::chrono::milliseconds interval);

    void SetTotals(std::uint64_t files, std::uint64_t bytes);
    void FileStarted(const Fnd::WString& source, std::uint64_t size);
    // Bytes of the current file read so far.
    void Bytes(std::uint64_t currentFileBytes);
    void FileFinished();
    // Posts at once, whatever the interval: at the start, the end, and on pause and resume.
    void PostNow();
    // Pausing stops the clock of the rate.
    void Paused(bool paused);

    std::uint64_t BytesDone() const;

private:
    void PostLocked();

    const fluxcore::utility::Guid batch_;
    const CopyControl& control_;
    mutable std::mutex mutex_;
    ProgressMeter meter_;
    std::uint64_t filesTotal_ = 0;
    std::uint64_t bytesTotal_ = 0;
    std::uint64_t filesDone_ = 0;
    std::uint64_t bytesBeforeCurrent_ = 0;
    std::uint64_t currentSize_ = 0;
    std::uint64_t currentDone_ = 0;
    Fnd::WString current_;
};

} // namespace QL::Engine
