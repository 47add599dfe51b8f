#include "settings/StoredPresets.h"

#include "QL/IQLPresetManager.h"

namespace IGD {
namespace {

PresetRef FindIn(const QL::PresetList& presets, const Fnd::WString& path) {
    for (const PresetRef& preset : presets)
        if (preset && preset->GetPath() == path)
            return preset;
    return {};
}

} // namespace

PresetRef FindPresetAtPath(QL::_QLPresetCategory category, const Fnd::WString& path) {
    if (path.empty())
        return {};
    const Fnd::InterfaceRef<QL::IQLPresetManager> manager = QL::InstantiateQLPresetManager(category);
    if (!manager)
        return {};
    if (PresetRef preset = FindIn(manager->GetUserPresets(false), path))
        return preset;
    return FindIn(manager->GetSystemPresets(), path);
}

} // namespace IGD
