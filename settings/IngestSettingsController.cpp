#include "settings/IngestSettingsController.h"

#include <atomic>
#include <mutex>
#include <stdexcept>

#include "Mid/KilnInstalled.h"
#include "Proj/PreferenceBatch.h"
#include "QL/Utilities.h"
#include "host/HostKind.h"
#include "settings/DestinationPersistence.h"
#include "Proj/PreferenceAccess.h"
#include "settings/SettingKeys.h"

namespace IGD {
namespace {

std::recursive_mutex& ProcessMutex() {
    static std::recursive_mutex mutex;
    return mutex;
}

bool IsInside(std::int32_t index, std::size_t size) {
    return index >= 0 && static_cast<std::size_t>(index) < size;
}

// MD5 for a name this build does not know, so that a store written by a newer version still
// verifies.
Checksum::Algorithm ReadVerifyChecksum(Proj::IPreferences& preferences) {
    Fnd::WString name(kLocalVerifyChecksum.defaultValue);
    ReadPreference(preferences, kLocalVerifyChecksum, name);
    return Checksum::AlgorithmNamed(Fnd::ToUTF8(name)).value_or(Checksum::Algorithm::Md5);
}

} // namespace

std::shared_ptr<IngestSettingsController> IngestSettingsController::GetInstance() {
    static std::atomic<bool> created{false};
    static std::shared_ptr<IngestSettingsController> instance;
    // Only the first call pays for the lock; the second test catches a thread that lost the race.
    if (!created.load(std::memory_order_acquire)) {
        std::lock_guard lock(ProcessMutex());
        if (!created.load(std::memory_order_relaxed)) {
            instance = std::make_shared<IngestSettingsController>();
            created.store(true, std::memory_order_release);
        }
    }
    return instance;
}

IngestSettingsController::IngestSettingsController(SiteSettingsSource siteSettings)
    : siteSettings_(siteSettings ? std::move(siteSettings) : &QL::Utilities::GetConfigurableIngestSettings) {}

bool IngestSettingsController::IsVaultMode() const {
    return IGD::IsVaultMode();
}

bool IngestSettingsController::IsKilnHosted() const {
    return IGD::IsKilnHosted();
}

bool IngestSettingsController::IsTranscodeAvailable() const {
    return IsKilnHosted() || Mid::IsKilnInstalled();
}

void IngestSettingsController::ResetToDefaults() {
    transferSectionOpened_ = kTransferSectionOpened.defaultValue;
    // A hosted application gives the destinations itself, so transfer starts on.
    importOnly_ = kLocalImportOnly.defaultValue && !IsKilnHosted();
    vaultTempLocalCopy_ = kVaultTempLocalCopy.defaultValue;
    verifyOption_ = static_cast<std::int32_t>(kLocalVerifyOption.defaultValue);
    verifyChecksum_ = Checksum::Algorithm::Md5;
    destinations_.clear();
    renameSectionOpened_ = kRenameSectionOpened.defaultValue;
    metadataSectionOpened_ = kMetadataSectionOpened.defaultValue;
    enableRenameTemplate_ = kEnableRenameTemplate.defaultValue;
    enableMetadataTemplate_ = kEnableMetadataTemplate.defaultValue;
    renameApplyScope_ = kRenameApplyScope.defaultValue;
    metadataApplyScope_ = kMetadataApplyScope.defaultValue;
    renameEditMode_ = false;
    metadataEditMode_ = false;
    userDefAutoIncStartNumber_ = kUserDefAutoIncStartNumber.defaultValue;
}

void IngestSettingsController::LoadSettings() {
    ResetToDefaults();
    const QL::IngestUtils::IngestSettings site = siteSettings_();
    settingsLocked_ = site.settingsLocked;
    defaultSubfolder_ = site.defaultSubfolder;

    const Fnd::InterfaceRef<Proj::IPreferences> preferencesRef = Proj::GetPreferences();
    Proj::IPreferences& preferences = *preferencesRef;
    const bool vault = IsVaultMode();

    if (!settingsLocked_) {
        ReadPreference(preferences, kTransferSectionOpened, transferSectionOpened_);
        if (vault) {
            ReadPreference(preferences, kVaultTempLocalCopy, vaultTempLocalCopy_);
        } else {
            ReadPreference(preferences, kLocalImportOnly, importOnly_);
            std::uint32_t verifyBits = kLocalVerifyOption.defaultValue;
            ReadPreference(preferences, kLocalVerifyOption, verifyBits);
            verifyOption_ = static_cast<std::int32_t>(verifyBits);
            verifyChecksum_ = ReadVerifyChecksum(preferences);
        }
        ReadPreference(preferences, kRenameSectionOpened, renameSectionOpened_);
        ReadPreference(preferences, kMetadataSectionOpened, metadataSectionOpened_);
        ReadPreference(preferences, kEnableRenameTemplate, enableRenameTemplate_);
        ReadPreference(preferences, kEnableMetadataTemplate, enableMetadataTemplate_);
        ReadPreference(preferences, kRenameApplyScope, renameApplyScope_);
        ReadPreference(preferences, kMetadataApplyScope, metadataApplyScope_);
        // One scratch string for both paths, not cleared between them: a store without a
        // metadata path gives the rename path to both, and the metadata section then finds no
        // preset of that path.
        Fnd::WString presetPath(kRenamePresetPath.defaultValue);
        ReadPreference(preferences, kRenamePresetPath, presetPath);
        renamePresetPath_ = presetPath;
        ReadPreference(preferences, kMetadataPresetPath, presetPath);
        metadataPresetPath_ = presetPath;
        std::uint32_t startNumber = userDefAutoIncStartNumber_;
        ReadPreference(preferences, kUserDefAutoIncStartNumber, startNumber);
        SetUserDefAutoIncStartNumber(startNumber);
    } else {
        importOnly_ = true;
        vaultTempLocalCopy_ = false;
        enableRenameTemplate_ = false;
        enableMetadataTemplate_ = false;
    }

    // Destinations are read even when the site locks the options: the places stay the user's.
    destinations_.clear();
    destinations_.push_back(LoadPrimaryDestination(preferences));
    // A remote project has exactly one destination.
    if (!vault) {
        std::uint32_t backups = kLocalBackupCount.defaultValue;
        ReadPreference(preferences, kLocalBackupCount, backups);
        // In 32 bits on purpose: the count that an empty list stores, 0xFFFFFFFF, reads as none.
        const std::uint32_t end = backups + 1;
        for (std::uint32_t index = 1; index < end; ++index)
            destinations_.push_back(LoadBackupDestination(preferences, index));
    }
    destinations_.front().enabled = vault ? vaultTempLocalCopy_ : !importOnly_;
}

void IngestSettingsController::SaveSettings() {
    if (settingsLocked_)
        return;
    const Fnd::InterfaceRef<Proj::IPreferences> preferencesRef = Proj::GetPreferences();
    Proj::IPreferences& preferences = *preferencesRef;
    // One transaction where the store allows it: one flush instead of one per value, and a
    // failure keeps the whole old state rather than half of it.
    Proj::PreferenceBatch batch(preferences);

    WritePreference(preferences, kTransferSectionOpened, transferSectionOpened_);
    if (IsVaultMode()) {
        WritePreference(preferences, kVaultTempLocalCopy, vaultTempLocalCopy_);
    } else {
        WritePreference(preferences, kLocalImportOnly, importOnly_);
        WritePreference(preferences, kLocalVerifyOption, static_cast<std::uint32_t>(verifyOption_));
        WritePreference(preferences, kLocalVerifyChecksum,
                        Fnd::FromUTF8(std::string(Checksum::NameOf(verifyChecksum_))));
    }
    SaveDestinations();
    WritePreference(preferences, kRenameSectionOpened, renameSectionOpened_);
    WritePreference(preferences, kMetadataSectionOpened, metadataSectionOpened_);
    WritePreference(preferences, kEnableRenameTemplate, enableRenameTemplate_);
    WritePreference(preferences, kEnableMetadataTemplate, enableMetadataTemplate_);
    WritePreference(preferences, kRenameApplyScope, renameApplyScope_);
    WritePreference(preferences, kMetadataApplyScope, metadataApplyScope_);
    WritePreference(preferences, kRenamePresetPath, renamePresetPath_);
    WritePreference(preferences, kMetadataPresetPath, metadataPresetPath_);
    WritePreference(preferences, kUserDefAutoIncStartNumber, userDefAutoIncStartNumber_);
    batch.Commit();
}

void IngestSettingsController::SaveDestinations() {
    const Fnd::InterfaceRef<Proj::IPreferences> preferencesRef = Proj::GetPreferences();
    Proj::IPreferences& preferences = *preferencesRef;
    Proj::PreferenceBatch batch(preferences);

    if (!destinations_.empty())
        StorePrimaryDestination(preferences, destinations_.front());
    if (IsVaultMode()) {
        batch.Commit();
        return;
    }
    // Without destinations this wraps to 0xFFFFFFFF, which loads as no backups.
    WritePreference(preferences, kLocalBackupCount, static_cast<std::uint32_t>(destinations_.size() - 1));
    // Keys of backups removed in this session stay behind the lower count.
    for (std::size_t index = 1; index < destinations_.size(); ++index)
        StoreBackupDestination(preferences, destinations_[index], static_cast<std::uint32_t>(index));
    batch.Commit();
}

void IngestSettingsController::Terminate() {
    destinations_.clear();
    renamePreset_.reset();
    metadataPreset_.reset();
}

bool IngestSettingsController::IsImportOnly() const {
    return IsVaultMode() || importOnly_;
}

void IngestSettingsController::SetTransferDisabled(bool disabled) {
    if (!IsVaultMode()) {
        importOnly_ = disabled;
        if (!destinations_.empty())
            destinations_.front().enabled = !disabled;
    }
    // A copy, so that a listener may remove itself or others while it is called.
    const auto listeners = transferListeners_;
    for (const auto& [id, listener] : listeners)
        listener(!disabled);
}

IngestSettingsController::TransferListenerID
IngestSettingsController::AddTransferListener(TransferListener listener) {
    const TransferListenerID id = nextTransferListenerID_++;
    transferListeners_.emplace_back(id, std::move(listener));
    return id;
}

void IngestSettingsController::RemoveTransferListener(TransferListenerID id) {
    std::erase_if(transferListeners_, [id](const auto& entry) { return entry.first == id; });
}

bool IngestSettingsController::GetVaultTempLocalCopy() const {
    return IsVaultMode() && vaultTempLocalCopy_;
}

void IngestSettingsController::SetVaultTempLocalCopy(bool on) {
    if (!IsVaultMode())
        return;
    vaultTempLocalCopy_ = on;
    if (!destinations_.empty())
        destinations_.front().enabled = on;
}

DestinationSetting& IngestSettingsController::GetDestinationSetting(std::int32_t index) {
    if (destinations_.empty())
        throw std::logic_error(
            "IngestSettingsController: no destinations before LoadSettings or ReadFromDialogData");
    return IsInside(index, destinations_.size()) ? destinations_[static_cast<std::size_t>(index)]
                                                 : destinations_.front();
}

bool IngestSettingsController::IsDestinationEnabled(std::int32_t index) const {
    return IsInside(index, destinations_.size()) && destinations_[static_cast<std::size_t>(index)].enabled;
}

void IngestSettingsController::SetDestinationEnabled(std::int32_t index, bool enabled) {
    if (IsInside(index, destinations_.size()))
        destinations_[static_cast<std::size_t>(index)].enabled = enabled;
}

std::int32_t IngestSettingsController::AddBackupDestination(const Fnd::WString& path) {
    DestinationSetting setting;
    setting.enabled = true;
    setting.needSubFolder = true;
    setting.destination = IngestDestinationRef(new IngestDestination());
    setting.destination->SetDestinationPath(path);
    setting.AddPathToMRU(path);
    auto transcode = std::make_shared<QL::IngestTask::TranscodeSetting>();
    transcode->enabled = false;
    setting.destination->SetTranscodeSetting(std::move(transcode));
    destinations_.push_back(std::move(setting));
    return static_cast<std::int32_t>(destinations_.size() - 1);
}

void IngestSettingsController::RemoveDestination(std::int32_t index) {
    if (IsInside(index, destinations_.size()))
        destinations_.erase(destinations_.begin() + index);
}

void IngestSettingsController::SetRenamePreset(PresetRef preset) {
    if (renamePreset_ && (!preset || preset->GetName(true) != renamePreset_->GetName(true)))
        userDefAutoIncStartNumber_ = 1;
    renamePresetPath_ = preset ? preset->GetPath() : Fnd::WString();
    renamePreset_ = std::move(preset);
}

void IngestSettingsController::SetMetadataPreset(PresetRef preset) {
    metadataPresetPath_ = preset ? preset->GetPath() : Fnd::WString();
    metadataPreset_ = std::move(preset);
}

void IngestSettingsController::SetUserDefAutoIncStartNumber(std::uint32_t number) {
    userDefAutoIncStartNumber_ = number == 0 ? 1 : number;
}

Fnd::WString IngestSettingsController::GetDefaultSubfolderName() const {
    if (!defaultSubfolder_.empty())
        return defaultSubfolder_;
    return QL::IngestUtils::DateFormatter(u"%Y-%m-%d_%H-%M-%S");
}

void IngestSettingsController::NotifySettingsChanged() const {
    if (settingsChangedCallback_)
        settingsChangedCallback_();
}

} // namespace IGD
