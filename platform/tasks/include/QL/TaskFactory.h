#pragma once
#include <memory>

#include "QL/CopySetting.h"
#include "QL/ImportSetting.h"
#include "QL/IngestCustomData.h"
#include "QL/TranscodeSetting.h"
#include "QL/UpdateMetadataSetting.h"
#include "fluxcore/Guid.h"

namespace QL::IngestTask {

// The task service as the host installs it. Submitted tasks wait under their batch until the
// batch is started by QL::StartIngestMessage.
class ITaskService {
public:
    virtual ~ITaskService() = default;
    virtual void SubmitCopyTask(const CopySetting& setting, const fluxcore::utility::Guid& batch,
                                const IngestCustomData& data) = 0;
    virtual void SubmitTranscodeTask(const TranscodeSetting& setting, const fluxcore::utility::Guid& batch,
                                     const IngestCustomData& data) = 0;
    virtual void SubmitConcatenateTask(const TranscodeSetting& setting, const fluxcore::utility::Guid& batch,
                                       const IngestCustomData& data) = 0;
    virtual void SubmitImportTask(const ImportSetting& setting, const fluxcore::utility::Guid& batch,
                                  const IngestCustomData& data) = 0;
    virtual void SubmitUpdateMetadataTask(const UpdateMetadataSetting& setting,
                                          const fluxcore::utility::Guid& batch,
                                          const IngestCustomData& data) = 0;
    // True if a task waiting or running will create that path.
    virtual bool IsPathInCopyList(const Fnd::WString& path) const = 0;
};

// The host installs its service at start-up; null removes it.
void SetTaskService(std::shared_ptr<ITaskService> service);
ITaskService* GetTaskService();

// The closed entry points; each forwards to the installed service. Submitting with no service
// installed is a programming fault of the host and raises Fnd::NullInterfaceException.
class TaskFactory {
public:
    static void SubmitCopyTask(const CopySetting& setting, const fluxcore::utility::Guid& batch,
                               const IngestCustomData& data);
    static void SubmitTranscodeTask(const TranscodeSetting& setting, const fluxcore::utility::Guid& batch,
                                    const IngestCustomData& data);
    static void SubmitConcatenateTask(const TranscodeSetting& setting, const fluxcore::utility::Guid& batch,
                                      const IngestCustomData& data);
    static void SubmitImportTask(const ImportSetting& setting, const fluxcore::utility::Guid& batch,
                                 const IngestCustomData& data);
    static void SubmitUpdateMetadataTask(const UpdateMetadataSetting& setting,
                                         const fluxcore::utility::Guid& batch, const IngestCustomData& data);
};

class TaskScheduler {
public:
    // False when no service is installed: nothing is waiting.
    static bool IsPathInCopyList(const Fnd::WString& path);
};

} // namespace QL::IngestTask
