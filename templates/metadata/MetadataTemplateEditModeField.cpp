#include "templates/metadata/MetadataTemplateEditModeField.h"

#include "fluxcore/ZString.h"

namespace IGD {

using fluxcore::Localize;
using fluxui::controls::UI_ControlMessage;

MetadataTemplateEditModeField::MetadataTemplateEditModeField(PresetFieldRef field)
    : PresetManagementEditModeField("igdMetadataTemplateEditModeField", std::move(field)) {}

void MetadataTemplateEditModeField::BindControls() {
    PresetManagementEditModeField::BindControls();
    requiredCheckBox_ = BindControl<fluxui::controls::UI_Checkbox>("UI_Checkbox");
    keyEdit_ = BindControl<AutoHintTextEdit>("MetadataKey");
    valueEdit_ = BindControl<AutoHintTextEdit>("MetadataValue");

    requiredCheckBox_->UI_SetToolTip(
        Localize("$$$/Quillon/Libraries/IngestDialog/RequiredTooltip=Required Field"));
    keyEdit_->SetHintText(Localize("$$$/Quillon/Libraries/IngestDialog/EnterMetadataKey=Input Metadata Key"));
    keyEdit_->UI_SetToolTip(Localize("$$$/Quillon/Libraries/IngestDialog/MetadataKeyTooltip=Metadata Key"));
    valueEdit_->SetHintText(
        Localize("$$$/Quillon/Libraries/IngestDialog/EnterMetadataValue=Input Metadata Value"));
    valueEdit_->UI_SetToolTip(
        Localize("$$$/Quillon/Libraries/IngestDialog/MetadataValueTooltip=Metadata Value"));

    const PresetFieldRef& field = GetField();
    requiredCheckBox_->SetChecked(field->GetRequired());
    keyEdit_->SetValue(field->GetKey());
    valueEdit_->SetValue(field->GetFormat());
}

void MetadataTemplateEditModeField::WireControls() {
    PresetManagementEditModeField::WireControls();
    requiredCheckBox_->NotifyWhenChanged(
        [this](const UI_ControlMessage&) { GetField()->SetRequired(requiredCheckBox_->IsChecked()); });
    keyEdit_->NotifyWhenChanged(
        [this](const UI_ControlMessage&) { GetField()->SetKey(keyEdit_->GetValue()); });
    valueEdit_->NotifyWhenChanged(
        [this](const UI_ControlMessage&) { GetField()->SetFormat(valueEdit_->GetValue()); });
}

void MetadataTemplateEditModeField::TakeFocus() {
    keyEdit_->UI_GainKeyboardFocus();
}

} // namespace IGD
