#include "tests/settings/SettingsFixture.h"

namespace igd::test {
using namespace IGD;
namespace {

using Op = RecordingPreferences::Op;
using SettingsStore = SettingsFixture;

Proj::PreferenceData Text(const char* text) {
    return std::string(text);
}

TEST_F(SettingsStore, WritesInOneBatchEachKeyAfterAskingWhetherItIsLocked) {
    controller.LoadSettings();
    controller.GetDestinationSetting(0).AddPathToMRU(u"/Volumes/RAID");
    controller.AddBackupDestination(u"/Volumes/Shuttle");
    preferences->calls.clear();
    controller.SaveSettings();

    const auto& calls = preferences->calls;
    ASSERT_FALSE(preferences->KeysOf(Op::kSet).empty());
    for (std::size_t i = 0; i < calls.size(); ++i)
        if (calls[i].op == Op::kSet) {
            EXPECT_EQ(calls.at(i - 1).op, Op::kIsReadOnly);
            EXPECT_EQ(calls.at(i - 1).key, calls[i].key);
        }
    // The destinations join the batch of the whole store.
    EXPECT_EQ(preferences->BatchOps(),
              (std::vector{Op::kBeginBatch, Op::kBeginBatch, Op::kCommitBatch, Op::kCommitBatch}));
    EXPECT_EQ(Stored(BackupList(1, "PathsMRUItem0")), Text("/Volumes/Shuttle"));

    preferences->calls.clear();
    preferences->failing = K("Pimary.NeedSubFolder");
    EXPECT_THROW(controller.SaveSettings(), std::runtime_error);
    EXPECT_EQ(preferences->BatchOps(),
              (std::vector{Op::kBeginBatch, Op::kBeginBatch, Op::kDropBatch, Op::kDropBatch}));
}

TEST_F(SettingsStore, WhatIsStoredLoadsBackTheSame) {
    controller.LoadSettings();
    controller.SetTransferDisabled(false);
    controller.SetEnableMetadataTemplate(true);
    controller.SetRenamePreset(NamedPreset(u"Dailies", u"/presets/Dailies.irp"));
    controller.SetUserDefAutoIncStartNumber(17);
    controller.SetVerifyChecksum(Checksum::Algorithm::Xxh128);
    DestinationSetting& primary = controller.GetDestinationSetting(0);
    primary.needSubFolder = false;
    primary.AddPathToMRU(u"/Volumes/RAID/Ünïcode");
    auto transcode = primary.destination->GetTranscodeSetting();
    transcode->presetName = u"ProRes";
    transcode->exporterName = u"QuickTime";
    transcode->enabled = transcode->concatenate = true;
    controller.SetDestinationEnabled(controller.AddBackupDestination(u"/Volumes/Shuttle"), false);
    controller.SaveSettings();

    IngestSettingsController reloaded([] { return QL::IngestUtils::IngestSettings{}; });
    reloaded.LoadSettings();

    EXPECT_FALSE(reloaded.IsImportOnly());
    EXPECT_TRUE(reloaded.GetEnableMetadataTemplate());
    EXPECT_EQ(reloaded.GetRenamePresetPath(), u"/presets/Dailies.irp");
    EXPECT_EQ(reloaded.GetUserDefAutoIncStartNumber(), 17u);
    EXPECT_EQ(reloaded.GetVerifyChecksum(), Checksum::Algorithm::Xxh128);
    ASSERT_EQ(reloaded.GetDestinations().size(), 2u);
    const DestinationSetting& primaryAgain = reloaded.GetDestinations()[0];
    EXPECT_TRUE(primaryAgain.enabled);
    EXPECT_FALSE(primaryAgain.needSubFolder);
    EXPECT_EQ(primaryAgain.pathsMRU, std::vector<Fnd::WString>{u"/Volumes/RAID/Ünïcode"});
    const auto loaded = primaryAgain.destination->GetTranscodeSetting();
    EXPECT_TRUE(loaded->enabled && loaded->concatenate);
    EXPECT_EQ(loaded->presetName + u"|" + loaded->exporterName, u"ProRes|QuickTime");
    EXPECT_FALSE(reloaded.GetDestinations()[1].enabled);
    EXPECT_EQ(reloaded.GetDestinations()[1].pathsMRU, std::vector<Fnd::WString>{u"/Volumes/Shuttle"});
}

TEST_F(SettingsStore, ALockedKeyKeepsItsValueAndEachAttemptPostsOneWarning) {
    Put("Local.ImportOnly", true);
    preferences->locked = {K("Local.ImportOnly"), K("Pimary.NeedSubFolder")};
    controller.LoadSettings();
    controller.SetTransferDisabled(false);
    controller.GetDestinationSetting(0).needSubFolder = false;
    controller.SaveSettings();

    const Keys written = preferences->KeysOf(Op::kSet);
    EXPECT_EQ(std::count(written.begin(), written.end(), K("Local.ImportOnly")), 0);
    EXPECT_EQ(std::count(written.begin(), written.end(), K("Pimary.NeedSubFolder")), 0);
    EXPECT_EQ(Stored(K("Local.ImportOnly")), Proj::PreferenceData(true));
    EXPECT_EQ(DeliveredWarnings(), 2);
    controller.SaveDestinations();
    EXPECT_EQ(DeliveredWarnings(), 3);
}

TEST_F(SettingsStore, ALockedSiteWritesNoSettingsButItsDestinationsOnRequest) {
    site.settingsLocked = true;
    controller.LoadSettings();
    preferences->calls.clear();
    controller.SaveSettings();
    EXPECT_TRUE(preferences->calls.empty());
    controller.SaveDestinations();
    EXPECT_EQ(Stored(K("Local.Backup.Count")), Proj::PreferenceData(std::uint32_t{0}));
    EXPECT_FALSE(Stored(K("TransferSectionOpened")));
}

TEST_F(SettingsStore, ARemoteProjectHasOneDestinationAndNeverTouchesTheLocalKeys) {
    UseRemoteProject();
    Put("Vault.TempLocalCopy", true);
    Put("Local.ImportOnly", false);
    Put("Local.Backup.Count", std::uint32_t{2});
    controller.LoadSettings();
    ASSERT_EQ(controller.GetDestinations().size(), 1u);
    EXPECT_TRUE(controller.GetDestinations().front().enabled);
    EXPECT_TRUE(controller.IsImportOnly());
    controller.SaveSettings();

    for (Op op : {Op::kGet, Op::kSet}) {
        const Keys keys = preferences->KeysOf(op);
        EXPECT_EQ(keys[1], K("Vault.TempLocalCopy"));
        for (const char* untouched : {"Local.ImportOnly", "Local.VerifyOption", "Local.Backup.Count"})
            EXPECT_EQ(std::count(keys.begin(), keys.end(), K(untouched)), 0) << untouched;
    }
}

TEST_F(SettingsStore, RemovingTheFirstOfThreeBackupsMovesTheOthersDown) {
    Put("Local.Backup.Count", std::uint32_t{3});
    for (int index = 1; index <= 3; ++index) {
        preferences->values[BackupList(index, "PathsMRUCount")] = std::uint32_t{1};
        preferences->values[BackupList(index, "PathsMRUItem0")] = "/backup" + std::to_string(index);
    }
    controller.LoadSettings();
    controller.RemoveDestination(1);
    controller.SaveSettings();

    EXPECT_EQ(Stored(K("Local.Backup.Count")), Proj::PreferenceData(std::uint32_t{2}));
    EXPECT_EQ(Stored(BackupList(1, "PathsMRUItem0")), Text("/backup2"));
    EXPECT_EQ(Stored(BackupList(2, "PathsMRUItem0")), Text("/backup3"));
    EXPECT_EQ(Stored(BackupList(3, "PathsMRUItem0")), Text("/backup3")) << "hidden behind the count";
}

} // namespace
} // namespace igd::test
