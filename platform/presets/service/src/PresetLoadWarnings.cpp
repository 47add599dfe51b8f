#include "QL/PresetLoadWarnings.h"

#include <mutex>
#include <utility>

namespace QL {
namespace {

struct HandlerSlot {
    std::mutex mutex;
    PresetLoadWarningHandler handler;
};

HandlerSlot& Slot() {
    static HandlerSlot slot;
    return slot;
}

} // namespace

void SetPresetLoadWarningHandler(PresetLoadWarningHandler handler) {
    std::lock_guard lock(Slot().mutex);
    Slot().handler = std::move(handler);
}

void ReportPresetLoadWarning(const PresetLoadWarning& warning) {
    PresetLoadWarningHandler handler;
    {
        std::lock_guard lock(Slot().mutex);
        handler = Slot().handler;
    }
    // Called outside the lock, so that a handler may replace itself.
    if (handler)
        handler(warning);
}

} // namespace QL
