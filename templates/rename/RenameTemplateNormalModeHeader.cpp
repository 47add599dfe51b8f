#include "templates/rename/RenameTemplateNormalModeHeader.h"

#include "templates/section/PresetManagementSection.h"

namespace IGD {

RenameTemplateNormalModeHeader::RenameTemplateNormalModeHeader(bool kilnHosted)
    : PresetManagementNormalModeHeader(kilnHosted ? "igdKilnHostedPresetManagementNormalModeHeader"
                                                  : "igdPresetManagementNormalModeHeader") {}

void RenameTemplateNormalModeHeader::LoadFromSettings() {
    const IngestSettingsController& settings = Section().Settings();
    LoadSelection(settings.GetRenamePresetPath(), settings.GetRenameApplyScope());
}

void RenameTemplateNormalModeHeader::StoreCurrentPreset(const PresetRef& preset) {
    Section().Settings().SetRenamePreset(preset);
}

void RenameTemplateNormalModeHeader::StoreApplyScope(std::uint32_t scope) {
    Section().Settings().SetRenameApplyScope(scope);
}

} // namespace IGD
