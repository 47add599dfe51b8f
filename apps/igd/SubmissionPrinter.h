#pragma once
#include <ostream>

#include "Fnd/Listener.h"
#include "QL/TaskFactory.h"

namespace igd {

// A task service that runs nothing and prints every task it is given, so that `igd plan` shows
// exactly what an ingest would submit. It also prints the batch control messages it hears.
class SubmissionPrinter : public QL::IngestTask::ITaskService, public Fnd::Listener {
public:
    explicit SubmissionPrinter(std::ostream& out) : out_(out) {}

    void SubmitCopyTask(const QL::IngestTask::CopySetting& setting, const fluxcore::utility::Guid& batch,
                        const QL::IngestCustomData& data) override;
    void SubmitTranscodeTask(const QL::IngestTask::TranscodeSetting& setting,
                             const fluxcore::utility::Guid& batch, const QL::IngestCustomData& data) override;
    void SubmitConcatenateTask(const QL::IngestTask::TranscodeSetting& setting,
                               const fluxcore::utility::Guid& batch,
                               const QL::IngestCustomData& data) override;
    void SubmitImportTask(const QL::IngestTask::ImportSetting& setting, const fluxcore::utility::Guid& batch,
                          const QL::IngestCustomData& data) override;
    void SubmitUpdateMetadataTask(const QL::IngestTask::UpdateMetadataSetting& setting,
                                  const fluxcore::utility::Guid& batch,
                                  const QL::IngestCustomData& data) override;
    bool IsPathInCopyList(const Fnd::WString& path) const override;

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

    int TaskCount() const { return taskCount_; }

private:
    void PrintTranscode(const char* kind, const QL::IngestTask::TranscodeSetting& setting,
                        const fluxcore::utility::Guid& batch, const QL::IngestCustomData& data);

    std::ostream& out_;
    int taskCount_ = 0;
};

} // namespace igd
