#pragma once
// Builds a layout of the library's store the way the sections do, with the hint edit made for
// className AutoHintTextEdit.
#include <string>

#include "fluxui/archive/Property.h"
#include "fluxui/ui/UI_Node.h"
#include "fluxui/ui/UI_NodeBuilder.h"

namespace igd::test {

struct BuiltLayout {
    fluxui::ui::UI_NodeRef root;
    fluxui::ui::ControlsById controls;
    fluxui::archive::Property archive; // the file as read, to check what it says
};

BuiltLayout BuildStoredLayout(const std::string& name);

// The display text of a control, whatever its class; empty for a node that shows none.
Fnd::WString DisplayText(const fluxui::ui::UI_Node& node);

} // namespace igd::test
