#include <memory>
#include <utility>

#include "QL/PresetService.h"

namespace QL {
namespace {

// A function-local static, so that a host may install its service from the constructor of
// another static object without depending on the order of static initialisation.
std::shared_ptr<IPresetService>& InstalledService() {
    static std::shared_ptr<IPresetService> service;
    return service;
}

} // namespace

void SetPresetService(std::shared_ptr<IPresetService> service) {
    InstalledService() = std::move(service);
}

IPresetService* GetPresetService() {
    return InstalledService().get();
}

Fnd::InterfaceRef<IQLPresetManager> InstantiateQLPresetManager(_QLPresetCategory category) {
    IPresetService* service = GetPresetService();
    if (!service)
        return nullptr;
    return service->InstantiateManager(category);
}

} // namespace QL
