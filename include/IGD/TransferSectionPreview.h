#pragma once
// The Transfer section as the settings pane shows it, over the process's settings, for the gallery
// of the desktop host and for the tests of a front end.
#include "IGD/Export.h"
#include "fluxui/ui/UI_Node.h"

namespace IGD {

// Builds the Transfer section of the application kind and project the host has set (hosted kinds 5
// and 8 give the reduced family, a remote project the remote section) from the settings stored
// under $IGD_HOME, then, as a user would in the open dialog, fills what is missing so that every
// part shows: a primary and two backups with paths, transcoding on the primary with stitching and on
// the second backup, each with a preset of the installed encoder list. Nothing is stored. The
// section sits in a scroll view of the given size whose range follows it. Needs the preference
// store and the encoder list installed.
IGD_EXPORT fluxui::ui::UI_NodeRef BuildTransferSectionPreview(float width, float height);

} // namespace IGD
