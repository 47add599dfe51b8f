#include "shell/settingspane/IngestSettingsSectionContainer.h"

#include <stdexcept>

#include "fluxcore/ZString.h"
#include "shell/resources/IngestResources.h"
#include "shell/summary/IngestSummarySection.h"
#include "templates/metadata/MetadataTemplateSection.h"
#include "templates/rename/RenameTemplateSection.h"
#include "transfer/local/LocalTransferSection.h"
#include "transfer/local/TransferLayouts.h"
#include "transfer/vault/VaultTransferSection.h"

namespace IGD {
namespace {

constexpr float kSpacingBetweenSections = 6.0f;
constexpr int kPowerOnDecal = 0;
constexpr int kPowerOffDecal = 1;

struct SectionTitles {
    Fnd::WString transfer;
};

// The texts of the running language; the language does not change while the process runs.
const SectionTitles& Titles() {
    static const SectionTitles titles{
        fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/TransferOptionsTitle=Transfer")};
    return titles;
}

void GivePowerImages(wrangler::ui::PowerSwitchSectionView& section) {
    section.SetPowerOnImageSupply(IngestResources::ImageSupplyFunction(kPowerOnDecal));
    section.SetPowerOffImageSupply(IngestResources::ImageSupplyFunction(kPowerOffDecal));
}

} // namespace

IngestSettingsSectionContainer::IngestSettingsSectionContainer(std::shared_ptr<IngestSettingsController> settings)
    : SectionViewEx(u"", ""), settings_(std::move(settings)) {
    if (!settings_)
        throw std::invalid_argument("IngestSettingsSectionContainer: no settings controller");
    SetChildSpacing(kSpacingBetweenSections);
}

void IngestSettingsSectionContainer::CreateChildSections() {
    InsertChildSection(new IngestSummarySection);

    if (settings_->IsVaultMode()) {
        InsertChildSection(new VaultTransferSection(settings_));
    } else {
        boost::intrusive_ptr<LocalTransferSection> local(new LocalTransferSection(
            Titles().transfer, TransferLayouts::For(settings_->IsKilnHosted()).transferHeader, settings_));
        GivePowerImages(*local);
        InsertChildSection(local);
    }

    boost::intrusive_ptr<MetadataTemplateSection> metadata(new MetadataTemplateSection(settings_));
    GivePowerImages(*metadata);
    InsertChildSection(metadata);
    boost::intrusive_ptr<RenameTemplateSection> rename(new RenameTemplateSection(settings_));
    GivePowerImages(*rename);
    InsertChildSection(rename);
}

} // namespace IGD
