#pragma once
// The media pane of the Ingest dialog on its own, for the browse window of the desktop host and
// for the tests of a front end.
#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "fluxmediabrowser/MediaBrowserView.h"
#include "fluxui/ui/UI_Node.h"

namespace IGD {

struct MediaPanePreview {
    fluxui::ui::UI_NodeRef pane;                          // the top view, sized as asked
    fluxmediabrowser::MediaBrowserView* browser = nullptr; // inside pane
};

// The top view with its browser over the project the host opened, the favourites read, the
// directory opened (home when empty), in icon view when asked. The pane is the command target
// and the provider of players until it is destroyed.
IGD_EXPORT MediaPanePreview BuildMediaPanePreview(const Fnd::WString& directory, float width, float height,
                                                  bool iconView);

} // namespace IGD
