#pragma once
#include "shell/toolkit/fluxui/utility/ResourceManager.h"

namespace fluxui::utility {

// The resources of a loaded module: on Linux, the store compiled into the library. Resources
// added with AddResource come first, so a test can replace a layout of the store.
class OS_ResourceManager : public ResourceManager {
public:
    // The module handle names the module on platforms that keep resources per module; the
    // library has one store, so it is not read.
    explicit OS_ResourceManager(void* module = nullptr) {}

    std::span<const std::byte> FindResource(std::string_view type, std::string_view name) const override;
};

} // namespace fluxui::utility
