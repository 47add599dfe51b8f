#include "QL/TaskFactory.h"

#include <string>

#include "Fnd/NullInterfaceException.h"

namespace QL::IngestTask {
namespace {

// A host that submits before installing a service would lose the request silently; that is a
// wiring fault, so it surfaces as an exception naming the call.
ITaskService& RequireService(const char* operation) {
    ITaskService* service = GetTaskService();
    if (!service)
        throw Fnd::NullInterfaceException(std::string("QL::IngestTask::TaskFactory::") + operation +
                                          ": no task service is installed");
    return *service;
}

} // namespace

void TaskFactory::SubmitCopyTask(const CopySetting& setting, const fluxcore::utility::Guid& batch,
                                 const IngestCustomData& data) {
    RequireService("SubmitCopyTask").SubmitCopyTask(setting, batch, data);
}

void TaskFactory::SubmitTranscodeTask(const TranscodeSetting& setting, const fluxcore::utility::Guid& batch,
                                      const IngestCustomData& data) {
    RequireService("SubmitTranscodeTask").SubmitTranscodeTask(setting, batch, data);
}

void TaskFactory::SubmitConcatenateTask(const TranscodeSetting& setting, const fluxcore::utility::Guid& batch,
                                        const IngestCustomData& data) {
    RequireService("SubmitConcatenateTask").SubmitConcatenateTask(setting, batch, data);
}

void TaskFactory::SubmitImportTask(const ImportSetting& setting, const fluxcore::utility::Guid& batch,
                                   const IngestCustomData& data) {
    RequireService("SubmitImportTask").SubmitImportTask(setting, batch, data);
}

void TaskFactory::SubmitUpdateMetadataTask(const UpdateMetadataSetting& setting,
                                           const fluxcore::utility::Guid& batch,
                                           const IngestCustomData& data) {
    RequireService("SubmitUpdateMetadataTask").SubmitUpdateMetadataTask(setting, batch, data);
}

} // namespace QL::IngestTask
