#include <regex>

#include "IGD/IngestDialogApi.h"
#include "tests/settings/SettingsFixture.h"

namespace igd::test {
using namespace IGD;
namespace {

using SettingsOperations = SettingsFixture;

TEST_F(SettingsOperations, SwitchingTransferMovesImportOnlyAndThePrimaryThenTellsTheListeners) {
    controller.LoadSettings();
    std::vector<std::string> heard;
    controller.AddTransferListener([&](bool on) { heard.push_back(on ? "first on" : "first off"); });
    const auto second =
        controller.AddTransferListener([&](bool on) { heard.push_back(on ? "second on" : "-"); });

    controller.SetTransferDisabled(false);
    EXPECT_FALSE(controller.IsImportOnly());
    EXPECT_TRUE(controller.IsDestinationEnabled(0));
    controller.RemoveTransferListener(second);
    controller.SetTransferDisabled(true);
    EXPECT_TRUE(controller.IsImportOnly());
    EXPECT_FALSE(controller.IsDestinationEnabled(0));
    EXPECT_EQ(heard, (std::vector<std::string>{"first on", "second on", "first off"}));
}

TEST_F(SettingsOperations, InARemoteProjectOnlyTheLocalCopyDecidesTheDestination) {
    UseRemoteProject();
    controller.LoadSettings();
    bool heard = false;
    controller.AddTransferListener([&](bool on) { heard = on; });
    controller.SetTransferDisabled(false);
    EXPECT_TRUE(heard);
    EXPECT_TRUE(controller.IsImportOnly());
    EXPECT_FALSE(controller.IsDestinationEnabled(0));

    controller.SetVaultTempLocalCopy(true);
    EXPECT_TRUE(controller.GetVaultTempLocalCopy());
    EXPECT_TRUE(controller.IsDestinationEnabled(0));
    AppFrame::DocumentManager::SetInstance(nullptr);
    EXPECT_FALSE(controller.GetVaultTempLocalCopy());
    controller.SetVaultTempLocalCopy(false);
    EXPECT_TRUE(controller.IsDestinationEnabled(0)) << "ignored outside a remote project";
}

TEST_F(SettingsOperations, ANewRenamePresetNameRestartsTheCounterAndTheSameNameKeepsIt) {
    controller.SetUserDefAutoIncStartNumber(0);
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 1u);
    controller.SetUserDefAutoIncStartNumber(9);
    controller.SetRenamePreset(NamedPreset(u"Dailies", u"/p/Dailies.irp"));
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 9u) << "the first preset restarts nothing";
    controller.SetRenamePreset(NamedPreset(u"Dailies", u"/p/copy/Dailies.irp"));
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 9u);
    EXPECT_EQ(controller.GetRenamePresetPath(), u"/p/copy/Dailies.irp");
    controller.SetRenamePreset(NamedPreset(u"dailies", u"/p/dailies.irp"));
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 1u);

    controller.SetUserDefAutoIncStartNumber(5);
    controller.SetRenamePreset(nullptr);
    EXPECT_EQ(controller.GetUserDefAutoIncStartNumber(), 1u);
    EXPECT_TRUE(controller.GetRenamePresetPath().empty());
}

TEST_F(SettingsOperations, WithoutASiteSubfolderTheDefaultIsTheTimeNow) {
    controller.LoadSettings();
    const std::string stamp = Fnd::ToUTF8(controller.GetDefaultSubfolderName());
    EXPECT_TRUE(std::regex_match(stamp, std::regex(R"(\d{4}-\d{2}-\d{2}_\d{2}-\d{2}-\d{2})"))) << stamp;
}

TEST(IngestSettingsControllerInstance, OutlivesTerminationEmptied) {
    auto preferences = RecordingPreferences::Make();
    Proj::ScopedBackend backend{preferences->Interface()};
    const auto controller = IngestSettingsController::GetInstance();
    controller->LoadSettings();
    controller->SetRenamePreset(NamedPreset(u"Dailies", u"/p/Dailies.irp"));
    controller->SetMetadataPreset(NamedPreset(u"Show", u"/p/Show.imp"));
    IngestDialogTerminate();
    EXPECT_EQ(IngestSettingsController::GetInstance(), controller);
    EXPECT_TRUE(controller->GetDestinations().empty());
    EXPECT_FALSE(controller->GetRenamePreset() || controller->GetMetadataPreset());
}

} // namespace
} // namespace igd::test
