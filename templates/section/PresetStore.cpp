#include "templates/section/PresetStore.h"

#include <algorithm>

#include "QL/PresetNames.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {

void PresetStore::Load(QL::_QLPresetCategory presetCategory) {
    category = presetCategory;
    manager = QL::InstantiateQLPresetManager(category);
    systemPresets.clear();
    userPresets.clear();
    if (!manager)
        return;
    systemPresets = manager->GetSystemPresets();
    userPresets = manager->GetUserPresets(false);
}

QL::QLPresetStatus PresetStore::SavePresetFields(const Fnd::WString& name, bool isNew,
                                                 const QL::PresetFieldList& fields) {
    if (!manager)
        return QL::kPresetNoManager;
    PresetRef preset = isNew ? manager->CreatePreset() : current;
    if (!preset)
        return QL::kPresetNoManager;
    QL::PresetFieldList oldFields;
    if (!isNew)
        oldFields = preset->GetFields();
    preset->SetFields(fields);
    preset->SetName(name);
    const QL::QLPresetStatus status = manager->SavePreset(preset, name, Fnd::WString(), !isNew, name);
    if (QL::PresetSucceeded(status)) {
        if (isNew)
            InsertUserPreset(preset);
        current = preset;
        return status;
    }
    if (status == QL::kPresetNameExists)
        fluxui::dialogs::messagebox::ShowStop(
            nullptr, fluxcore::Localize("$$$/Quillon/Ingest/Failure/SavePresetExists=Save Preset"),
            fluxcore::Localize("$$$/Quillon/Ingest/Failure/SavePresetExistsInfo=Cannot save this preset. A "
                               "preset file with the same name already exists."),
            nullptr);
    // The preset in the list must still be what its file says; its name is not taken back.
    if (!isNew)
        preset->SetFields(oldFields);
    return status;
}

QL::QLPresetStatus PresetStore::DeleteCurrent() {
    if (!manager || !current)
        return QL::kPresetNoManager;
    const QL::QLPresetStatus status = manager->DeletePreset(current);
    if (!QL::PresetSucceeded(status))
        return status;
    std::erase_if(userPresets, [this](const PresetRef& each) { return each.get() == current.get(); });
    current = nullptr;
    return status;
}

PresetRef PresetStore::Install(const Fnd::WString& path) {
    if (!manager || path.empty())
        return {};
    PresetRef installed = manager->InstallPreset(path);
    if (!installed)
        return {};
    InsertUserPreset(installed);
    current = installed;
    return installed;
}

void PresetStore::InsertUserPreset(const PresetRef& preset) {
    const Fnd::WString path = preset->GetPath();
    std::erase_if(userPresets,
                  [&path](const PresetRef& each) { return Fnd::EqualsIgnoringASCIICase(each->GetPath(), path); });
    userPresets.push_back(preset);
    std::stable_sort(userPresets.begin(), userPresets.end(), [](const PresetRef& a, const PresetRef& b) {
        return QL::PresetNameLess(a->GetName(true), b->GetName(true));
    });
}

} // namespace IGD
