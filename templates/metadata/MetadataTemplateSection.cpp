#include "templates/metadata/MetadataTemplateSection.h"

#include "fluxcore/ZString.h"
#include "templates/metadata/MetadataTemplateAddFieldSection.h"
#include "templates/metadata/MetadataTemplateEditModeFieldsContainer.h"
#include "templates/metadata/MetadataTemplateEditModeHeader.h"
#include "templates/metadata/MetadataTemplateNormalModeFieldsContainer.h"
#include "templates/metadata/MetadataTemplateNormalModeHeader.h"
#include "templates/metadata/ValidateMetadataName.h"

namespace IGD {

using fluxcore::Localize;

MetadataTemplateSection::MetadataTemplateSection(std::shared_ptr<IngestSettingsController> settings)
    : PresetManagementSection(
          Localize("$$$/Quillon/Libraries/IngestDialog/MetadataTemplateOptionsTitle=File Metadata"),
          "igdMetadataTemplateHeader", std::move(settings)) {}

void MetadataTemplateSection::BindControls() {
    PresetManagementSection::BindControls();
    SetPowerTooltips(
        Localize(
            "$$$/Quillon/Handlers/MediaCollection/FileMetadataPowerOnBtnToolTip=Enable Add File Metadata"),
        Localize(
            "$$$/Quillon/Handlers/MediaCollection/FileMetadataPowerOffBtnToolTip=Disable Add File Metadata"));
    enableCheckBox_->UI_SetToolTip(Localize(
        "$$$/Quillon/Ingest/EnableMetadataTemplateTooltip=If enabled, the selected metadata preset will "
        "be applied to the ingested clips. See help for more information."));
}

void MetadataTemplateSection::WireControls() {
    PresetManagementSection::WireControls();
    AddOpenedStateChangedCallback([this](bool opened) { Settings().SetMetadataSectionOpened(opened); });
}

void MetadataTemplateSection::CreateChildSections() {
    normalHeader_ = new MetadataTemplateNormalModeHeader(Settings().IsKilnHosted()
                                                             ? "igdKilnHostedPresetManagementNormalModeHeader"
                                                             : "igdPresetManagementNormalModeHeader");
    editHeader_ = new MetadataTemplateEditModeHeader();
    normalFields_ = new MetadataTemplateNormalModeFieldsContainer();
    editFields_ = new MetadataTemplateEditModeFieldsContainer();
    addField_ = new MetadataTemplateAddFieldSection();
    InsertChildSection(normalHeader_);
    InsertChildSection(editHeader_);
    InsertChildSection(normalFields_);
    InsertChildSection(editFields_);
    InsertChildSection(addField_);
}

void MetadataTemplateSection::LoadFromSettings() {
    LoadStore(QL::kQLPresetCategoryMetadata);
    ApplyStoredEnabled(Settings().GetEnableMetadataTemplate());
    SetOpened(Settings().GetMetadataSectionOpened());
}

void MetadataTemplateSection::SetEditMode(bool editing) {
    PresetManagementSection::SetEditMode(editing);
    Settings().SetMetadataEditMode(editing);
}

void MetadataTemplateSection::StoreEnabled(bool enabled) {
    Settings().SetEnableMetadataTemplate(enabled);
}

bool MetadataTemplateSection::ValidatePresetName(const Fnd::WString& name) {
    return PresetManagementSection::ValidatePresetName(name) && ValidateMetadataName(name, this, true);
}

} // namespace IGD
