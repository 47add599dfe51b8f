#include "EncoderPresetWarnings.h"

#include <mutex>

namespace Av {
namespace {

std::mutex handlerMutex;
std::function<void(const EncoderPresetWarning&)> installedHandler;

} // namespace

void SetEncoderPresetWarningHandler(std::function<void(const EncoderPresetWarning&)> handler) {
    std::lock_guard lock(handlerMutex);
    installedHandler = std::move(handler);
}

void ReportEncoderPresetWarning(const EncoderPresetWarning& warning) {
    std::function<void(const EncoderPresetWarning&)> handler;
    {
        std::lock_guard lock(handlerMutex);
        handler = installedHandler;
    }
    if (handler)
        handler(warning);
}

} // namespace Av
