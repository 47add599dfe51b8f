#include "transfer/local/LocalTransferSection.h"

#include <stdexcept>

#include "IGD/FileDialogs.h"
#include "fluxcore/ZString.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "transfer/SectionTree.h"
#include "transfer/local/AddDestinationSection.h"
#include "transfer/local/BackupDestinationSection.h"
#include "transfer/local/PrimaryDestinationSection.h"
#include "transfer/local/TransferLayouts.h"

namespace IGD {
namespace {

using fluxcore::Localize;

} // namespace

LocalTransferSection::LocalTransferSection(const Fnd::WString& title, std::string layoutName,
                                           std::shared_ptr<IngestSettingsController> settings)
    : PowerSwitchSectionView(title, std::move(layoutName)), settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("LocalTransferSection: no settings controller");
}

LocalTransferSection::~LocalTransferSection() = default;

void LocalTransferSection::BindControls() {
    PowerSwitchSectionView::BindControls();
    SetPowerTooltips(
        Localize("$$$/Quillon/Handlers/MediaCollection/TransferPowerOnBtnToolTip=Enable Transfer Clips to Destination"),
        Localize("$$$/Quillon/Handlers/MediaCollection/TransferPowerOffBtnToolTip=Disable Transfer Clips to Destination"));
    transferClipsCheckbox_ = BindControl<fluxui::controls::UI_Checkbox>("TransferClipsCheckbox");
}

void LocalTransferSection::WireControls() {
    PowerSwitchSectionView::WireControls();
    if (settings_->GetSettingsLocked()) {
        // The site decides where media goes; nothing here may say otherwise.
        SetPowerState(false);
        SetPowerEnabled(false);
        transferClipsCheckbox_->SetDisabled(true);
        return;
    }
    // A power click changes no option the host would save, so the host is not told.
    AddPowerCallback([this](bool on) { SetTransfer(on); });
    AddOpenedStateChangedCallback([this](bool) { settings_->SetTransferSectionOpened(GetOpened()); });
    transferClipsCheckbox_->NotifyWhenChangedInteractively([this](const fluxui::controls::UI_ControlMessage&) {
        SetTransfer(transferClipsCheckbox_->IsChecked());
        settings_->NotifySettingsChanged();
    });
    if (settings_->IsKilnHosted())
        transferClipsCheckbox_->SetChecked(settings_->IsDestinationEnabled(0));
}

void LocalTransferSection::SetTransfer(bool on) {
    if (settings_->IsKilnHosted()) {
        // The box governs the copy to the host's first destination only; the second, which
        // transcodes, stays as it is.
        settings_->SetDestinationEnabled(0, on);
        SetChildEnabled(0, on);
        return;
    }
    settings_->SetTransferDisabled(!on);
    transferClipsCheckbox_->SetChecked(on);
    SetPowerState(on);
    SetAllChildrenEnabled(on);
}

void LocalTransferSection::CreateChildSections() {
    const TransferLayouts& layouts = TransferLayouts::For(settings_->IsKilnHosted());
    primarySection_ = new PrimaryDestinationSection(layouts.primaryHeader, settings_);
    InsertChildSection(primarySection_);
    if (layouts.addDestination) {
        addDestinationSection_ = new AddDestinationSection(layouts.addDestination);
        InsertChildSection(addDestinationSection_);
    }
    if (settings_->GetSettingsLocked())
        SetAllChildrenEnabled(false);
}

void LocalTransferSection::LoadFromSettings() {
    // Loading again follows the controller afresh rather than stacking a second set of backups.
    for (const auto& section : backupSections_)
        RemoveChildSection(section.get(), true);
    backupSections_.clear();

    const TransferLayouts& layouts = TransferLayouts::For(settings_->IsKilnHosted());
    const auto& destinations = settings_->GetDestinations();
    for (std::size_t index = 1; index < destinations.size(); ++index) {
        if (!destinations[index].destination)
            continue;
        InsertBackup(new BackupDestinationSection(layouts.backupHeader, static_cast<std::uint32_t>(index), settings_));
    }
    if (settings_->IsKilnHosted()) {
        const bool copying = settings_->IsDestinationEnabled(0);
        transferClipsCheckbox_->SetChecked(copying);
        SetChildEnabled(0, copying);
    } else {
        SetTransfer(!settings_->IsImportOnly());
    }
    if (settings_->GetSettingsLocked()) {
        SetPowerState(false);
        SetAllChildrenEnabled(false);
    }
    SetOpened(settings_->GetTransferSectionOpened());
    UpdateSectionLayout();
}

void LocalTransferSection::InsertBackup(const boost::intrusive_ptr<BackupDestinationSection>& section) {
    backupSections_.push_back(section);
    InsertChildSection(section, addDestinationSection_.get());
    BuildAddedSection(*section);
    section->UI_Show(true);
}

void LocalTransferSection::AddBackup() {
    const Fnd::WString path = BrowseForDestination(Fnd::WString(), 0);
    if (path.empty())
        return;
    const std::int32_t index = settings_->AddBackupDestination(path);
    // Only a normal application has the add button, so the normal family is the one to use.
    boost::intrusive_ptr<BackupDestinationSection> section(new BackupDestinationSection(
        TransferLayouts::For(false).backupHeader, static_cast<std::uint32_t>(index), settings_));
    InsertBackup(section);
    wrangler::ui::ApplySettingsToTree(*section);
    UpdateSectionLayout();
    ScrollAddButtonIntoView();
}

void LocalTransferSection::ScrollAddButtonIntoView() {
    if (!addDestinationSection_)
        return;
    // Children sit below the header, and this section sits in the scroll view's content.
    fluxcore::geom::RectF rect = addDestinationSection_->UI_GetLocalRectF(true);
    const fluxcore::geom::RectF own = UI_GetLocalRectF(true);
    rect.left += own.left;
    rect.top += own.top + GetHeaderHeight();
    for (fluxui::ui::UI_Node* node = UI_GetParentNode(); node; node = node->UI_GetParentNode())
        if (auto* scroll = dynamic_cast<fluxui::controls::UI_ScrollView*>(node)) {
            scroll->ScrollIntoView(rect, true);
            return;
        }
}

void LocalTransferSection::RemoveBackup(BackupDestinationSection* section, std::uint32_t index) {
    if (index < 1 || index > backupSections_.size())
        throw std::out_of_range("LocalTransferSection::RemoveBackup: no backup at that index");
    RemoveChildSection(section, false);
    settings_->RemoveDestination(static_cast<std::int32_t>(index));
    backupSections_.erase(backupSections_.begin() + (index - 1));
    for (std::size_t position = index - 1; position < backupSections_.size(); ++position)
        backupSections_[position]->SetDestinationIndex(static_cast<std::uint32_t>(position + 1));
    UpdateSectionLayout();
}

} // namespace IGD
