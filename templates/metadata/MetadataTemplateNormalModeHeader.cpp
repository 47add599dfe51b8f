#include "templates/metadata/MetadataTemplateNormalModeHeader.h"

#include "templates/section/PresetManagementSection.h"

namespace IGD {

MetadataTemplateNormalModeHeader::MetadataTemplateNormalModeHeader(std::string layoutName)
    : PresetManagementNormalModeHeader(std::move(layoutName)) {}

void MetadataTemplateNormalModeHeader::LoadFromSettings() {
    const IngestSettingsController& settings = Section().Settings();
    LoadSelection(settings.GetMetadataPresetPath(), settings.GetMetadataApplyScope());
}

void MetadataTemplateNormalModeHeader::StoreCurrentPreset(const PresetRef& preset) {
    Section().Settings().SetMetadataPreset(preset);
}

void MetadataTemplateNormalModeHeader::StoreApplyScope(std::uint32_t scope) {
    Section().Settings().SetMetadataApplyScope(scope);
}

} // namespace IGD
