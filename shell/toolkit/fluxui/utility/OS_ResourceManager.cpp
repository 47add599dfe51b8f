#include "fluxui/utility/OS_ResourceManager.h"

namespace fluxui::utility {

std::span<const std::byte> OS_ResourceManager::FindResource(std::string_view type,
                                                            std::string_view name) const {
    const auto added = ResourceManager::FindResource(type, name);
    if (!added.empty() || module_ == nullptr)
        return added;
    return module_(type, name);
}

} // namespace fluxui::utility
