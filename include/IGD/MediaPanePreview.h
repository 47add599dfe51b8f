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

enum class MediaPaneView { Remembered, List, Icons };

// The top view with its browser over the project the host opened, the favourites read, the
// directory opened (home when empty), in the view asked (the one the person last chose when
// Remembered). The pane is the command target and the provider of players until it is destroyed.
IGD_EXPORT MediaPanePreview BuildMediaPanePreview(const Fnd::WString& directory, float width, float height,
                                                  MediaPaneView view);

} // namespace IGD
