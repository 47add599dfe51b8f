#include "FilePresetManager.h"

#include <stdexcept>
#include <string>
#include <utility>

#include "Fnd/NullInterfaceException.h"
#include "PresetRegistry.h"
#include "QL/PresetObject.h"

namespace QL {
namespace {

// Presets reach the manager only from a manager; anything else is a wiring fault of the caller.
Fnd::InterfaceRef<PresetObject> RequireOwnPreset(const Fnd::InterfaceRef<IQLPreset>& preset,
                                                 const char* operation) {
    if (!preset)
        throw Fnd::NullInterfaceException(std::string("QL::IQLPresetManager::") + operation +
                                          ": null preset");
    auto own = PresetObject::From(preset);
    if (!own)
        throw std::invalid_argument(std::string("QL::IQLPresetManager::") + operation +
                                    ": the preset was not made by the preset service");
    return own;
}

} // namespace

FilePresetManager::FilePresetManager(std::shared_ptr<PresetRegistry> registry)
    : registry_(std::move(registry)) {}

void FilePresetManager::AddRef() {
    count_.fetch_add(1, std::memory_order_relaxed);
}

void FilePresetManager::Release() {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

Fnd::QueryResult FilePresetManager::QueryInterface(const Fnd::InterfaceID& id, void** out) {
    if (id == IQLPresetManager::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
        AddRef();
        *out = static_cast<IQLPresetManager*>(this);
        return Fnd::kQueryOK;
    }
    *out = nullptr;
    return Fnd::kQueryNoInterface;
}

_QLPresetCategory FilePresetManager::GetCategory() const {
    return registry_->Category();
}

Fnd::InterfaceRef<IQLPreset> FilePresetManager::CreatePreset() {
    return Fnd::InterfaceRef<IQLPreset>(PresetObject::Create(registry_->Category()).get());
}

PresetList FilePresetManager::GetUserPresets(bool) {
    return registry_->UserPresets();
}

PresetList FilePresetManager::GetSystemPresets() {
    return registry_->SystemPresets();
}

QLPresetStatus FilePresetManager::SavePreset(const Fnd::InterfaceRef<IQLPreset>& preset,
                                             const Fnd::WString& name, const Fnd::WString&, bool overwrite,
                                             const Fnd::WString&) {
    return registry_->Save(*RequireOwnPreset(preset, "SavePreset"), name, overwrite);
}

Fnd::InterfaceRef<IQLPreset> FilePresetManager::InstallPreset(const Fnd::WString& path) {
    if (path.empty())
        return nullptr;
    return registry_->Install(Fnd::ToUTF8(path));
}

QLPresetStatus FilePresetManager::DeletePreset(const Fnd::InterfaceRef<IQLPreset>& preset) {
    return registry_->Delete(*RequireOwnPreset(preset, "DeletePreset"));
}

} // namespace QL
