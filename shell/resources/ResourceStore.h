#pragma once
// The library's own resources (layouts, images), compiled in at build time from resources/.
#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace IGD {

namespace detail {
// One compiled-in file. The table is generated, sorted by type and then by name.
struct StoredEntry {
    const char* type;
    const char* name; // the file's stem, upper-case
    const unsigned char* data;
    std::size_t size;
};
extern const StoredEntry kStoredEntries[];
extern const std::size_t kStoredEntryCount;
} // namespace detail

// The bytes of a compiled-in resource, or an empty span. type is "XML", "PNG" or "SVG"; name is
// matched without regard to case. The bytes live as long as the process.
std::span<const std::byte> FindStoredResource(std::string_view type, std::string_view name);

// The upper-case names of every compiled-in resource of a type, in byte order.
std::vector<std::string_view> StoredResourceNames(std::string_view type);

} // namespace IGD
