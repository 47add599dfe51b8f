#pragma once
#include <chrono>
#include <cstdint>
#include <mutex>
#include <vector>

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
    // Several files may be read at once; each is known by the number FileStarted answers. The
    // message names the one started first of those still being read.
    std::uint64_t FileStarted(const Fnd::WString& source, std::uint64_t size);
    // Bytes of that file read so far.
    void Bytes(std::uint64_t file, std::uint64_t fileBytes);
    void FileFinished(std::uint64_t file);
    // How far the running transcode is; posted at the interval. MediaEnded clears it, posting.
    void Media(const Fnd::WString& clip, std::uint64_t framesDone, std::uint64_t framesTotal, double secondsDone,
               double secondsTotal);
    void MediaEnded();
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
    struct Reading {
        std::uint64_t file;
        Fnd::WString source;
        std::uint64_t size;
        std::uint64_t done;
    };
    std::uint64_t BytesDoneLocked() const;

    std::uint64_t filesDone_ = 0;
    std::uint64_t bytesOfFinished_ = 0;
    std::uint64_t nextFile_ = 0;
    std::vector<Reading> reading_; // in the order they started; a few at most
    struct MediaProgress {
        Fnd::WString clip;
        std::uint64_t framesDone = 0;
        std::uint64_t framesTotal = 0;
        double secondsDone = 0;
        double secondsTotal = 0;
    };
    MediaProgress media_;
    std::chrono::steady_clock::time_point lastMediaPost_{};
    std::chrono::milliseconds interval_;
};

} // namespace QL::Engine
