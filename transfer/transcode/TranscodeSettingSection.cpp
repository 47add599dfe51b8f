#include "transfer/transcode/TranscodeSettingSection.h"

#include "Mid/PresetManager.h"
#include "Proj/PreferenceAccess.h"
#include "settings/SettingKeys.h"
#include "transfer/local/PrimaryDestinationSection.h"
#include "transfer/transcode/ConcatenateSettingSection.h"
#include "transfer/transcode/TranscodeTarget.h"
#include "transfer/verify/VerifySettingSection.h"

namespace IGD {

TranscodeSettingSection::TranscodeSettingSection(std::string layoutName, std::uint32_t destinationIndex,
                                                 std::shared_ptr<IngestSettingsController> settings)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), settings_(std::move(settings)),
      destinationIndex_(destinationIndex) {
    if (!settings_)
        throw std::invalid_argument("TranscodeSettingSection: no settings controller");
}

TranscodeSettingSection::~TranscodeSettingSection() = default;

void TranscodeSettingSection::BindControls() {
    parentPrimarySection_ = dynamic_cast<PrimaryDestinationSection*>(GetParentSection());
    detailSettingsView_ = BindControl<fluxui::ui::UI_SubView>("DetailSettingsView");
    // The hosted family transcodes its backups always, so its layout has no box to ask.
    if (!settings_->IsKilnHosted())
        transcodeCheckbox_ = BindControl<fluxui::controls::UI_Checkbox>("TranscodeCheckbox");
    formatStaticText_ = BindControl<fluxui::controls::UI_StaticText>("FormatStaticText");
    presetStaticText_ = BindControl<fluxui::controls::UI_StaticText>("PresetStaticText");
    formatPopup_ = BindControl<fluxui::controls::UI_Popup>("FormatPopup");
    presetPopup_ = BindControl<fluxui::controls::UI_Popup>("PresetPopup");
    settings_->FillFormatPopup(*formatPopup_);
    formatPopup_->SetValue(0);
    settings_->FillPresetPopup(*presetPopup_, static_cast<std::int32_t>(destinationIndex_), 0);
    presetPopup_->SetValue(0);
}

void TranscodeSettingSection::WireControls() {
    if (transcodeCheckbox_)
        transcodeCheckbox_->NotifyWhenChangedInteractively(
            [this](const fluxui::controls::UI_ControlMessage&) { TranscodeToggled(); });
    formatPopup_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { FormatChanged(); });
    presetPopup_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { PresetChanged(); });
}

void TranscodeSettingSection::CreateChildSections() {
    // Only the primary (or a remote project's one destination) stitches; a backup is a copy.
    if (destinationIndex_ != 0)
        return;
    concatenateSection_ = new ConcatenateSettingSection(settings_);
    InsertChildSection(concatenateSection_);
}

bool TranscodeSettingSection::IsTranscodeChecked() const {
    return !transcodeCheckbox_ || transcodeCheckbox_->IsChecked();
}

void TranscodeSettingSection::Store() {
    const TranscodeTarget target = FindTranscodeTarget(*settings_, destinationIndex_);
    if (!target.setting)
        return;
    QL::IngestTask::TranscodeSetting& setting = *target.setting;
    setting.enabled = IsTranscodeChecked();
    const std::vector<Mid::ExporterRef>& exporters = Mid::PresetManager::GetInstance().GetEncoderList();
    const int row = formatPopup_->GetValue();
    setting.exporter = row >= 0 && static_cast<std::size_t>(row) < exporters.size()
                           ? exporters[static_cast<std::size_t>(row)]
                           : nullptr;
    setting.exporterName = formatPopup_->GetValueString();
    setting.presetName = presetPopup_->GetValueString();
    IngestSettingsController::RememberPreset(*target.record, presetPopup_->GetValue());
}

void TranscodeSettingSection::EnableDetails(bool on) {
    detailSettingsView_->UI_SetDisabled(!on);
    if (destinationIndex_ == 0 && concatenateSection_) {
        concatenateSection_->SetContentEnabled(settings_->IsTranscodeAvailable() && on);
        concatenateSection_->Store();
    }
}

void TranscodeSettingSection::CoupleVerification() {
    // A transcoded primary is not a copy of its source, so there is nothing to verify it against.
    if (destinationIndex_ == 0 && parentPrimarySection_)
        parentPrimarySection_->GetVerifySection().SetContentEnabled(!transcodeCheckbox_ ||
                                                                    !transcodeCheckbox_->IsChecked());
}

void TranscodeSettingSection::LoadFromSettings() {
    const bool available = settings_->IsTranscodeAvailable();
    SetContentEnabled(available);
    const TranscodeTarget target = FindTranscodeTarget(*settings_, destinationIndex_);
    if (!target.record || !target.record->destination)
        return;
    if (target.setting) {
        const QL::IngestTask::TranscodeSetting& setting = *target.setting;
        if (transcodeCheckbox_)
            transcodeCheckbox_->SetChecked(setting.enabled && available);

        // A stored exporter or preset that is gone turns transcoding off for this session rather
        // than transcode with something the user never chose.
        formatPopup_->SetValueString(setting.exporterName, true, true);
        const bool exporterFound = formatPopup_->GetValue() >= 0;
        if (!exporterFound)
            formatPopup_->SetValue(0);
        settings_->FillPresetPopup(*presetPopup_, static_cast<std::int32_t>(destinationIndex_),
                                   formatPopup_->GetValue());
        if (exporterFound)
            presetPopup_->SetValueString(setting.presetName, true, true);
        if (!exporterFound || presetPopup_->GetValue() < 0) {
            presetPopup_->SetValue(0);
            if (transcodeCheckbox_)
                transcodeCheckbox_->SetChecked(false);
        }

        bool keepTranscodeState = kKeepTranscodeState.defaultValue;
        ReadPreference(*Proj::GetPreferences(), kKeepTranscodeState, keepTranscodeState);
        if (!keepTranscodeState && transcodeCheckbox_)
            transcodeCheckbox_->SetChecked(false);

        Store();
        EnableDetails(target.setting->enabled);
    }
    CoupleVerification();
}

void TranscodeSettingSection::TranscodeToggled() {
    Store();
    EnableDetails(IsTranscodeChecked());
    CoupleVerification();
}

void TranscodeSettingSection::FormatChanged() {
    // A clear box keeps its popups as they are: the choice counts only once transcoding is on.
    if (!IsTranscodeChecked())
        return;
    settings_->FillPresetPopup(*presetPopup_, static_cast<std::int32_t>(destinationIndex_),
                               formatPopup_->GetValue());
    presetPopup_->SetValue(0);
    Store();
    settings_->NotifySettingsChanged();
}

void TranscodeSettingSection::PresetChanged() {
    if (!IsTranscodeChecked())
        return;
    Store();
    settings_->NotifySettingsChanged();
}

} // namespace IGD
