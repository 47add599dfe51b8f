#pragma once
#include <atomic>
#include <memory>

#include "QL/IQLPresetManager.h"

namespace QL {

class PresetRegistry;
class PresetObject;

// One manager as the dialog sees it; all the work and state are in the category's registry.
class FilePresetManager final : public IQLPresetManager {
public:
    explicit FilePresetManager(std::shared_ptr<PresetRegistry> registry);

    void AddRef() override;
    void Release() override;
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override;
    Fnd::FndUnknown* GetRawObject() override { return this; }

    _QLPresetCategory GetCategory() const override;
    Fnd::InterfaceRef<IQLPreset> CreatePreset() override;
    PresetList GetUserPresets(bool reserved) override;
    PresetList GetSystemPresets() override;
    QLPresetStatus SavePreset(const Fnd::InterfaceRef<IQLPreset>& preset, const Fnd::WString& name,
                              const Fnd::WString& description, bool overwrite,
                              const Fnd::WString& fileName) override;
    Fnd::InterfaceRef<IQLPreset> InstallPreset(const Fnd::WString& path) override;
    QLPresetStatus DeletePreset(const Fnd::InterfaceRef<IQLPreset>& preset) override;

private:
    std::atomic<int> count_{0};
    std::shared_ptr<PresetRegistry> registry_;
};

} // namespace QL
