#pragma once
// The toolkit classes a layout archive may name as a node's adapter.
#include <span>
#include <string_view>
#include <vector>

#include "fluxui/archive/Property.h"
#include "fluxui/ui/UI_Container.h"

namespace fluxui::archive {

struct ArchiveClass {
    std::string_view adapter;   // with its namespace, as the archive spells it
    std::string_view defaultId; // the id of a node without a name of its own
    // The sections a node of this class holds, one per class of its inheritance chain, most
    // derived first.
    std::vector<std::string_view> sections;
    // Makes the node; some classes read a property that fixes them at construction. sections
    // holds the node's section maps in the order above.
    ui::UI_NodeRef (*create)(std::span<const Property* const> sections);
};

// The class of an adapter name, or null when the toolkit has none of that name.
const ArchiveClass* FindArchiveClass(std::string_view adapter);

} // namespace fluxui::archive
