#include "settings/DestinationPersistence.h"

#include <memory>
#include <string>

#include "Proj/PreferenceAccess.h"
#include "settings/RecentPathList.h"
#include "settings/SettingKeys.h"

namespace IGD {
namespace {

using TranscodeSettingRef = std::shared_ptr<QL::IngestTask::TranscodeSetting>;

DestinationSetting MakeRecord(bool primary, TranscodeSettingRef transcode) {
    DestinationSetting setting;
    setting.destination = IngestDestinationRef(new IngestDestination());
    setting.destination->SetPrimary(primary);
    setting.destination->SetTranscodeSetting(std::move(transcode));
    return setting;
}

// A record may have lost its transcode setting to a host; it then stores as "no transcode".
struct StoredTranscode {
    bool enabled = false;
    Fnd::WString exporterName;
    Fnd::WString presetName;
    bool concatenate = false;
};

StoredTranscode TranscodeToStore(const DestinationSetting& setting) {
    const TranscodeSettingRef transcode = setting.destination->GetTranscodeSetting();
    if (!transcode)
        return {};
    return {transcode->enabled, transcode->exporterName, transcode->presetName, transcode->concatenate};
}

} // namespace

std::string RecentPathListPrefix(std::uint32_t index) {
    if (index == 0)
        return std::string(kPrimaryDestPathMRU.name);
    return std::string(kLocalBackupDestPathMRU.name) + std::to_string(index);
}

DestinationSetting LoadPrimaryDestination(Proj::IPreferences& preferences) {
    auto transcode = std::make_shared<QL::IngestTask::TranscodeSetting>();
    transcode->enabled = kPrimaryTranscode.defaultValue;
    transcode->exporterName = kPrimaryTranscodeExporter.defaultValue;
    transcode->presetName = kPrimaryTranscodePreset.defaultValue;
    transcode->concatenate = kPrimaryConcatenatePreset.defaultValue;
    ReadPreference(preferences, kPrimaryTranscode, transcode->enabled);
    ReadPreference(preferences, kPrimaryTranscodeExporter, transcode->exporterName);
    ReadPreference(preferences, kPrimaryTranscodePreset, transcode->presetName);
    ReadPreference(preferences, kPrimaryConcatenatePreset, transcode->concatenate);
    std::vector<Fnd::WString> paths = ReadRecentPathList(preferences, RecentPathListPrefix(0));
    bool needSubFolder = kPrimaryNeedSubFolder.defaultValue;
    ReadPreference(preferences, kPrimaryNeedSubFolder, needSubFolder);

    DestinationSetting setting = MakeRecord(true, std::move(transcode));
    setting.pathsMRU = std::move(paths);
    setting.needSubFolder = needSubFolder;
    return setting;
}

DestinationSetting LoadBackupDestination(Proj::IPreferences& preferences, std::uint32_t index) {
    auto transcode = std::make_shared<QL::IngestTask::TranscodeSetting>();
    transcode->enabled = kLocalBackupTranscode.defaultValue;
    transcode->exporterName = kLocalBackupTranscodeExporter.defaultValue;
    transcode->presetName = kLocalBackupTranscodePreset.defaultValue;
    ReadPreference(preferences, IndexedKey(kLocalBackupTranscode.name, index), transcode->enabled);
    ReadPreference(preferences, IndexedKey(kLocalBackupTranscodeExporter.name, index),
                   transcode->exporterName);
    ReadPreference(preferences, IndexedKey(kLocalBackupTranscodePreset.name, index), transcode->presetName);
    bool enabled = kLocalBackupEnabled.defaultValue;
    ReadPreference(preferences, IndexedKey(kLocalBackupEnabled.name, index), enabled);
    std::vector<Fnd::WString> paths = ReadRecentPathList(preferences, RecentPathListPrefix(index));
    bool needSubFolder = kLocalBackupNeedSubFolder.defaultValue;
    ReadPreference(preferences, IndexedKey(kLocalBackupNeedSubFolder.name, index), needSubFolder);

    DestinationSetting setting = MakeRecord(false, std::move(transcode));
    setting.enabled = enabled;
    setting.pathsMRU = std::move(paths);
    setting.needSubFolder = needSubFolder;
    return setting;
}

void StorePrimaryDestination(Proj::IPreferences& preferences, const DestinationSetting& setting) {
    if (!setting.destination)
        return;
    const StoredTranscode transcode = TranscodeToStore(setting);
    WritePreference(preferences, kPrimaryTranscode, transcode.enabled);
    WritePreference(preferences, kPrimaryTranscodeExporter, transcode.exporterName);
    WritePreference(preferences, kPrimaryTranscodePreset, transcode.presetName);
    WritePreference(preferences, kPrimaryConcatenatePreset, transcode.concatenate);
    StoreRecentPathList(preferences, RecentPathListPrefix(0), setting.pathsMRU);
    WritePreference(preferences, kPrimaryNeedSubFolder, setting.needSubFolder);
}

void StoreBackupDestination(Proj::IPreferences& preferences, const DestinationSetting& setting,
                            std::uint32_t index) {
    if (!setting.destination)
        return;
    const StoredTranscode transcode = TranscodeToStore(setting);
    WritePreference(preferences, IndexedKey(kLocalBackupTranscode.name, index), transcode.enabled);
    WritePreference(preferences, IndexedKey(kLocalBackupTranscodeExporter.name, index),
                    transcode.exporterName);
    WritePreference(preferences, IndexedKey(kLocalBackupTranscodePreset.name, index), transcode.presetName);
    WritePreference(preferences, IndexedKey(kLocalBackupEnabled.name, index), setting.enabled);
    StoreRecentPathList(preferences, RecentPathListPrefix(index), setting.pathsMRU);
    WritePreference(preferences, IndexedKey(kLocalBackupNeedSubFolder.name, index), setting.needSubFolder);
}

} // namespace IGD
