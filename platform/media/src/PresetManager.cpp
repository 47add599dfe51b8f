#include "Mid/PresetManager.h"

#include <atomic>
#include <mutex>

#include "Mid/KilnInstalled.h"

namespace Mid {
namespace {

class NoEncoders final : public PresetManager {
public:
    const std::vector<ExporterRef>& GetEncoderList() override { return none_; }
    void LoadPresets(const ExporterRef&, std::vector<EncoderPresetRef>& user, std::vector<EncoderPresetRef>& system,
                     int) override {
        user.clear();
        system.clear();
    }

private:
    const std::vector<ExporterRef> none_{};
};

std::mutex installMutex;
std::shared_ptr<PresetManager> installed;

// -1: the encoder list decides.
std::atomic<int> kilnOverride{-1};

} // namespace

PresetManager& PresetManager::GetInstance() {
    static NoEncoders empty;
    std::lock_guard lock(installMutex);
    return installed ? *installed : empty;
}

void PresetManager::Install(std::shared_ptr<PresetManager> manager) {
    std::lock_guard lock(installMutex);
    installed = std::move(manager);
}

bool IsKilnInstalled() {
    const int known = kilnOverride.load(std::memory_order_acquire);
    if (known >= 0)
        return known == 1;
    return !PresetManager::GetInstance().GetEncoderList().empty();
}

void SetKilnInstalled(bool value) {
    kilnOverride.store(value ? 1 : 0, std::memory_order_release);
}

} // namespace Mid
