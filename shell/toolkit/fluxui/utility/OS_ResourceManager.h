#pragma once
#include "fluxui/utility/ResourceManager.h"

namespace fluxui::utility {

// How a module finds the resources compiled into it: the bytes of a resource by type and name, an
// empty span when it has none.
using ModuleResources = std::span<const std::byte> (*)(std::string_view type, std::string_view name);

// The resources of a loaded module, which hands over its own lookup: the toolkit knows no module's
// store. Resources added with AddResource come first, so a test can replace a layout of the store.
class OS_ResourceManager : public ResourceManager {
public:
    explicit OS_ResourceManager(ModuleResources module = nullptr) : module_(module) {}

    std::span<const std::byte> FindResource(std::string_view type, std::string_view name) const override;

private:
    ModuleResources module_;
};

} // namespace fluxui::utility
