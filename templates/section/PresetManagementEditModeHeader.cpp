#include "templates/section/PresetManagementEditModeHeader.h"

namespace IGD {

PresetManagementEditModeHeader::PresetManagementEditModeHeader(std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)) {}

void PresetManagementEditModeHeader::BindControls() {
    SectionViewEx::BindControls();
    presetName_ = BindControl<fluxui::controls::UI_StaticText>("PresetName");
}

void PresetManagementEditModeHeader::SetPresetName(const Fnd::WString& name) {
    presetName_->SetValue(name);
}

Fnd::WString PresetManagementEditModeHeader::GetPresetName() const {
    return presetName_->GetValue();
}

} // namespace IGD
