#include "transfer/vault/VaultDestinationSection.h"

#include <stdexcept>

#include "transfer/path/PathSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"

namespace IGD {
namespace {
// A remote project has its one destination only.
constexpr std::uint32_t kPrimaryDestination = 0;
} // namespace

VaultDestinationSection::VaultDestinationSection(std::shared_ptr<IngestSettingsController> settings)
    : SectionViewEx(Fnd::WString(), "igdVaultDestinationHeader"), settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("VaultDestinationSection: no settings controller");
}

VaultDestinationSection::~VaultDestinationSection() = default;

void VaultDestinationSection::BindControls() {
    tempLocalCopyCheckbox_ = BindControl<fluxui::controls::UI_Checkbox>("TempLocalCopyCheckbox");
}

void VaultDestinationSection::WireControls() {
    tempLocalCopyCheckbox_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { CopyToggled(); });
}

void VaultDestinationSection::CreateChildSections() {
    pathSection_ = new PathSettingSection("igdPathSetting", kPrimaryDestination, settings_);
    transcodeSection_ = new TranscodeSettingSection("igdTranscodeSetting", kPrimaryDestination, settings_);
    InsertChildSection(pathSection_);
    InsertChildSection(transcodeSection_);
}

void VaultDestinationSection::LoadFromSettings() {
    const bool on = settings_->GetVaultTempLocalCopy();
    tempLocalCopyCheckbox_->SetChecked(on);
    SetAllChildrenEnabled(on);
}

// The host is not told: the copy is this machine's affair and changes nothing it embeds.
void VaultDestinationSection::CopyToggled() {
    const bool on = tempLocalCopyCheckbox_->IsChecked();
    settings_->SetVaultTempLocalCopy(on);
    SetAllChildrenEnabled(on);
}

} // namespace IGD
