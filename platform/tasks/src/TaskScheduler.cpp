#include "QL/TaskFactory.h"

namespace QL::IngestTask {

bool TaskScheduler::IsPathInCopyList(const Fnd::WString& path) {
    // Without a service nothing can be waiting, so the answer is a fact rather than a fault.
    const ITaskService* service = GetTaskService();
    return service != nullptr && service->IsPathInCopyList(path);
}

} // namespace QL::IngestTask
