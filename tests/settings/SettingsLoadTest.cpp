#include "tests/settings/SettingsFixture.h"

namespace igd::test {
using namespace IGD;
namespace {

using Op = RecordingPreferences::Op;
using SettingsLoad = SettingsFixture;

TEST_F(SettingsLoad, AFirstRunRefreshesBeforeEachReadAndGivesOneDisabledPrimary) {
    Put("RenamePresetPath", "/presets/Dailies.irp");
    Put("Local.Backup.Count", std::uint32_t{1});
    controller.LoadSettings();
    EXPECT_EQ(controller.GetMetadataPresetPath(), u"/presets/Dailies.irp") << "the preset paths share one key";

    ASSERT_FALSE(preferences->KeysOf(Op::kGet).empty());
    for (std::size_t i = 0; i < preferences->calls.size(); ++i)
        if (preferences->calls[i].op == Op::kGet) {
            EXPECT_EQ(preferences->calls.at(i - 1).op, Op::kRefresh) << preferences->calls[i].key;
        }

    ASSERT_EQ(controller.GetDestinations().size(), 2u);
    const DestinationSetting& primary = controller.GetDestinations().front();
    EXPECT_TRUE(controller.IsImportOnly());
    EXPECT_FALSE(primary.enabled);
    EXPECT_TRUE(primary.needSubFolder);
    EXPECT_TRUE(primary.destination->IsPrimary());
    EXPECT_EQ(controller.GetVerifyOption(), 0);
    EXPECT_EQ(controller.GetVerifyChecksum(), Checksum::Algorithm::Md5);

    // The count stored when no destinations existed reads as none.
    Put("Local.VerifyOption", std::uint32_t{0xFFFFFFFF});
    Put("Local.Backup.Count", std::uint32_t{0xFFFFFFFF});
    // A checksum of a newer version verifies by MD5 rather than not at all.
    Put("Local.VerifyChecksum", "blake3");
    controller.LoadSettings();
    EXPECT_EQ(controller.GetVerifyOption(), -1);
    EXPECT_EQ(controller.GetVerifyChecksum(), Checksum::Algorithm::Md5);
    EXPECT_EQ(controller.GetDestinations().size(), 1u);
}

TEST_F(SettingsLoad, ALockedSiteReadsNoOptionsYetStillReadsTheBackups) {
    site = {true, u"Dailies"};
    Put("Local.ImportOnly", false);
    Put("EnableRenameTemplate", true);
    Put("EnableMetadataTemplate", true);
    Put("Local.VerifyChecksum", "xxh64");
    Put("Local.Backup.Count", std::uint32_t{2});
    Put("Local.Backup.Enabled2", true);
    controller.LoadSettings();

    EXPECT_TRUE(controller.GetSettingsLocked());
    EXPECT_EQ(controller.GetDefaultSubfolderName(), u"Dailies");
    EXPECT_TRUE(controller.IsImportOnly());
    EXPECT_FALSE(controller.GetEnableRenameTemplate());
    EXPECT_FALSE(controller.GetEnableMetadataTemplate());
    EXPECT_EQ(controller.GetVerifyChecksum(), Checksum::Algorithm::Md5);
    ASSERT_EQ(controller.GetDestinations().size(), 3u);
    EXPECT_TRUE(controller.GetDestinations()[2].enabled);
}

} // namespace
} // namespace igd::test
