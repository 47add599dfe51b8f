#pragma once
// The library's layouts built as a dialog shows them, for the gallery of the desktop host and for
// the screenshots of the tests.
#include <string>
#include <vector>

#include "IGD/Export.h"
#include "fluxui/ui/UI_NodeBuilder.h"
#include "fluxui/utility/ResourceManager.h"

namespace IGD {

struct LayoutPreview {
    std::string name;
    fluxui::ui::UI_NodeRef root;
    fluxui::ui::ControlsById controls;
};

// The layouts of the library's store: those of the catalogue in its order and spelling, then any
// other layout the store holds, by its stored name.
IGD_EXPORT std::vector<std::string> LayoutNames();

// Builds a layout at the given width and its authored height, with the library's custom controls
// and the decal pictures its sections give their picture buttons. Throws LayoutError.
IGD_EXPORT LayoutPreview BuildLayoutPreview(const std::string& name, float width);

// The layouts as a stack of titled, folding sections in a scroll view of the given size. A
// section that opens or closes moves those below it and updates the scroll range.
IGD_EXPORT fluxui::ui::UI_NodeRef BuildSectionStack(const std::vector<LayoutPreview>& layouts, float width,
                                         float height);

// The images and layouts the library's views load, made on first use and let go of by
// ReleaseIngestResHandlers: what a front end draws pictures from.
IGD_EXPORT const fluxui::utility::ResourceManager* IngestResourceManager();

} // namespace IGD
