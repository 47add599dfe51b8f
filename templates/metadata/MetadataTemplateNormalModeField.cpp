#include "templates/metadata/MetadataTemplateNormalModeField.h"

#include "fluxcore/ZString.h"
#include "templates/section/PresetManagementSection.h"

namespace IGD {

MetadataTemplateNormalModeField::MetadataTemplateNormalModeField(PresetFieldRef field)
    : PresetManagementNormalModeField("igdMetadataTemplateNormalModeField", std::move(field)) {}

void MetadataTemplateNormalModeField::BindControls() {
    PresetManagementNormalModeField::BindControls();
    label_ = BindControl<fluxui::controls::UI_StaticText>("UI_StaticText");
    valueEdit_ = BindControl<AutoHintTextEdit>("AutoHintTextEdit");
    valueEdit_->SetHintText(
        fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/EnterMetadataValue=Input Metadata Value"));
    const PresetFieldRef& field = GetField();
    label_->SetValue(field->GetRequired() ? field->GetKey() + u" *" : field->GetKey());
    valueEdit_->SetValue(field->GetValue());
}

void MetadataTemplateNormalModeField::WireControls() {
    PresetManagementNormalModeField::WireControls();
    valueEdit_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { CommitValue(); });
}

void MetadataTemplateNormalModeField::ClearText() {
    valueEdit_->SetValue(Fnd::WString());
    CommitValue();
}

void MetadataTemplateNormalModeField::CommitValue() {
    GetField()->SetValue(valueEdit_->GetValue());
    if (PresetManagementSection* section = OwnerSection())
        section->RefreshClearTextState();
}

} // namespace IGD
