#include "settings/SettingKeys.h"

#include <string>

namespace IGD {

Proj::PreferenceKey IndexedKey(std::string_view name, std::uint32_t index) {
    std::string key(name);
    key += std::to_string(index);
    return Proj::PreferenceKey(key);
}

Proj::PreferenceKey PathListCountKey(std::string_view prefix) {
    std::string key(prefix);
    key += kPathsMRUCount.name;
    return Proj::PreferenceKey(key);
}

Proj::PreferenceKey PathListItemKey(std::string_view prefix, std::uint32_t item) {
    std::string key(prefix);
    key += kPathsMRUItem.name;
    key += std::to_string(item);
    return Proj::PreferenceKey(key);
}

} // namespace IGD
