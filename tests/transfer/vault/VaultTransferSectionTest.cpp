// The Transfer section of a remote project, worked as a user works it, over a controller loaded from
// a recording store.
#include <sys/stat.h>

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

class VaultTransferSectionTest : public SettingsFixture {
protected:
    VaultTransferSectionTest() {
        UseRemoteProject();
        // The real encoder list, so that transcoding is offered as on a user's machine.
        Av::InstallEncoderList();
        Mid::SetProject(Proj::MakeProjectOfFile("/projects/Harbour Lights.igdproj"));
        LogIn(u"studio-east");
    }
    ~VaultTransferSectionTest() override {
        section.reset();
        VaultClient::IVaultCDataServer::SetLoggedInServer(nullptr);
        Mid::SetProject(nullptr);
        Mid::PresetManager::Install(nullptr);
    }

    static void LogIn(const Fnd::WString& server) {
        VaultClient::IVaultCDataServer::SetLoggedInServer(VaultClient::MakeNamedServer(server));
    }
    VaultTransferSection& Open() {
        controller.LoadSettings();
        controller.SetSettingsChangedCallback([this] { ++notifications; });
        // The controller outlives the section: the test owns it.
        section = new VaultTransferSection(std::shared_ptr<IngestSettingsController>(std::shared_ptr<void>(), &controller));
        section->UI_SetLocalRectF({0, 0, 360, 300});
        wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        return *section;
    }
    VaultDestinationSection& Destination() const { return *section->GetDestinationSection(); }
    fluxui::controls::UI_Checkbox& CopyBox() const { return Destination().GetTempLocalCopyCheckbox(); }
    // What the user can reach of the copy's path and transcode blocks.
    bool CopyBlocksEnabled() const {
        const bool path = Destination().GetPathSection()->GetDestinationPopup().UI_IsEnabled();
        EXPECT_EQ(Destination().GetTranscodeSection()->GetTranscodeCheckbox()->UI_IsEnabled(), path);
        return path;
    }

    ScopedIgdHome home;
    boost::intrusive_ptr<VaultTransferSection> section;
    int notifications = 0;
};

TEST_F(VaultTransferSectionTest, ShowsTheServerAndProjectOfWhoIsLoggedIn) {
    EXPECT_EQ(Open().GetDestinationStaticText().GetValue(), u"studio-east/Harbour Lights");
    EXPECT_TRUE(section->GetDestinationStaticText().UI_IsEnabled());

    // Nobody logged in: nothing to show, and no project is asked for.
    VaultClient::IVaultCDataServer::SetLoggedInServer(nullptr);
    Mid::SetProject(nullptr);
    EXPECT_EQ(controller.GetVaultDestinationText(), u"");
    // A login without a project is the host's fault.
    LogIn(u"studio-east");
    EXPECT_THROW(controller.GetVaultDestinationText(), Fnd::NullInterfaceException);

    AppFrame::DocumentManager::SetInstance(nullptr);
    EXPECT_EQ(controller.GetVaultDestinationText(), u"");
}

TEST_F(VaultTransferSectionTest, TheCopyBoxEnablesThePathAndTranscodeBlocksOfTheOneDestination) {
    Put("Vault.TempLocalCopy", false);
    Open();
    ASSERT_EQ(Destination().GetChildSections().size(), 2u);
    EXPECT_EQ(Destination().GetPathSection()->GetDestinationIndex(), 0u);
    EXPECT_EQ(Destination().GetTranscodeSection()->GetDestinationIndex(), 0u);
    EXPECT_FALSE(CopyBox().IsChecked());
    EXPECT_FALSE(CopyBlocksEnabled());
    EXPECT_FALSE(controller.IsDestinationEnabled(0));

    CopyBox().Press();
    EXPECT_TRUE(controller.GetVaultTempLocalCopy());
    EXPECT_TRUE(controller.IsDestinationEnabled(0));
    EXPECT_TRUE(CopyBlocksEnabled());
    CopyBox().Press();
    EXPECT_FALSE(controller.GetVaultTempLocalCopy());
    EXPECT_FALSE(controller.IsDestinationEnabled(0));
    EXPECT_FALSE(CopyBlocksEnabled());
    // The copy is this machine's affair: a host that embeds the view is not told.
    EXPECT_EQ(notifications, 0);
}

TEST_F(VaultTransferSectionTest, ARemoteProjectStoresItsOneDestinationAndLeavesTheLocalKeysAsTheyWere) {
    Put("Vault.TempLocalCopy", true);
    Put("Local.ImportOnly", false);
    Put("Local.Backup.Count", std::uint32_t{2});
    Put("Local.Backup.Enabled1", true);
    Put("Local.Backup.Transcode2", true);
    const auto storedBefore = preferences->values;

    Open();
    EXPECT_EQ(controller.GetDestinations().size(), 1u);
    EXPECT_TRUE(CopyBox().IsChecked());
    EXPECT_TRUE(CopyBlocksEnabled());
    Destination().GetTranscodeSection()->GetTranscodeCheckbox()->Press();
    CopyBox().Press();
    controller.SaveSettings();

    for (const std::string& key : preferences->KeysOf(RecordingPreferences::Op::kSet))
        EXPECT_EQ(key.find(K("Local.")), std::string::npos) << key;
    // Stored in its own sense: false now that no copy is made, where the local form stores true
    // for import only.
    EXPECT_EQ(Stored(K("Vault.TempLocalCopy")), Proj::PreferenceData(false));
    EXPECT_EQ(Stored(K("Primary.Transcode")), Proj::PreferenceData(true));
    for (const char* local : {"Local.ImportOnly", "Local.Backup.Count", "Local.Backup.Enabled1", "Local.Backup.Transcode2"})
        EXPECT_EQ(Stored(K(local)), storedBefore.at(K(local))) << local;
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

TEST_F(VaultTransferSectionTest, FoldingIsRememberedAndRestored) {
    Put("TransferSectionOpened", false);
    EXPECT_FALSE(Open().GetOpened());
    section->SetOpened(true);
    EXPECT_TRUE(controller.GetTransferSectionOpened());
}

TEST_F(VaultTransferSectionTest, EachScratchFolderIsNewAndPrivate) {
    TempTree tmp;
    const char* previous = std::getenv("TMPDIR");
    const std::string kept = previous ? previous : "";
    setenv("TMPDIR", tmp.NativePath().c_str(), 1);

    const Fnd::WString first = controller.GetVaultTempFolder();
    const Fnd::WString second = controller.GetVaultTempFolder();
    AppFrame::DocumentManager::SetInstance(nullptr);
    const Fnd::WString outside = controller.GetVaultTempFolder();
    if (previous)
        setenv("TMPDIR", kept.c_str(), 1);
    else
        unsetenv("TMPDIR");

    EXPECT_NE(first, second);
    for (const Fnd::WString& folder : {first, second}) {
        const std::filesystem::path path(Fnd::ToUTF8(folder));
        EXPECT_EQ(path.parent_path(), tmp.NativePath("TempVaultTranscodeFilesRoot/VaultIngest"));
        struct stat info {};
        ASSERT_EQ(::stat(path.c_str(), &info), 0) << path;
        EXPECT_TRUE(S_ISDIR(info.st_mode));
        EXPECT_EQ(info.st_mode & 0777, 0700u);
    }
    EXPECT_EQ(outside, u"");
}

} // namespace
} // namespace igd::test
