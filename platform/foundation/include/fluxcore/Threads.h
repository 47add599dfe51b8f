#pragma once
#include "Fnd/RunLoop.h"

namespace fluxcore::threads {

// Runs the function later on the UI thread, after the current handler has returned.
void AsyncCallFromMainThread(Fnd::Task task);

} // namespace fluxcore::threads
