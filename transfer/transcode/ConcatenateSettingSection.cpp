#include "transfer/transcode/ConcatenateSettingSection.h"

#include <stdexcept>

#include "transfer/transcode/TranscodeTarget.h"

namespace IGD {
namespace {

// Takes the keyboard to the name edit when stitching asks for a name, and lets it go otherwise.
void FocusNameEdit(fluxui::controls::UI_TextEdit& edit, bool wanted) {
    if (wanted)
        edit.UI_GainKeyboardFocus();
    else
        edit.UI_LoseKeyboardFocus();
}

} // namespace

ConcatenateSettingSection::ConcatenateSettingSection(std::shared_ptr<IngestSettingsController> settings,
                                                     std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("ConcatenateSettingSection: no settings controller");
}

void ConcatenateSettingSection::BindControls() {
    concatenateCheckbox_ = BindControl<fluxui::controls::UI_Checkbox>("ConcatenateCheckbox");
    concatenateStaticText_ = BindControl<fluxui::controls::UI_StaticText>("ConcatenateStaticText");
    concatenateEdit_ = BindControl<fluxui::controls::UI_TextEdit>("ConcatenateTextEdit");
}

void ConcatenateSettingSection::WireControls() {
    concatenateCheckbox_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { StitchToggled(); });
    concatenateEdit_->NotifyWhenChangedInteractively([this](const fluxui::controls::UI_ControlMessage&) {
        if (concatenateCheckbox_->IsChecked())
            Store();
    });
}

void ConcatenateSettingSection::Store() {
    // Until its own load the box has not shown the stored choice, so there is nothing of the
    // user's to store; the transcode section above stores through here while it loads first.
    if (!loaded_)
        return;
    const auto setting = FindTranscodeTarget(*settings_, 0).setting;
    if (!setting)
        return;
    setting->concatenate = IsContentEnabled() && concatenateCheckbox_->IsChecked();
    setting->concatenateName = Fnd::Trim(concatenateEdit_->GetValue(), u" \t");
    // The check that refuses the name runs when the dialog is long built; the edit it points
    // the user to lives on with the setting, whatever became of this section.
    setting->nameErrorCallback = [edit = concatenateEdit_](bool error) { FocusNameEdit(*edit, error); };
}

void ConcatenateSettingSection::StitchToggled() {
    Store();
    const bool on = IsContentEnabled() && concatenateCheckbox_->IsChecked();
    concatenateCheckbox_->SetChecked(on);
    concatenateStaticText_->SetDisabled(!on);
    concatenateEdit_->SetDisabled(!on);
    FocusNameEdit(*concatenateEdit_, on);
}

void ConcatenateSettingSection::LoadFromSettings() {
    loaded_ = true;
    const auto setting = FindTranscodeTarget(*settings_, 0).setting;
    if (!setting)
        return;
    // The name is not kept between sessions: the edit keeps what it holds.
    const bool on = setting->concatenate;
    concatenateCheckbox_->SetChecked(on);
    Store();
    concatenateCheckbox_->SetChecked(on);
    concatenateStaticText_->SetDisabled(!on);
    concatenateEdit_->SetDisabled(!on);
}

} // namespace IGD
