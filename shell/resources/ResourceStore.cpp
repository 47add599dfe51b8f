#include "shell/resources/ResourceStore.h"

#include <algorithm>
#include <string>
#include <tuple>

namespace IGD {

namespace {

std::string UpperCaseASCII(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return upper;
}

std::span<const detail::StoredEntry> Entries() {
    return {detail::kStoredEntries, detail::kStoredEntryCount};
}

bool Before(const detail::StoredEntry& entry, std::string_view type, std::string_view name) {
    return std::tuple(std::string_view(entry.type), std::string_view(entry.name)) < std::tuple(type, name);
}

} // namespace

std::span<const std::byte> FindStoredResource(std::string_view type, std::string_view name) {
    const std::string upperType = UpperCaseASCII(type);
    const std::string upperName = UpperCaseASCII(name);
    const auto entries = Entries();
    const auto found = std::lower_bound(entries.begin(), entries.end(), 0, [&](const auto& entry, int) {
        return Before(entry, upperType, upperName);
    });
    if (found == entries.end() || found->type != upperType || found->name != upperName)
        return {};
    return {reinterpret_cast<const std::byte*>(found->data), found->size};
}

std::vector<std::string_view> StoredResourceNames(std::string_view type) {
    const std::string upperType = UpperCaseASCII(type);
    std::vector<std::string_view> names;
    for (const detail::StoredEntry& entry : Entries())
        if (entry.type == upperType)
            names.emplace_back(entry.name);
    return names;
}

} // namespace IGD
