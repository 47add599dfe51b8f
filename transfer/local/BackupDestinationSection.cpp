#include "transfer/local/BackupDestinationSection.h"

#include <stdexcept>

#include "fluxcore/ZString.h"
#include "shell/resources/IngestResources.h"
#include "transfer/local/LocalTransferSection.h"
#include "transfer/local/TransferLayouts.h"
#include "transfer/path/PathSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"

namespace IGD {
namespace {

using fluxcore::Localize;
using fluxui::controls::UI_ControlMessage;

constexpr int kRemoveDecal = 7;

// Two digits at least, so that the captions line up: 1 gives 01, 123 gives 123.
Fnd::WString PaddedNumber(std::uint32_t number) {
    std::string digits = std::to_string(number);
    if (digits.size() < 2)
        digits.insert(0, 2 - digits.size(), '0');
    return Fnd::WString(digits.begin(), digits.end());
}

} // namespace

BackupDestinationSection::BackupDestinationSection(std::string layoutName, std::uint32_t destinationIndex,
                                                   std::shared_ptr<IngestSettingsController> settings)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), settings_(std::move(settings)),
      destinationIndex_(destinationIndex) {
    if (!settings_)
        throw std::invalid_argument("BackupDestinationSection: no settings controller");
}

BackupDestinationSection::~BackupDestinationSection() = default;

void BackupDestinationSection::SetDestinationIndex(std::uint32_t index) {
    destinationIndex_ = index;
    RefreshCaption();
}

void BackupDestinationSection::BindControls() {
    backupCheckbox_ = BindControl<fluxui::controls::UI_Checkbox>("BackupDestinationCheckbox");
    if (settings_->IsKilnHosted())
        return;
    removeButton_ = BindControl<fluxui::controls::UI_PictureButton>("RemovePictureButton");
    removeButton_->SetImageSupplyFunction(IngestResources::ImageSupplyFunction(kRemoveDecal));
    removeButton_->UI_SetToolTip(
        Localize("$$$/Quillon/Libraries/IngestDialog/BackupDestination/RemovePictureButtonTooltip=Remove"));
}

void BackupDestinationSection::WireControls() {
    backupCheckbox_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) {
        const bool on = backupCheckbox_->IsChecked();
        settings_->SetDestinationEnabled(static_cast<std::int32_t>(destinationIndex_), on);
        SetAllChildrenEnabled(on);
        settings_->NotifySettingsChanged();
    });
    if (!removeButton_)
        return;
    removeButton_->NotifyWhenChangedInteractively([this](const UI_ControlMessage&) {
        auto* parent = dynamic_cast<LocalTransferSection*>(GetParentSection());
        if (!parent)
            return;
        // The removal releases the parent's hold on this section while its button is still talking.
        const boost::intrusive_ptr<BackupDestinationSection> keep(this);
        parent->RemoveBackup(this, destinationIndex_);
    });
}

void BackupDestinationSection::CreateChildSections() {
    const TransferLayouts& layouts = TransferLayouts::For(settings_->IsKilnHosted());
    pathSection_ = new PathSettingSection(layouts.path, destinationIndex_, settings_);
    transcodeSection_ = new TranscodeSettingSection(layouts.transcode, destinationIndex_, settings_);
    InsertChildSection(pathSection_);
    InsertChildSection(transcodeSection_);
    RefreshCaption();
}

void BackupDestinationSection::LoadFromSettings() {
    const bool on = settings_->IsDestinationEnabled(static_cast<std::int32_t>(destinationIndex_));
    backupCheckbox_->SetChecked(on);
    SetAllChildrenEnabled(on);
}

void BackupDestinationSection::RefreshCaption() {
    if (pathSection_)
        pathSection_->SetDestinationIndex(destinationIndex_);
    if (transcodeSection_)
        transcodeSection_->SetDestinationIndex(destinationIndex_);
    // A host's second destination exists to transcode: its box says so, with no number.
    if (settings_->IsKilnHosted())
        backupCheckbox_->SetText(
            Localize("$$$/Quillon/Libraries/IngestDialog/DestinationTranscode=Transcode files to Destination"));
    else
        backupCheckbox_->SetText(
            Localize("$$$/Quillon/Libraries/IngestDialog/DestinationIndex=Destination @0:", {PaddedNumber(destinationIndex_)}));
}

} // namespace IGD
