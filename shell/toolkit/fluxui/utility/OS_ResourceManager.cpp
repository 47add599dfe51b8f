#include "shell/toolkit/fluxui/utility/OS_ResourceManager.h"

#include "shell/resources/ResourceStore.h"

namespace fluxui::utility {

std::span<const std::byte> OS_ResourceManager::FindResource(std::string_view type,
                                                            std::string_view name) const {
    const auto added = ResourceManager::FindResource(type, name);
    if (!added.empty())
        return added;
    return IGD::FindStoredResource(type, name);
}

} // namespace fluxui::utility
