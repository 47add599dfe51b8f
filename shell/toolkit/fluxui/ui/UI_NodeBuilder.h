#pragma once
// Builds a tree of nodes from a layout archive (the prop.map form) held by a resource manager.
#include <functional>
#include <map>
#include <stdexcept>
#include <string>

#include "Fnd/WString.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/ui/UI_Container.h"

namespace fluxui::utility {
class ResourceManager;
}

namespace fluxui::ui {

using ControlsById = std::map<std::string, UI_NodeRef>;
// Offered the className of a node first; a null answer lets the builder use the adapter class.
using CustomControlFactory = std::function<UI_NodeRef(const Fnd::WString& className)>;

// A layout that cannot be built: missing, malformed, or naming a class the toolkit lacks. The
// message names the layout and, where there is one, the node.
class LayoutError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

class UI_NodeBuilder {
public:
    // Builds the layout found under layoutName (type "XML", any case) and returns its root. Every
    // node is entered in controlsById under its id, the first of a repeated id winning. An empty
    // layoutName builds nothing and answers null. Throws LayoutError.
    static UI_NodeRef LoadViewFromXML(const utility::ResourceManager& resources,
                                      sketcher::SupplierInterface* supplier, const std::string& layoutName,
                                      ControlsById& controlsById, const CustomControlFactory& factory = {});
};

} // namespace fluxui::ui
