#include "BatchProgress.h"

#include <algorithm>

#include "Fnd/StationUtils.h"
#include "QL/Engine/TaskServiceMessages.h"

namespace QL::Engine {

BatchProgress::BatchProgress(const fluxcore::utility::Guid& batch, const CopyControl& control,
                             std::chrono::milliseconds interval)
    : batch_(batch), control_(control), meter_(interval, std::chrono::seconds(5)) {}

void BatchProgress::SetTotals(std::uint64_t files, std::uint64_t bytes) {
    std::lock_guard lock(mutex_);
    filesTotal_ = files;
    bytesTotal_ = bytes;
}

void BatchProgress::FileStarted(const Fnd::WString& source, std::uint64_t size) {
    std::lock_guard lock(mutex_);
    current_ = source;
    currentSize_ = size;
    currentDone_ = 0;
}

void BatchProgress::Bytes(std::uint64_t currentFileBytes) {
    std::lock_guard lock(mutex_);
    // A source that grows while it is read must not push the count past the total.
    currentDone_ = std::min(currentFileBytes, currentSize_);
    if (meter_.Sample(bytesBeforeCurrent_ + currentDone_, ProgressMeter::Clock::now()))
        PostLocked();
}

void BatchProgress::FileFinished() {
    std::lock_guard lock(mutex_);
    bytesBeforeCurrent_ += currentSize_;
    currentSize_ = currentDone_ = 0;
    ++filesDone_;
    current_.clear();
    if (meter_.Sample(bytesBeforeCurrent_, ProgressMeter::Clock::now()))
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
    return bytesBeforeCurrent_ + currentDone_;
}

void BatchProgress::PostLocked() {
    BatchProgressMessage message;
    message.batch = batch_;
    message.filesDone = filesDone_;
    message.filesTotal = filesTotal_;
    message.bytesDone = bytesBeforeCurrent_ + currentDone_;
    message.bytesTotal = bytesTotal_;
    message.currentFile = current_;
    message.bytesPerSecond = meter_.BytesPerSecond();
    message.paused = control_.IsPaused();
    Fnd::StationUtils::PostMessageToUIThread(kStation_TaskService, message, false);
}

} // namespace QL::Engine
