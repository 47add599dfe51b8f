#include "Mid/FrameService.h"

#include <mutex>

namespace Mid {
namespace {

class NoFrames final : public FrameService {
public:
    FrameImage PosterFrame(const std::string& path, int, double) override { Refuse(path); }
    ClipFacts Facts(const std::string& path) override { Refuse(path); }

private:
    [[noreturn]] static void Refuse(const std::string& path) {
        throw FrameUnavailable(path + ": this build has no media layer to read clips with");
    }
};

std::mutex installMutex;
std::shared_ptr<FrameService> installed;

} // namespace

FrameService& FrameService::GetInstance() {
    static NoFrames none;
    std::lock_guard lock(installMutex);
    return installed ? *installed : none;
}

std::shared_ptr<FrameService> FrameService::Install(std::shared_ptr<FrameService> service) {
    std::lock_guard lock(installMutex);
    installed.swap(service);
    return service;
}

} // namespace Mid
