#include "PresetLookup.h"

#include "QL/FilePresetService.h"
#include "QL/PresetService.h"

namespace igd {

IGD::PresetRef FindPreset(QL::_QLPresetCategory category, const Fnd::WString& name) {
    if (!QL::GetPresetService())
        QL::InstallFilePresetService();
    const auto manager = QL::InstantiateQLPresetManager(category);
    for (const auto& preset : manager->GetUserPresets(false))
        if (preset->GetName(true) == name)
            return preset;
    for (const auto& preset : manager->GetSystemPresets())
        if (preset->GetName(true) == name)
            return preset;
    return {};
}

} // namespace igd
