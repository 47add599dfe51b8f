#include "BatchFollower.h"

#include <cstdio>

#include "Fnd/StationUtils.h"
#include "QL/Engine/TaskServiceMessages.h"

namespace embed {
namespace {

using namespace QL::Engine;

std::string FileName(const Fnd::WString& path) {
    const std::size_t slash = path.rfind(u'/');
    return Fnd::ToDisplayUTF8(slash == Fnd::WString::npos ? path : path.substr(slash + 1));
}

std::string Megabytes(std::uint64_t bytes) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f MB", static_cast<double>(bytes) / 1e6);
    return text;
}

std::string FileLine(const FileOutcomeMessage& file) {
    const std::string name = FileName(file.source);
    switch (file.status) {
    case FileStatus::Copied: {
        const std::string copy = Fnd::ToDisplayUTF8(file.finalPath.empty() ? file.target : file.finalPath);
        return file.verifiedBy == VerifiedBy::NotVerified
                   ? name + " copied to " + copy + ", not verified"
                   : name + " copied to " + copy + " and verified (" + file.checksumAlgorithm + " " +
                         file.checksum + ")";
    }
    case FileStatus::Transcoded:
        return name + " transcoded";
    case FileStatus::Skipped:
        return name + " skipped: the destination already holds it";
    case FileStatus::AlreadyCopied:
        return name + " already copied";
    case FileStatus::Failed:
        return name + " failed: " + Fnd::ToDisplayUTF8(file.reason);
    case FileStatus::Cancelled:
        return name + " cancelled";
    }
    return name;
}

} // namespace

BatchFollower::BatchFollower(Handlers handlers) : handlers_(std::move(handlers)) {
    Fnd::StationUtils::AddListener(kStation_TaskService, this);
}

BatchFollower::~BatchFollower() {
    Fnd::StationUtils::RemoveListener(kStation_TaskService, this);
}

void BatchFollower::FollowNext() {
    batch_ = {};
    filesCopied_ = 0;
    filesUnverified_ = 0;
}

void BatchFollower::Follow(const fluxcore::utility::Guid& batch) {
    batch_ = batch;
}

bool BatchFollower::IsFollowed(const fluxcore::utility::Guid& batch) {
    if (batch_.IsZero())
        batch_ = batch;
    return batch == batch_;
}

void BatchFollower::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    if (const auto* progress = Fnd::MessageCast<BatchProgressMessage>(message)) {
        if (!IsFollowed(progress->batch))
            return;
        const int percent = progress->bytesTotal == 0
                                ? 0
                                : static_cast<int>(100 * progress->bytesDone / progress->bytesTotal);
        std::string text = std::to_string(percent) + "% of " + Megabytes(progress->bytesTotal);
        if (!progress->currentFile.empty())
            text += ", " + FileName(progress->currentFile);
        handlers_.progress(text);
    } else if (const auto* file = Fnd::MessageCast<FileOutcomeMessage>(message)) {
        if (!IsFollowed(file->batch))
            return;
        if (file->status == FileStatus::Copied) {
            ++filesCopied_;
            if (file->verifiedBy == VerifiedBy::NotVerified || file->checksum.empty())
                ++filesUnverified_;
        }
        handlers_.outcome(FileLine(*file));
    } else if (const auto* task = Fnd::MessageCast<TaskOutcomeMessage>(message)) {
        if (IsFollowed(task->batch) && task->status == OutcomeStatus::Failed && task->filesFailed == 0)
            handlers_.outcome(std::string(TaskKindName(task->kind)) + " failed: " + Fnd::ToDisplayUTF8(task->reason));
    } else if (const auto* batch = Fnd::MessageCast<BatchOutcomeMessage>(message)) {
        if (!IsFollowed(batch->batch))
            return;
        const bool succeeded = batch->status == OutcomeStatus::Succeeded && !batch->AnyFailure() &&
                               filesCopied_ > 0 && filesUnverified_ == 0;
        char seconds[32];
        std::snprintf(seconds, sizeof seconds, "%.1f s", batch->seconds);
        handlers_.ended(succeeded, std::string(succeeded ? "Done" : "Not done") + " in " + seconds + ": " +
                                       std::to_string(batch->filesCopied) + " copied, " +
                                       std::to_string(batch->filesFailed) + " failed");
    }
}

} // namespace embed
