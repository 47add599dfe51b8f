#pragma once
#include <QString>

#include "IGD/MediaPanePreview.h"

namespace igd::dialog {

// The media pane alone in a window of its own, on a directory (home when empty), until the window
// closes. With a screenshot file, waits for the listing, facts and thumbnails, shows the first
// clip in the player, writes the window to the file and closes. Answers the exit status.
int RunBrowseWindow(const QString& directory, IGD::MediaPaneView view, const QString& screenshotFile);

} // namespace igd::dialog
