// The Transfer section of a remote project, worked as a user works it, over a controller loaded from
// a recording store.
#include <cstdlib>
#include <filesystem>

#include "Av/EncoderList.h"
#include "Fnd/NullInterfaceException.h"
#include "IGD/LayoutPreview.h"
#include "Mid/Project.h"
#include "VaultClient/IVaultCDataServer.h"
#include "support/ScopedIgdHome.h"
#include "support/TempTree.h"
#include "tests/settings/SettingsFixture.h"
#include "transfer/SectionTree.h"
#include "transfer/path/PathSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"
#include "transfer/vault/VaultDestinationSection.h"
#include "transfer/vault/VaultTransferSection.h"

namespace igd::test {
namespace {

using VaultClient::IVaultCDataServer;

class VaultTransferSectionTest : public SettingsFixture {
protected:
    VaultTransferSectionTest() {
        UseRemoteProject();
        // The real encoder list, so that transcoding is offered as on a user's machine.
        Av::InstallEncoderList();
        Mid::SetProject(Proj::MakeProjectOfFile("/projects/Harbour Lights.igdproj"));
        IVaultCDataServer::SetLoggedInServer(VaultClient::MakeNamedServer(u"studio-east"));
    }
    ~VaultTransferSectionTest() override {
        IVaultCDataServer::SetLoggedInServer(nullptr);
        Mid::SetProject(nullptr);
        Mid::PresetManager::Install(nullptr);
    }

    VaultTransferSection& Open() {
        controller.LoadSettings();
        // The controller outlives the section: the test owns it.
        section = new VaultTransferSection(std::shared_ptr<IngestSettingsController>(std::shared_ptr<void>(), &controller));
        wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        return *section;
    }
    VaultDestinationSection& Destination() const { return *section->GetDestinationSection(); }
    fluxui::controls::UI_Checkbox& CopyBox() const { return Destination().GetTempLocalCopyCheckbox(); }
    // Whether the user can reach the copy's path popup and its transcode box.
    std::pair<bool, bool> CopyBlocks() const {
        return {Destination().GetPathSection()->GetDestinationPopup().UI_IsEnabled(),
                Destination().GetTranscodeSection()->GetTranscodeCheckbox()->UI_IsEnabled()};
    }

    ScopedIgdHome home;
    boost::intrusive_ptr<VaultTransferSection> section;
};

TEST_F(VaultTransferSectionTest, ShowsTheServerAndProjectOfWhoIsLoggedIn) {
    EXPECT_EQ(Open().GetDestinationStaticText().GetValue(), u"studio-east/Harbour Lights");
    EXPECT_TRUE(section->GetDestinationStaticText().UI_IsEnabled());
    section->SetOpened(false);
    EXPECT_FALSE(controller.GetTransferSectionOpened());

    // Nobody logged in: nothing to show, and no project is asked for.
    IVaultCDataServer::SetLoggedInServer(nullptr);
    Mid::SetProject(nullptr);
    EXPECT_EQ(controller.GetVaultDestinationText(), u"");
    // A login without a project is the host's fault.
    IVaultCDataServer::SetLoggedInServer(VaultClient::MakeNamedServer(u"studio-east"));
    EXPECT_THROW(controller.GetVaultDestinationText(), Fnd::NullInterfaceException);
    AppFrame::DocumentManager::SetInstance(nullptr);
    EXPECT_EQ(controller.GetVaultDestinationText(), u"");
}

TEST_F(VaultTransferSectionTest, TheCopyBoxEnablesThePathAndTranscodeBlocksOfTheOneDestination) {
    Put("Vault.TempLocalCopy", false);
    Put("TransferSectionOpened", false);
    EXPECT_FALSE(Open().GetOpened());
    EXPECT_FALSE(CopyBox().IsChecked());
    EXPECT_EQ(CopyBlocks(), std::pair(false, false));

    CopyBox().Press();
    EXPECT_TRUE(controller.GetVaultTempLocalCopy());
    EXPECT_TRUE(controller.IsDestinationEnabled(0));
    EXPECT_EQ(CopyBlocks(), std::pair(true, true));
    CopyBox().Press();
    EXPECT_FALSE(controller.IsDestinationEnabled(0));
    EXPECT_EQ(CopyBlocks(), std::pair(false, false));
}

TEST_F(VaultTransferSectionTest, ARemoteProjectStoresItsOneDestinationAndLeavesTheLocalKeysAsTheyWere) {
    Put("Vault.TempLocalCopy", true);
    Put("Local.ImportOnly", false);
    Put("Local.Backup.Count", std::uint32_t{2});
    Put("Local.Backup.Transcode2", true);

    Open();
    EXPECT_EQ(controller.GetDestinations().size(), 1u);
    EXPECT_TRUE(CopyBox().IsChecked());
    Destination().GetTranscodeSection()->GetTranscodeCheckbox()->Press();
    CopyBox().Press();
    controller.SaveSettings();

    // Nothing of the local form is written, the backups' keys above all.
    for (const std::string& key : preferences->KeysOf(RecordingPreferences::Op::kSet))
        EXPECT_EQ(key.find(K("Local.")), std::string::npos) << key;
    // Stored in its own sense: false now that no copy is made, where the local form stores true
    // for import only.
    EXPECT_EQ(Stored(K("Vault.TempLocalCopy")), Proj::PreferenceData(false));
    EXPECT_EQ(Stored(K("Primary.Transcode")), Proj::PreferenceData(true));
}

TEST_F(VaultTransferSectionTest, ALockedSiteDisablesTheTextAndTheCopyWhateverWasStored) {
    site.settingsLocked = true;
    Put("Vault.TempLocalCopy", true);
    Open();
    EXPECT_FALSE(section->GetDestinationStaticText().UI_IsEnabled());
    EXPECT_FALSE(Destination().UI_IsEnabled());
    EXPECT_FALSE(CopyBox().IsChecked());
    CopyBox().Press();
    EXPECT_FALSE(controller.GetVaultTempLocalCopy());
    // The user still sees where the media goes.
    EXPECT_EQ(section->GetDestinationStaticText().GetValue(), u"studio-east/Harbour Lights");
}

TEST_F(VaultTransferSectionTest, EachScratchFolderIsNewAndPrivate) {
    TempTree tmp;
    const std::string previous = std::getenv("TMPDIR") ? std::getenv("TMPDIR") : "";
    setenv("TMPDIR", tmp.NativePath().c_str(), 1);
    const Fnd::WString first = controller.GetVaultTempFolder();
    const Fnd::WString second = controller.GetVaultTempFolder();
    AppFrame::DocumentManager::SetInstance(nullptr);
    const Fnd::WString outside = controller.GetVaultTempFolder();
    previous.empty() ? unsetenv("TMPDIR") : setenv("TMPDIR", previous.c_str(), 1);

    EXPECT_NE(first, second);
    for (const Fnd::WString& folder : {first, second}) {
        const std::filesystem::path path(Fnd::ToUTF8(folder));
        EXPECT_EQ(path.parent_path(), tmp.NativePath("TempVaultTranscodeFilesRoot/VaultIngest"));
        EXPECT_TRUE(std::filesystem::is_directory(path)) << path;
        EXPECT_EQ(std::filesystem::status(path).permissions(), std::filesystem::perms::owner_all);
    }
    EXPECT_EQ(outside, u"");
    const std::filesystem::directory_iterator made(tmp.NativePath("TempVaultTranscodeFilesRoot/VaultIngest"));
    EXPECT_EQ(std::distance(made, {}), 2);
}

} // namespace
} // namespace igd::test
