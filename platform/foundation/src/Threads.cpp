#include "fluxcore/Threads.h"

#include "InstalledRunLoop.h"

namespace fluxcore::threads {

void AsyncCallFromMainThread(Fnd::Task task) {
    Fnd::detail::AcquireRunLoop()->Post(std::move(task), false);
}

} // namespace fluxcore::threads
