#include "HostApp/ApplicationType.h"

#include <atomic>

namespace HostApp {

namespace {
// Set once by the host at start-up but read from any thread, so plain atomics suffice.
std::atomic<int> applicationType{0};
std::atomic<bool> runningSprint{false};
} // namespace

int GetApplicationType() {
    return applicationType.load(std::memory_order_relaxed);
}
void SetApplicationType(int kind) {
    applicationType.store(kind, std::memory_order_relaxed);
}

bool IsRunningSprint() {
    return runningSprint.load(std::memory_order_relaxed);
}
void SetRunningSprint(bool running) {
    runningSprint.store(running, std::memory_order_relaxed);
}

} // namespace HostApp
