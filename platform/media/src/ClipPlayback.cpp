#include "Mid/ClipPlayback.h"

#include <mutex>

namespace Mid {
namespace {

std::mutex installMutex;
std::shared_ptr<ClipPlaybackFactory> installed;

} // namespace

std::shared_ptr<ClipPlaybackFactory> ClipPlaybackFactory::GetInstance() {
    std::lock_guard lock(installMutex);
    return installed;
}

void ClipPlaybackFactory::Install(std::shared_ptr<ClipPlaybackFactory> factory) {
    std::lock_guard lock(installMutex);
    installed = std::move(factory);
}

} // namespace Mid
