#include "IGD/TransferSectionPreview.h"

#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "fluxcore/ZString.h"
#include "transfer/SectionPreview.h"
#include "transfer/local/BackupDestinationSection.h"
#include "transfer/local/LocalTransferSection.h"
#include "transfer/local/PrimaryDestinationSection.h"
#include "transfer/path/PathSettingSection.h"
#include "transfer/transcode/ConcatenateSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"
#include "transfer/vault/VaultDestinationSection.h"
#include "transfer/vault/VaultTransferSection.h"

namespace IGD {
namespace {


// The folders a first-time user of the gallery sees: under the home of the settings, so that a
// preview never names a place outside it.
Fnd::WString ExampleFolder(const char* name) {
    return Fnd::PathUtils::CombinePaths(Fnd::FromUTF8(Fnd::IgdHomeDirectory()), Fnd::FromUTF8(std::string("gallery/") + name));
}

void Choose(fluxui::controls::UI_Popup& popup, const Fnd::WString& text) {
    const auto& items = popup.GetItems();
    for (std::size_t row = 0; row < items.size(); ++row)
        if (items[row].text == text)
            return popup.ChooseByUser(static_cast<int>(row));
}

// Ticks transcoding as a user does, then picks the format and its first preset, or the named one.
void TranscodeWith(TranscodeSettingSection& section, const Fnd::WString& format, const Fnd::WString& preset) {
    if (auto* box = section.GetTranscodeCheckbox(); box && !box->IsChecked())
        box->Press();
    Choose(section.GetFormatPopup(), format);
    if (!preset.empty())
        Choose(section.GetPresetPopup(), preset);
}

void Stitch(ConcatenateSettingSection* section, const Fnd::WString& name) {
    if (!section)
        return;
    if (!section->GetConcatenateCheckbox().IsChecked())
        section->GetConcatenateCheckbox().Press();
    section->GetConcatenateEdit().TypeText(name);
}

void FillLocal(IngestSettingsController& settings, LocalTransferSection& section) {
    if (!settings.IsKilnHosted() && !section.GetTransferClipsCheckbox().IsChecked())
        section.GetTransferClipsCheckbox().Press();
    PrimaryDestinationSection& primary = section.GetPrimarySection();
    if (TranscodeSettingSection* transcode = primary.GetTranscodeSection()) {
        TranscodeWith(*transcode, u"QuickTime", u"Apple ProRes 422 Proxy");
        Stitch(transcode->GetConcatenateSection(), u"Day 1");
    }
    const auto& backups = section.GetBackupSections();
    if (backups.size() >= 2)
        TranscodeWith(backups[1]->GetTranscodeSection(), u"H.264", {});
}

} // namespace

fluxui::ui::UI_NodeRef BuildTransferSectionPreview(float width, float height) {
    const std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
    settings->LoadSettings();
    const bool remote = settings->IsVaultMode();
    if (!remote) {
        // Backups come from the settings as the dialog loads them: what the store lacks is added.
        for (const char* name : {"Shuttle B", "Archive"})
            if (settings->GetDestinations().size() < 3)
                settings->AddBackupDestination(ExampleFolder(name));
    }
    DestinationSetting& primary = settings->GetDestinationSetting(0);
    if (primary.pathsMRU.empty()) {
        primary.AddPathToMRU(ExampleFolder("Shuttle A"));
        // A hosted application names the primary's folder itself rather than taking the newest.
        if (primary.destination && settings->IsKilnHosted())
            primary.destination->SetDestinationPath(primary.pathsMRU.front());
    }

    wrangler::ui::SectionViewExRef section;
    if (remote) {
        settings->SetVaultTempLocalCopy(true);
        section = new VaultTransferSection(settings);
    } else {
        section = new LocalTransferSection(
            fluxcore::Localize("$$$/Quillon/Libraries/IngestDialog/TransferOptionsTitle=Transfer"),
            settings->IsKilnHosted() ? "igdKilnHostedTransferHeader" : "igdLocalTransferHeader", settings);
    }
    return wrangler::ui::BuildSectionPreview(section, width, height, [&] {
        if (auto* local = dynamic_cast<LocalTransferSection*>(section.get())) {
            FillLocal(*settings, *local);
        } else if (auto* vault = dynamic_cast<VaultTransferSection*>(section.get())) {
            VaultDestinationSection* destination = vault->GetDestinationSection();
            if (TranscodeSettingSection* transcode = destination ? destination->GetTranscodeSection() : nullptr) {
                TranscodeWith(*transcode, u"QuickTime", u"Apple ProRes 422 Proxy");
                Stitch(transcode->GetConcatenateSection(), u"Day 1");
            }
        }
    });
}

} // namespace IGD
