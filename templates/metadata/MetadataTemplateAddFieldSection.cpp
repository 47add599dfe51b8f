#include "templates/metadata/MetadataTemplateAddFieldSection.h"

#include "QL/PresetFieldFactory.h"
#include "fluxcore/ZString.h"
#include "shell/resources/IngestResources.h"
#include "templates/section/PresetManagementSection.h"

namespace IGD {
namespace {

constexpr int kAddFieldDecal = 5;

} // namespace

MetadataTemplateAddFieldSection::MetadataTemplateAddFieldSection()
    : PresetManagementAddFieldSection("igdMetadataTemplateAddField") {}

void MetadataTemplateAddFieldSection::BindControls() {
    PresetManagementAddFieldSection::BindControls();
    addButton_ = BindControl<fluxui::controls::UI_PictureButton>("UI_PictureButton");
    addButton_->SetImageSupplyFunction(IngestResources::ImageSupplyFunction(kAddFieldDecal));
    addButton_->UI_SetToolTip(
        fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/addPresetFieldTooltip=Add Preset Field"));
}

void MetadataTemplateAddFieldSection::WireControls() {
    PresetManagementAddFieldSection::WireControls();
    addButton_->NotifyWhenChanged([this](const fluxui::controls::UI_ControlMessage&) {
        if (PresetManagementSection* section = OwnerSection())
            section->AddField(QL::CreatePresetField(QL::kQLFieldMetadata));
    });
}

} // namespace IGD
