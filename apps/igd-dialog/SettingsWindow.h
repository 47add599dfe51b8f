#pragma once
#include <QString>
#include <vector>

#include "ReplayEngine.h"
#include "ReplayScript.h"

namespace igd::dialog {

// The settings pane in the dialog's form, with its Cancel and Ingest bar and every section open,
// in a window of its own until the window closes. The window opens at its default size and is then
// resized to width by height, as a person dragging its edge would. With a screenshot file, writes
// the window to the file and closes; with a replay, plays it and closes. Answers the exit status.
int RunSettingsWindow(float width, float height, const QString& screenshotFile,
                      const std::vector<ReplayStep>& replay = {}, const ReplayOptions& options = {});

} // namespace igd::dialog
