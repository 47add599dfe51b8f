#pragma once
#include <functional>
#include <string>
#include <vector>

#include "Fnd/WString.h"
#include "QL/Engine/TaskService.h"

namespace igd {

struct ServiceRunOptions {
    std::string projectPath; // empty: the default project
    Fnd::WString bin;        // empty: the root bin
    bool json = false;
    // The folders copied to, so that the summary can say how each was verified.
    std::vector<std::string> destinations;
    // A new ingest sets an unreadable journal aside and begins another; resume must not.
    bool setAsideUnreadableJournal = false;
};

// Creates the task service, installs it for the library, lets submit hand it work, and runs the
// UI queue (as a host's event loop would) until nothing started is left, drawing the progress.
// A first Ctrl-C stops the batches cleanly; a second one ends the process at once, leaving them
// resumable. submit answers an exit code to end with at once, or 0 to run. Answers the exit code:
// 0 when every file and task succeeded, 1 when something failed, was cancelled or nothing ran.
int RunTaskService(const ServiceRunOptions& options,
                   const std::function<int(QL::Engine::TaskService& service)>& submit);

} // namespace igd
