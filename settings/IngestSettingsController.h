#pragma once
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include <boost/function.hpp>

#include "Checksum/Checksum.h"
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "QL/IngestUtils.h"
#include "settings/DestinationSetting.h"

namespace fluxui::controls {
class UI_Popup;
}

namespace IGD {

// The one model of all option sections: what the user chose for transfer, verification,
// transcoding and the two templates. Loaded from the preferences when a dialog opens, stored when
// an ingest is accepted; in between every section reads and writes it and nothing else. UI
// thread only.
class IngestSettingsController {
public:
    using TransferListener = boost::function<void(bool)>;
    using TransferListenerID = std::uint64_t;
    using SettingsChangedCallback = boost::function<void()>;
    using SiteSettingsSource = std::function<QL::IngestUtils::IngestSettings()>;

    // The process's controller, made on first use; nothing is loaded then.
    static std::shared_ptr<IngestSettingsController> GetInstance();

    // A controller of one's own, reading the site's configuration from siteSettings at each
    // load. The library itself works on GetInstance.
    explicit IngestSettingsController(SiteSettingsSource siteSettings = {});

    // Whole-object operations. A missing back end or preference interface raises
    // Fnd::NullInterfaceException.
    void LoadSettings();
    // Writes nothing while the site locks the settings.
    void SaveSettings();
    // The destinations alone, locked or not.
    void SaveDestinations();
    // Every member back to its default, except the presets and their paths.
    void ResetToDefaults();

    // Fills the session's import-only flag, destinations (a fresh copy of each enabled record, its
    // path the head of its recent paths), verify mode and template values from the settings.
    void ApplyToDialogData(IIngestDialogData& session) const;
    // Seeds the settings from a session a host made: its destinations replace the records (each
    // path joins the recent paths stored for its place), transfer shows on, the templates follow.
    void ReadFromDialogData(IIngestDialogData& session);
    // What IngestDialogTerminate does: the destinations go and both presets are released.
    void Terminate();

    bool IsVaultMode() const;
    bool IsKilnHosted() const;
    bool IsTranscodeAvailable() const;

    bool GetTransferSectionOpened() const { return transferSectionOpened_; }
    void SetTransferSectionOpened(bool opened) { transferSectionOpened_ = opened; }

    // Always true for a remote project.
    bool IsImportOnly() const;
    // The member as it is, for the exchange with a session.
    void SetImportOnly(bool importOnly) { importOnly_ = importOnly; }
    // Outside a remote project: importOnly and the primary follow; in both modes the transfer
    // listeners then hear whether transfer is on.
    void SetTransferDisabled(bool disabled);
    TransferListenerID AddTransferListener(TransferListener listener);
    void RemoveTransferListener(TransferListenerID id);

    // False outside a remote project.
    bool GetVaultTempLocalCopy() const;
    // Only for a remote project: the flag and the primary's enabled follow.
    void SetVaultTempLocalCopy(bool on);

    std::int32_t GetVerifyOption() const { return verifyOption_; }
    void SetVerifyOption(std::int32_t option) { verifyOption_ = option; }
    // What the checksum row of the verify option compares.
    Checksum::Algorithm GetVerifyChecksum() const { return verifyChecksum_; }
    void SetVerifyChecksum(Checksum::Algorithm checksum) { verifyChecksum_ = checksum; }

    // Element 0 is the primary. An index outside the list answers the primary, so that callers
    // need no test; asking with no destinations at all is a fault (std::logic_error).
    DestinationSetting& GetDestinationSetting(std::int32_t index);
    const std::vector<DestinationSetting>& GetDestinations() const { return destinations_; }
    void SetDestinations(std::vector<DestinationSetting> destinations) {
        destinations_ = std::move(destinations);
    }
    // False, and ignored, outside the list.
    bool IsDestinationEnabled(std::int32_t index) const;
    void SetDestinationEnabled(std::int32_t index, bool enabled);
    // A new enabled backup with the path at the head of its list; answers its index.
    std::int32_t AddBackupDestination(const Fnd::WString& path);
    // Later elements move down; an index outside the list is ignored.
    void RemoveDestination(std::int32_t index);

    bool GetRenameSectionOpened() const { return renameSectionOpened_; }
    void SetRenameSectionOpened(bool opened) { renameSectionOpened_ = opened; }
    bool GetMetadataSectionOpened() const { return metadataSectionOpened_; }
    void SetMetadataSectionOpened(bool opened) { metadataSectionOpened_ = opened; }
    bool GetEnableRenameTemplate() const { return enableRenameTemplate_; }
    void SetEnableRenameTemplate(bool enable) { enableRenameTemplate_ = enable; }
    bool GetEnableMetadataTemplate() const { return enableMetadataTemplate_; }
    void SetEnableMetadataTemplate(bool enable) { enableMetadataTemplate_ = enable; }
    bool GetRenameEditMode() const { return renameEditMode_; }
    void SetRenameEditMode(bool editing) { renameEditMode_ = editing; }
    bool GetMetadataEditMode() const { return metadataEditMode_; }
    void SetMetadataEditMode(bool editing) { metadataEditMode_ = editing; }
    std::uint32_t GetRenameApplyScope() const { return renameApplyScope_; }
    void SetRenameApplyScope(std::uint32_t scope) { renameApplyScope_ = scope; }
    std::uint32_t GetMetadataApplyScope() const { return metadataApplyScope_; }
    void SetMetadataApplyScope(std::uint32_t scope) { metadataApplyScope_ = scope; }

    // A different rename preset (by name, or none) starts the custom counter again at 1; the
    // same name again keeps it.
    void SetRenamePreset(PresetRef preset);
    PresetRef GetRenamePreset() const { return renamePreset_; }
    const Fnd::WString& GetRenamePresetPath() const { return renamePresetPath_; }
    void SetMetadataPreset(PresetRef preset);
    PresetRef GetMetadataPreset() const { return metadataPreset_; }
    const Fnd::WString& GetMetadataPresetPath() const { return metadataPresetPath_; }

    // Never 0: a 0 is kept as 1.
    std::uint32_t GetUserDefAutoIncStartNumber() const { return userDefAutoIncStartNumber_; }
    void SetUserDefAutoIncStartNumber(std::uint32_t number);

    // The transcode popups. FillFormatPopup lists the media layer's exporters, a row being an index
    // into its encoder list; FillPresetPopup makes exporterRow (when it is one) the destination's
    // exporter and lists that exporter's presets, the second list of LoadPresets first, a separator
    // between, "Custom" alone and disabled when there are none; RememberPreset gives the
    // destination's transcode setting the preset of the row and the record's exporter.
    void FillFormatPopup(fluxui::controls::UI_Popup& popup) const;
    void FillPresetPopup(fluxui::controls::UI_Popup& popup, std::int32_t index, std::int32_t exporterRow);
    static void RememberPreset(DestinationSetting& record, std::int32_t row);

    // In a remote project: "server/project" of who is logged in (empty when nobody is); empty
    // outside one.
    Fnd::WString GetVaultDestinationText() const;
    // In a remote project: a new folder under the temporary folder for each call; empty outside one.
    Fnd::WString GetVaultTempFolder() const;

    // The site's configuration as the last load found it.
    bool GetSettingsLocked() const { return settingsLocked_; }
    const Fnd::WString& GetDefaultSubfolder() const { return defaultSubfolder_; }
    // The site's default subfolder, else the present time as 2024-03-05_14-30-59.
    Fnd::WString GetDefaultSubfolderName() const;

    void SetSettingsChangedCallback(SettingsChangedCallback callback) {
        settingsChangedCallback_ = std::move(callback);
    }
    // Tells the host that embeds the view that the user changed something.
    void NotifySettingsChanged() const;

private:
    SiteSettingsSource siteSettings_;

    bool transferSectionOpened_ = true;
    bool importOnly_ = true;
    bool vaultTempLocalCopy_ = false;
    std::int32_t verifyOption_ = 0;
    Checksum::Algorithm verifyChecksum_ = Checksum::Algorithm::Md5;
    std::vector<DestinationSetting> destinations_;
    bool renameSectionOpened_ = true;
    bool metadataSectionOpened_ = true;
    bool enableRenameTemplate_ = false;
    bool enableMetadataTemplate_ = false;
    bool renameEditMode_ = false;
    bool metadataEditMode_ = false;
    Fnd::WString renamePresetPath_;
    Fnd::WString metadataPresetPath_;
    PresetRef renamePreset_;
    PresetRef metadataPreset_;
    std::uint32_t renameApplyScope_ = 0;
    std::uint32_t metadataApplyScope_ = 0;
    std::vector<std::pair<TransferListenerID, TransferListener>> transferListeners_;
    TransferListenerID nextTransferListenerID_ = 1;
    bool settingsLocked_ = false;
    Fnd::WString defaultSubfolder_;
    std::uint32_t userDefAutoIncStartNumber_ = 1;
    SettingsChangedCallback settingsChangedCallback_;
};

} // namespace IGD
