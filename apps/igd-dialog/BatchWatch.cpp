#include "BatchWatch.h"

#include "Fnd/StationUtils.h"
#include "QL/Engine/TaskServiceMessages.h"
#include "QL/IngestMessages.h"

namespace igd::dialog {
namespace {

using namespace QL::Engine;

std::string NameOf(const Fnd::WString& path) {
    return Fnd::ToDisplayUTF8(path.substr(path.rfind(u'/') + 1));
}

} // namespace

BatchWatch::BatchWatch(std::function<void()> changed) : changed_(std::move(changed)) {
    Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this);
    Fnd::StationUtils::AddListener(kStation_TaskService, this);
}

BatchWatch::~BatchWatch() {
    Fnd::StationUtils::RemoveListener(kStation_TaskService, this);
    Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this);
}

void BatchWatch::ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) {
    if (const auto* start = Fnd::MessageCast<QL::StartIngestMessage>(message)) {
        batch_ = start->batch;
        state_ = BatchState::Running;
        percent_ = 0;
        line_ = "Starting";
        failures_.clear();
        verified_ = unverified_ = 0;
    } else if (const auto* progress = Fnd::MessageCast<BatchProgressMessage>(message)) {
        if (progress->batch != batch_)
            return;
        percent_ = progress->bytesTotal == 0 ? 0 : static_cast<int>(100 * progress->bytesDone / progress->bytesTotal);
        line_ = progress->currentFile.empty() ? std::string("Copying")
                                              : "Copying " + NameOf(progress->currentFile);
    } else if (const auto* file = Fnd::MessageCast<FileOutcomeMessage>(message)) {
        if (file->batch != batch_)
            return;
        if (file->status == FileStatus::Failed || file->status == FileStatus::Cancelled)
            failures_.push_back(NameOf(file->source) + ": " +
                                (file->reason.empty() ? std::string("cancelled") : Fnd::ToDisplayUTF8(file->reason)));
        else if (file->status == FileStatus::Copied)
            ++(file->verifiedBy == VerifiedBy::NotVerified || file->checksum.empty() ? unverified_ : verified_);
    } else if (const auto* task = Fnd::MessageCast<TaskOutcomeMessage>(message)) {
        if (task->batch == batch_ && task->status == OutcomeStatus::Failed && task->filesFailed == 0)
            failures_.push_back(std::string(TaskKindName(task->kind)) + ": " + Fnd::ToDisplayUTF8(task->reason));
    } else if (const auto* outcome = Fnd::MessageCast<BatchOutcomeMessage>(message)) {
        if (outcome->batch != batch_)
            return;
        const bool succeeded = outcome->status == OutcomeStatus::Succeeded && !outcome->AnyFailure() &&
                               failures_.empty() && unverified_ == 0;
        state_ = succeeded ? BatchState::Succeeded : BatchState::Failed;
        percent_ = 100;
        line_ = std::to_string(verified_) + " files copied and verified, " + std::to_string(unverified_) +
                " not verified, " + std::to_string(outcome->filesFailed) + " failed; " +
                std::to_string(outcome->itemsImported) + " items in the project";
    } else {
        return;
    }
    if (changed_)
        changed_();
}

} // namespace igd::dialog
