#pragma once
// Where the toolkit finds layouts and images: resources by type ("XML", "PNG", "SVG") and by
// name, the name matched without regard to case. The library's own store is compiled in; tests
// add resources of their own.
#include <cstddef>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace fluxui::utility {

class ResourceManager {
public:
    virtual ~ResourceManager() = default;

    // The bytes of a resource, or an empty span when there is none of that type and name. The
    // bytes live as long as the manager.
    virtual std::span<const std::byte> FindResource(std::string_view type, std::string_view name) const;
    bool HasResource(std::string_view type, std::string_view name) const {
        return !FindResource(type, name).empty();
    }

    // Adds or replaces a resource; the manager keeps a copy.
    void AddResource(std::string_view type, std::string_view name, std::string_view bytes);

protected:
    // Names are kept upper-case, as the store holds them.
    static std::string UpperCase(std::string_view text);

private:
    std::map<std::pair<std::string, std::string>, std::string> added_;
};

} // namespace fluxui::utility
