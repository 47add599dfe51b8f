#include "tests/settings/SettingsFixture.h"

namespace igd::test {
using namespace IGD;
namespace {

using Op = RecordingPreferences::Op;
using SettingsLoad = SettingsFixture;

const Keys kPrimaryReads = {K("Primary.Transcode"),         K("Primary.TranscodeExporter"),
                            K("Primary.TranscodePreset"),   K("Primary.ConcatenatePreset"),
                            K("Primary.DestPathMRU") + K("PathsMRUCount"), K("Pimary.NeedSubFolder")};

TEST_F(SettingsLoad, AFirstRunRefreshesBeforeEachReadAndGivesOneDisabledPrimary) {
    Put("Local.Backup.Count", std::uint32_t{1});
    controller.LoadSettings();

    ASSERT_FALSE(preferences->KeysOf(Op::kGet).empty());
    for (std::size_t i = 0; i < preferences->calls.size(); ++i)
        if (preferences->calls[i].op == Op::kGet) {
            EXPECT_EQ(preferences->calls.at(i - 1).op, Op::kRefresh) << preferences->calls[i].key;
        }

    ASSERT_EQ(controller.GetDestinations().size(), 2u);
    const DestinationSetting& primary = controller.GetDestinations().front();
    EXPECT_TRUE(controller.IsImportOnly());
    EXPECT_FALSE(primary.enabled);
    EXPECT_TRUE(primary.pathsMRU.empty());
    EXPECT_TRUE(primary.needSubFolder);
    EXPECT_TRUE(primary.destination->IsPrimary());
    EXPECT_FALSE(controller.GetDestinations()[1].destination->IsPrimary());
    EXPECT_EQ(controller.GetVerifyOption(), 0);
}

TEST_F(SettingsLoad, PresetPathsShareOneScratchAndTheCountThatNoDestinationsStoreReadsAsNone) {
    Put("RenamePresetPath", "/presets/Dailies.irp");
    Put("Local.VerifyOption", std::uint32_t{0xFFFFFFFF});
    Put("Local.Backup.Count", std::uint32_t{0xFFFFFFFF});
    controller.LoadSettings();
    EXPECT_EQ(controller.GetMetadataPresetPath(), u"/presets/Dailies.irp");
    EXPECT_EQ(controller.GetVerifyOption(), -1);
    EXPECT_EQ(controller.GetDestinations().size(), 1u);
}

TEST_F(SettingsLoad, HostedKindsStartWithTransferOn) {
    for (int kind : {5, 8}) {
        HostApp::SetApplicationType(kind);
        controller.LoadSettings();
        EXPECT_FALSE(controller.IsImportOnly()) << kind;
        EXPECT_TRUE(controller.GetDestinations().front().enabled) << kind;
    }
}

TEST_F(SettingsLoad, ALockedSiteReadsNoOptionsYetStillReadsTheBackups) {
    site = {true, u"Dailies"};
    Put("Local.ImportOnly", false);
    Put("EnableRenameTemplate", true);
    Put("EnableMetadataTemplate", true);
    Put("Local.Backup.Count", std::uint32_t{2});
    Put("Local.Backup.Enabled2", true);
    controller.LoadSettings();

    EXPECT_TRUE(controller.GetSettingsLocked());
    EXPECT_EQ(controller.GetDefaultSubfolderName(), u"Dailies");
    EXPECT_TRUE(controller.IsImportOnly());
    EXPECT_FALSE(controller.GetEnableRenameTemplate());
    EXPECT_FALSE(controller.GetEnableMetadataTemplate());
    ASSERT_EQ(controller.GetDestinations().size(), 3u);
    EXPECT_TRUE(controller.GetDestinations()[2].enabled);
    const Keys reads = preferences->KeysOf(Op::kGet);
    EXPECT_EQ(Keys(reads.begin(), reads.begin() + 6), kPrimaryReads);
}

TEST_F(SettingsLoad, ARemoteProjectHasOneDestinationWhateverTheStoredBackups) {
    UseRemoteProject();
    Put("Vault.TempLocalCopy", true);
    Put("Local.ImportOnly", false);
    Put("Local.Backup.Count", std::uint32_t{2});
    controller.LoadSettings();

    ASSERT_EQ(controller.GetDestinations().size(), 1u);
    EXPECT_TRUE(controller.GetDestinations().front().enabled);
    EXPECT_TRUE(controller.IsImportOnly());
    const Keys reads = preferences->KeysOf(Op::kGet);
    EXPECT_EQ(reads[1], K("Vault.TempLocalCopy"));
    for (const char* untouched : {"Local.ImportOnly", "Local.VerifyOption", "Local.Backup.Count"})
        EXPECT_EQ(std::count(reads.begin(), reads.end(), K(untouched)), 0) << untouched;
}

TEST_F(SettingsLoad, WithoutPreferencesLoadAndStoreRaiseTheNullInterfaceFault) {
    Proj::SetBackend(nullptr);
    EXPECT_THROW(controller.LoadSettings(), Fnd::NullInterfaceException);
    EXPECT_THROW(controller.SaveSettings(), Fnd::NullInterfaceException);
    EXPECT_THROW(controller.SaveDestinations(), Fnd::NullInterfaceException);
}

} // namespace
} // namespace igd::test
