#include <memory>
#include <utility>

#include "QL/TaskFactory.h"

namespace QL::IngestTask {
namespace {

// A function-local static, so that a host may install its service from the constructor of
// another static object without depending on the order of static initialisation.
std::shared_ptr<ITaskService>& InstalledService() {
    static std::shared_ptr<ITaskService> service;
    return service;
}

} // namespace

void SetTaskService(std::shared_ptr<ITaskService> service) {
    InstalledService() = std::move(service);
}

ITaskService* GetTaskService() {
    return InstalledService().get();
}

} // namespace QL::IngestTask
