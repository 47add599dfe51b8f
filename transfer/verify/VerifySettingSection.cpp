#include "transfer/verify/VerifySettingSection.h"

#include <stdexcept>

namespace IGD {

using fluxui::controls::UI_ControlMessage;

VerifySettingSection::VerifySettingSection(std::shared_ptr<IngestSettingsController> settings, std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("VerifySettingSection: no settings controller");
}

void VerifySettingSection::BindControls() {
    verifyCheckbox_ = BindControl<fluxui::controls::UI_Checkbox>("VerifyCheckbox");
    verifyPopup_ = BindControl<fluxui::controls::UI_Popup>("VerifyPopup");
}

void VerifySettingSection::WireControls() {
    verifyCheckbox_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) {
        Store();
        // The popup keeps its row while dimmed, so that ticking the box again brings it back.
        verifyPopup_->SetDisabled(!verifyCheckbox_->IsChecked());
        settings_->NotifySettingsChanged();
    });
    verifyPopup_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) {
        Store();
        settings_->NotifySettingsChanged();
    });
}

void VerifySettingSection::LoadFromSettings() {
    verifyPopup_->SetValue(settings_->GetVerifyOption());
    const bool on = verifyPopup_->GetValue() >= 0;
    if (!on)
        verifyPopup_->SetValue(0);
    verifyPopup_->SetDisabled(!on);
    verifyCheckbox_->SetChecked(on);
}

void VerifySettingSection::Store() {
    // A section dimmed by a transcoding primary verifies nothing.
    const bool on = IsContentEnabled() && verifyCheckbox_->IsChecked();
    settings_->SetVerifyOption(on ? verifyPopup_->GetValue() : -1);
}

} // namespace IGD
