#pragma once
// igd-dialog with no mode: a small host over a project, as an editing application is one, and
// the replay that drives it.
#include <QString>
#include <string>
#include <vector>

#include "ReplayEngine.h"
#include "ReplayScript.h"

namespace igd::dialog {

// Runs the host window on the project file (ingesting into defaultBin while no bin is chosen) until it is closed, or until the replay ends when
// replay holds steps. Answers the exit status.
int RunHost(const std::string& projectPath, const Fnd::WString& defaultBin, const std::vector<ReplayStep>& replay,
            const ReplayOptions& options);

// Runs the event loop under a replay of a window whose host is given, and answers 0 when every
// step ran. A failure inside a modal window ends the process at once with status 1: the modal
// runs cannot be unwound from outside.
int RunReplay(const std::vector<ReplayStep>& replay, ReplayHost host, const ReplayOptions& options);

} // namespace igd::dialog
