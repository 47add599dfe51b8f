#include "transfer/vault/VaultTransferSection.h"

#include <stdexcept>

#include "fluxcore/ZString.h"
#include "transfer/vault/VaultDestinationSection.h"

namespace IGD {

VaultTransferSection::VaultTransferSection(std::shared_ptr<IngestSettingsController> settings)
    : SectionViewEx(fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/TransferOptionsTitle=Transfer"),
                    "igdVaultTransferHeader"),
      settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("VaultTransferSection: no settings controller");
}

VaultTransferSection::~VaultTransferSection() = default;

void VaultTransferSection::BindControls() {
    destinationStaticText_ = BindControl<fluxui::controls::UI_StaticText>("DestinationStaticText");
}

void VaultTransferSection::WireControls() {
    if (settings_->GetSettingsLocked())
        destinationStaticText_->UI_SetDisabled(true);
    AddOpenedStateChangedCallback([this](bool opened) { settings_->SetTransferSectionOpened(opened); });
}

void VaultTransferSection::CreateChildSections() {
    vaultDestinationSection_ = new VaultDestinationSection(settings_);
    InsertChildSection(vaultDestinationSection_);
    if (settings_->GetSettingsLocked())
        SetAllChildrenEnabled(false);
}

void VaultTransferSection::LoadFromSettings() {
    destinationStaticText_->SetValue(settings_->GetVaultDestinationText());
    SetOpened(settings_->GetTransferSectionOpened());
}

} // namespace IGD
