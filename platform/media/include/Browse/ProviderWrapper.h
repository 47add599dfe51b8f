#pragma once
// A media browser provider: how one kind of source (a plain folder, a camera card structure)
// presents its entries.
#include <map>
#include <memory>
#include <set>
#include <string>

#include "Browse/AnyRegular.h"
#include "Fnd/WString.h"

namespace Browse {

// Every file that belongs to an entry: a string, or an array of strings.
inline constexpr const char* kExtraPathField = "ExtraPath";
// The entry's clip name.
inline constexpr const char* kNameField = "Name";

// Field name to value.
using ContentFields = std::map<std::string, any_regular_t>;
// Entry name (relative to the directory asked) to its fields.
using Content = std::map<Fnd::WString, ContentFields>;

class ProviderWrapper {
public:
    virtual ~ProviderWrapper() = default;

    // Reverse-domain name of the provider, e.g. "com.veltrix.Kestrel.WinProviderDirectory".
    virtual std::string GetIdentification() const = 0;
    // Whether the browser's file type filter applies to the entries. Card providers answer false:
    // their entries are clips, and the card's own folder travels with them.
    virtual bool ShouldCheckFilter() const = 0;
    // The entries of directory with the fields named; filter and reserved are unused by the
    // providers here. An unknown directory answers an empty map.
    virtual Content GetContent(const Fnd::WString& directory, const Fnd::WString& filter,
                               const std::set<std::string>& fields, const void* reserved) const = 0;
    // The same content without a copy: gathering reads one entry's field for every item, and a
    // copy of a whole card's content per item makes gathering grow with the square of the card.
    // Providers that keep their content answer it shared; the default copies once.
    virtual std::shared_ptr<const Content> GetSharedContent(const Fnd::WString& directory,
                                                            const std::set<std::string>& fields) const {
        return std::make_shared<const Content>(GetContent(directory, Fnd::WString(), fields, nullptr));
    }
};

} // namespace Browse
