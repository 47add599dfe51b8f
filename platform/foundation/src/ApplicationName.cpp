#include "fluxcore/ApplicationName.h"

#include <mutex>
#include <optional>

#include "fluxcore/ZString.h"

namespace fluxcore::config {
namespace {

// Set by the host at start-up, read from any thread that shows a box.
std::mutex nameMutex;
std::optional<Fnd::WString> hostName;

} // namespace

Fnd::WString GetApplicationName() {
    {
        const std::lock_guard lock(nameMutex);
        if (hostName)
            return *hostName;
    }
    return Localize("$$$/fluxcore/ApplicationName=IGD");
}

void SetApplicationName(Fnd::WString name) {
    const std::lock_guard lock(nameMutex);
    if (name.empty())
        hostName.reset();
    else
        hostName = std::move(name);
}

} // namespace fluxcore::config
