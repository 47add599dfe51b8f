#include "BatchProgress.h"

#include <algorithm>

#include "Fnd/StationUtils.h"
#include "QL/Engine/TaskServiceMessages.h"

namespace QL::Engine {

BatchProgress::BatchProgress(const fluxcore::utility::Guid& batch, const CopyControl& control,
                             std::chrono::milliseconds interval)
    : batch_(batch), control_(control), meter_(interval, std::chrono::seconds(5)), interval_(interval) {}

void BatchProgress::SetTotals(std::uint64_t files, std::uint64_t bytes) {
    std::lock_guard lock(mutex_);
    filesTotal_ = files;
    bytesTotal_ = bytes;
}

std::uint64_t BatchProgress::FileStarted(const Fnd::WString& source, std::uint64_t size) {
    std::lock_guard lock(mutex_);
    reading_.push_back(Reading{nextFile_, source, size, 0});
    return nextFile_++;
}

void BatchProgress::Bytes(std::uint64_t file, std::uint64_t fileBytes) {
    std::lock_guard lock(mutex_);
    for (Reading& reading : reading_) {
        if (reading.file == file)
            // A source that grows while it is read must not push the count past the total.
            reading.done = std::min(fileBytes, reading.size);
    }
    if (meter_.Sample(BytesDoneLocked(), ProgressMeter::Clock::now()))
        PostLocked();
}

void BatchProgress::FileFinished(std::uint64_t file) {
    std::lock_guard lock(mutex_);
    const auto finished =
        std::find_if(reading_.begin(), reading_.end(), [&](const Reading& r) { return r.file == file; });
    if (finished == reading_.end())
        return;
    bytesOfFinished_ += finished->size;
    ++filesDone_;
    reading_.erase(finished);
    if (meter_.Sample(BytesDoneLocked(), ProgressMeter::Clock::now()))
        PostLocked();
}

void BatchProgress::Media(const Fnd::WString& clip, std::uint64_t framesDone, std::uint64_t framesTotal,
                          double secondsDone, double secondsTotal) {
    std::lock_guard lock(mutex_);
    media_ = MediaProgress{clip, framesDone, framesTotal, secondsDone, secondsTotal};
    const auto now = std::chrono::steady_clock::now();
    if (now - lastMediaPost_ >= interval_) {
        lastMediaPost_ = now;
        PostLocked();
    }
}

void BatchProgress::MediaEnded() {
    std::lock_guard lock(mutex_);
    media_ = MediaProgress{};
    PostLocked();
}

void BatchProgress::PostNow() {
    std::lock_guard lock(mutex_);
    PostLocked();
}

void BatchProgress::Paused(bool paused) {
    std::lock_guard lock(mutex_);
    if (!paused)
        meter_.Restart();
    PostLocked();
}

std::uint64_t BatchProgress::BytesDone() const {
    std::lock_guard lock(mutex_);
    return BytesDoneLocked();
}

std::uint64_t BatchProgress::BytesDoneLocked() const {
    std::uint64_t done = bytesOfFinished_;
    for (const Reading& reading : reading_)
        done += reading.done;
    return done;
}

void BatchProgress::PostLocked() {
    BatchProgressMessage message;
    message.batch = batch_;
    message.filesDone = filesDone_;
    message.filesTotal = filesTotal_;
    message.bytesDone = BytesDoneLocked();
    message.bytesTotal = bytesTotal_;
    message.currentFile = !reading_.empty() ? reading_.front().source : media_.clip;
    message.bytesPerSecond = meter_.BytesPerSecond();
    message.paused = control_.IsPaused();
    message.framesDone = media_.framesDone;
    message.framesTotal = media_.framesTotal;
    message.mediaSecondsDone = media_.secondsDone;
    message.mediaSecondsTotal = media_.secondsTotal;
    Fnd::StationUtils::PostMessageToUIThread(kStation_TaskService, message, false);
}

} // namespace QL::Engine
