#pragma once
#include <memory>

#include "Fnd/InterfaceRef.h"
#include "QL/IQLPresetManager.h"

namespace QL {

// The preset service as the host installs it; QL::InstantiateQLPresetManager forwards here.
class IPresetService {
public:
    virtual ~IPresetService() = default;
    virtual Fnd::InterfaceRef<IQLPresetManager> InstantiateManager(_QLPresetCategory category) = 0;
};

// The host installs its service at start-up; null removes it.
void SetPresetService(std::shared_ptr<IPresetService> service);
IPresetService* GetPresetService();

} // namespace QL
