// What a host that embeds the settings view calls around it. The view writes to the process's
// settings at every change, so the exchange goes through those settings, never the view.
#include "IGD/IngestSettingsApi.h"
#include "QL/IQLPresetManager.h"
#include "pipeline/checks/TemplateChecks.h"
#include "pipeline/naming/OutputNames.h"
#include "settings/IngestSettingsController.h"

namespace IGD {
namespace {

// The user preset of exactly this path, or null. System presets are not offered to a host; a
// host without a preset service simply has none to pick.
PresetRef FindUserPreset(QL::_QLPresetCategory category, const Fnd::WString& path) {
    const Fnd::InterfaceRef<QL::IQLPresetManager> manager = QL::InstantiateQLPresetManager(category);
    if (!manager)
        return {};
    for (const PresetRef& preset : manager->GetUserPresets(false)) {
        if (preset->GetPath() == path)
            return preset;
    }
    return {};
}

} // namespace

IngestDialogDataRef GetIngestSettings(const IngestViewRef& view) {
    const IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
    const std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    if (view)
        settings->ApplyToDialogData(*session);
    GenerateOutputNamesNow(*session, settings->GetUserDefAutoIncStartNumber());
    return session;
}

void SetIngestSettings(IngestDialogDataRef& session, const Fnd::WString& renamePresetPath,
                       const Fnd::WString& metadataPresetPath) {
    if (!renamePresetPath.empty()) {
        if (const PresetRef preset = FindUserPreset(QL::kQLPresetCategoryRename, renamePresetPath))
            session->SetRenamePreset(preset);
    }
    if (!metadataPresetPath.empty()) {
        if (const PresetRef preset = FindUserPreset(QL::kQLPresetCategoryMetadata, metadataPresetPath))
            session->SetMetadataPreset(preset);
    }
    IngestSettingsController::GetInstance()->ReadFromDialogData(*session);
}

bool CheckIngestSettings(const IngestViewRef& view) {
    if (!view)
        return true;
    const IngestDialogDataRef session = GetIngestSettings(view);
    fluxui::ui::UI_Node* parent = view->UI_GetRootNode();
    return CheckRenameTemplate(*session, parent) && CheckMetadataTemplate(*session, parent);
}

void SavePersistedData() {
    IngestSettingsController::GetInstance()->SaveDestinations();
}

} // namespace IGD
