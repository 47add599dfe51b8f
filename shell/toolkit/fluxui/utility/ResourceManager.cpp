#include "fluxui/utility/ResourceManager.h"

namespace fluxui::utility {

std::span<const std::byte> ResourceManager::FindResource(std::string_view type, std::string_view name) const {
    const auto found = added_.find({UpperCase(type), UpperCase(name)});
    if (found == added_.end())
        return {};
    const std::string& bytes = found->second;
    return {reinterpret_cast<const std::byte*>(bytes.data()), bytes.size()};
}

void ResourceManager::AddResource(std::string_view type, std::string_view name, std::string_view bytes) {
    added_[{UpperCase(type), UpperCase(name)}] = std::string(bytes);
}

std::string ResourceManager::UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

} // namespace fluxui::utility
