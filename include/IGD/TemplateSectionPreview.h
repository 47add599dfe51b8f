#pragma once
// The rename and metadata template sections as the settings pane shows them, over settings of
// their own: for the gallery of the desktop host and for the tests of a front end.
#include "IGD/Export.h"
#include "fluxui/ui/UI_Node.h"

namespace IGD {

enum class TemplateSectionKind { Rename, Metadata };

// Normal shows the rows a user fills for an ingest; Edit the rows of the preset being edited.
enum class TemplateSectionMode { Normal, Edit };

// Builds the section at the given width, its template enabled and a shipped preset chosen
// ("Camera roll" for rename, "Production" for metadata), in a scroll view of the given size whose
// range follows the section as rows come and go. The stored settings are neither read nor
// written; the presets are those of the preset service the host installed. Throws
// std::runtime_error when the shipped preset is not found.
IGD_EXPORT fluxui::ui::UI_NodeRef
BuildTemplateSectionPreview(TemplateSectionKind kind, TemplateSectionMode mode, float width, float height);

} // namespace IGD
