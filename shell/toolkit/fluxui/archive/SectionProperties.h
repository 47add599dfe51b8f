#pragma once
// Applies the properties of one section of a node's archive to the node. A property that the
// node's toolkit class does not keep is still checked for its type, so a mistake in a layout
// shows whatever class builds it.
#include <string_view>

#include "fluxui/archive/Property.h"
#include "fluxui/ui/UI_Node.h"

namespace fluxui::archive {

// Throws ArchiveError for a section the toolkit does not know, a key the section does not hold,
// or a value of the wrong type. Skips sectionName and children, which the builder reads.
void ApplySectionProperties(ui::UI_Node& node, std::string_view sectionName, const Property& section);

// Whether a section may hold the children of its node.
bool SectionHoldsChildren(std::string_view sectionName);

} // namespace fluxui::archive
