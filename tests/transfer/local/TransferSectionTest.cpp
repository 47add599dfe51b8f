// The transfer sections as a user works them: the destination path, verification, transfer on and
// off, backups added, numbered and removed, the hosted family and the site's lock, and what
// reaches the preference store.
#include <gtest/gtest.h>

#include "HostApp/ApplicationType.h"
#include "IGD/LayoutPreview.h"
#include "support/ScriptedInteractionDriver.h"
#include "tests/settings/SettingsFixture.h"
#include "transfer/SectionTree.h"
#include "transfer/local/AddDestinationSection.h"
#include "transfer/local/BackupDestinationSection.h"
#include "transfer/local/LocalTransferSection.h"
#include "transfer/local/PrimaryDestinationSection.h"
#include "transfer/local/TransferLayouts.h"
#include "transfer/path/PathSettingSection.h"
#include "transfer/transcode/TranscodeSettingSection.h"
#include "transfer/verify/VerifySettingSection.h"

namespace igd::test {
namespace {

using Texts = std::vector<Fnd::WString>;
const Fnd::WString kBrowseRow = u"Browse for Location...";

class TransferSectionTest : public SettingsFixture {
protected:
    TransferSectionTest() { controller.SetSettingsChangedCallback([this] { ++notifications; }); }
    ~TransferSectionTest() override { root.reset(); }

    template <typename Section> Section& Open(Section* section) {
        root = section;
        section->UI_SetLocalRectF({0, 0, 320, 900});
        wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        return *section;
    }
    // The controller outlives the sections: the test owns it.
    std::shared_ptr<IngestSettingsController> Shared() { return {std::shared_ptr<void>(), &controller}; }
    PathSettingSection& OpenPath(Texts recent, const char* layout = "igdPathSetting") {
        Primary().pathsMRU = std::move(recent);
        return Open(new PathSettingSection(layout, 0, Shared()));
    }
    DestinationSetting& Primary() {
        if (controller.GetDestinations().empty())
            controller.LoadSettings();
        return controller.GetDestinationSetting(0);
    }
    Fnd::WString Path() { return Primary().destination->GetDestinationPath(); }
    static Texts Rows(const fluxui::controls::UI_Popup& popup) {
        Texts rows;
        for (const auto& item : popup.GetItems())
            rows.push_back(item.text);
        return rows;
    }

    // As a new dialog opens it, over what the store holds and the backups a host gave.
    LocalTransferSection& OpenTransfer(std::initializer_list<const char16_t*> givenBackups = {}) {
        controller.LoadSettings();
        for (const char16_t* path : givenBackups)
            controller.AddBackupDestination(path);
        const char* layout = TransferLayouts::For(controller.IsKilnHosted()).transferHeader;
        return Open(new LocalTransferSection(u"Transfer", layout, Shared()));
    }
    LocalTransferSection& Section() const { return dynamic_cast<LocalTransferSection&>(*root); }
    PathSettingSection& PrimaryPath() const { return Section().GetPrimarySection().GetPathSection(); }
    void AddBackup(const Fnd::WString& folder) {
        ui->QueueFolderAnswer(folder);
        Section().GetAddDestinationSection()->GetAddButton().Press();
    }
    Texts Captions() const {
        Texts captions;
        for (const auto& backup : Section().GetBackupSections())
            captions.push_back(backup->GetBackupCheckbox().GetText());
        return captions;
    }

    ScopedInteractionDriver ui;
    wrangler::ui::SectionViewExRef root;
    int notifications = 0;
};

TEST_F(TransferSectionTest, WithoutFoldersTheButtonBrowsesAndACancelLeavesItShowing) {
    PathSettingSection& section = OpenPath({});
    EXPECT_EQ(Rows(section.GetDestinationPopup()), (Texts{u"", kBrowseRow}));
    ui->QueueFolderCancel();
    section.GetBrowseButton().Press();
    EXPECT_TRUE(section.GetBrowseButton().UI_IsShown());
    EXPECT_EQ(Path(), u"");

    ui->QueueFolderAnswer(u"/Volumes/Card");
    section.GetBrowseButton().Press();
    EXPECT_FALSE(section.GetBrowseButton().UI_IsShown());
    EXPECT_EQ(Rows(section.GetDestinationPopup()), (Texts{u"/Volumes/Card", u"", kBrowseRow}));
    const auto place = [](const fluxui::ui::UI_Node& node) { return node.UI_GetLocalRectF(true); };
    EXPECT_EQ(place(section.GetDestinationPopup()).Right(), place(section.GetBrowseButton()).Right());
    EXPECT_EQ(Path(), u"/Volumes/Card");
    EXPECT_EQ(notifications, 1);
}

TEST_F(TransferSectionTest, ARecentFolderChosenOrBrowsedToHeadsTheList) {
    auto& popup = OpenPath({u"/A", u"/B", u"/C"}).GetDestinationPopup();
    EXPECT_EQ(Path(), u"/A");
    popup.ChooseByUser(2);
    EXPECT_EQ(Rows(popup), (Texts{u"/C", u"/A", u"/B", u"", kBrowseRow}));
    EXPECT_EQ(popup.GetValue(), 0);
    EXPECT_EQ(Path(), u"/C");
    popup.ChooseByUser(3);
    EXPECT_EQ(Primary().pathsMRU, (Texts{u"/C", u"/A", u"/B"}));

    // Moving an entry up looks at four old entries only, so the fifth goes.
    auto& five = OpenPath({u"/A", u"/B", u"/C", u"/D", u"/E"}).GetDestinationPopup();
    ui->QueueFolderAnswer(u"/C");
    five.ChooseByUser(6);
    EXPECT_EQ(ui->FolderQuestions().back().defaultDirectory, u"/A");
    EXPECT_EQ(Primary().pathsMRU, (Texts{u"/C", u"/A", u"/B", u"/D"}));
    // A cancelled chooser answers where it started, which changes nothing.
    ui->QueueFolderCancel();
    five.ChooseByUser(5);
    EXPECT_EQ(Primary().pathsMRU, (Texts{u"/C", u"/A", u"/B", u"/D"}));
}

TEST_F(TransferSectionTest, TheSubfolderGoesToTheDestinationOnlyWhileTicked) {
    site.defaultSubfolder = u"Dailies";
    Primary().needSubFolder = false;
    PathSettingSection& section = OpenPath({});
    auto& box = *section.GetAddSubfolderCheckbox();
    auto& edit = *section.GetAddSubfolderEdit();
    EXPECT_FALSE(edit.UI_IsEnabled());
    EXPECT_EQ(edit.GetValue(), u"Dailies");
    EXPECT_EQ(Primary().destination->GetSubFolder(), u"");
    box.Press();
    edit.TypeText(u"Day 2");
    EXPECT_TRUE(Primary().needSubFolder);
    EXPECT_EQ(Primary().destination->GetSubFolder(), u"Day 2");
    box.Press();
    EXPECT_EQ(Primary().destination->GetSubFolder(), u"");
}

TEST_F(TransferSectionTest, AHostedPathKeepsTheHostsFolderEvenWhenItIsNotInTheList) {
    HostApp::SetApplicationType(8);
    Primary().destination->SetDestinationPath(u"/Host/Media");
    EXPECT_EQ(OpenPath({u"/A"}, "igdKilnHostedPathSetting").GetDestinationPopup().GetValue(), -1);
    EXPECT_EQ(Path(), u"/Host/Media");
}

TEST_F(TransferSectionTest, TheCheckboxAndThePowerSwitchTurnTransferOnAndOff) {
    LocalTransferSection& section = OpenTransfer();
    EXPECT_FALSE(section.GetPrimarySection().UI_IsEnabled());
    section.GetTransferClipsCheckbox().Press();
    EXPECT_FALSE(controller.IsImportOnly());
    EXPECT_TRUE(section.GetPowerState());
    // Unlike the box, the switch does not tell the host.
    section.GetPowerOffButton().Press();
    EXPECT_TRUE(controller.IsImportOnly());
    EXPECT_FALSE(section.GetTransferClipsCheckbox().IsChecked());
    EXPECT_FALSE(PrimaryPath().GetBrowseButton().UI_IsEnabled());
    EXPECT_EQ(notifications, 1);
}

TEST_F(TransferSectionTest, VerifyStartsWithMD5AndAClearBoxStoresNoneUntilTickedAgain) {
    OpenTransfer().GetTransferClipsCheckbox().Press();
    auto& box = Section().GetPrimarySection().GetVerifySection().GetVerifyCheckbox();
    auto& popup = Section().GetPrimarySection().GetVerifySection().GetVerifyPopup();
    EXPECT_TRUE(box.IsChecked());
    EXPECT_EQ(popup.GetValueString(), u"MD5 comparison");
    popup.ChooseByUser(2);
    box.Press();
    EXPECT_EQ(controller.GetVerifyOption(), -1);
    EXPECT_FALSE(popup.UI_IsEnabled());
    box.Press();
    EXPECT_EQ(controller.GetVerifyOption(), 2);
    EXPECT_EQ(notifications, 4);

    Put("Local.VerifyOption", std::uint32_t{0xFFFFFFFF});
    Put("Local.ImportOnly", false);
    auto& none = OpenTransfer().GetPrimarySection().GetVerifySection();
    EXPECT_TRUE(none.GetVerifyCheckbox().UI_IsEnabled());
    EXPECT_FALSE(none.GetVerifyCheckbox().IsChecked());
    EXPECT_EQ(none.GetVerifyPopup().GetValue(), 0);
    EXPECT_FALSE(none.GetVerifyPopup().UI_IsEnabled());
}

TEST_F(TransferSectionTest, RemovingABackupRenumbersTheRestAndTheirKeysFollow) {
    LocalTransferSection& section = OpenTransfer();
    section.GetTransferClipsCheckbox().Press();
    ui->QueueFolderCancel();
    section.GetAddDestinationSection()->GetAddButton().Press();
    for (const char16_t* folder : {u"/Backup/One", u"/Backup/Two", u"/Backup/Three"})
        AddBackup(folder);
    EXPECT_EQ(Captions(), (Texts{u"Destination 01:", u"Destination 02:", u"Destination 03:"}));
    EXPECT_EQ(section.GetChildSections().back().get(), section.GetAddDestinationSection());

    section.GetBackupSections()[1]->GetRemoveButton()->Press();
    EXPECT_EQ(Captions(), (Texts{u"Destination 01:", u"Destination 02:"}));
    const auto& third = *section.GetBackupSections()[1];
    EXPECT_EQ(third.GetPathSection().GetDestinationIndex(), 2u);
    EXPECT_EQ(third.GetTranscodeSection().GetDestinationIndex(), 2u);
    // A disabled backup keeps its place and its keys.
    third.GetBackupCheckbox().Press();
    controller.SaveSettings();
    EXPECT_EQ(Stored(K("Local.Backup.Count")), Proj::PreferenceData(std::uint32_t{2}));
    EXPECT_EQ(Stored(BackupList(1, "PathsMRUItem0")), Proj::PreferenceData(std::string("/Backup/One")));
    EXPECT_EQ(Stored(BackupList(2, "PathsMRUItem0")), Proj::PreferenceData(std::string("/Backup/Three")));
    EXPECT_EQ(Stored(K("Local.Backup.Enabled1")), Proj::PreferenceData(true));
    EXPECT_EQ(Stored(K("Local.Backup.Enabled2")), Proj::PreferenceData(false));
}

TEST_F(TransferSectionTest, WhatTheUserChoseSurvivesSavingAndLoading) {
    LocalTransferSection& section = OpenTransfer();
    section.GetTransferClipsCheckbox().Press();
    AddBackup(u"/Backup/One");
    section.GetBackupSections()[0]->GetPathSection().GetAddSubfolderCheckbox()->Press();
    section.GetPrimarySection().GetVerifySection().GetVerifyPopup().ChooseByUser(1);
    ui->QueueFolderAnswer(u"/Volumes/Raid");
    PrimaryPath().GetBrowseButton().Press();
    controller.SaveSettings();

    LocalTransferSection& reopened = OpenTransfer();
    EXPECT_TRUE(reopened.GetTransferClipsCheckbox().IsChecked());
    EXPECT_EQ(PrimaryPath().GetDestinationPopup().GetValueString(), u"/Volumes/Raid");
    EXPECT_EQ(reopened.GetPrimarySection().GetVerifySection().GetVerifyPopup().GetValue(), 1);
    ASSERT_EQ(Captions(), (Texts{u"Destination 01:"}));
    const PathSettingSection& backupPath = reopened.GetBackupSections()[0]->GetPathSection();
    EXPECT_EQ(backupPath.GetDestinationPopup().GetValueString(), u"/Backup/One");
    EXPECT_FALSE(backupPath.GetAddSubfolderCheckbox()->IsChecked());
}

TEST_F(TransferSectionTest, AHostedApplicationShowsTheReducedFamilyAndItsBoxGovernsOnlyThePrimary) {
    HostApp::SetApplicationType(5);
    LocalTransferSection& section = OpenTransfer({u"/Host/Proxies"});
    EXPECT_FALSE(section.IsPowerSwitchVisible());
    EXPECT_EQ(section.GetAddDestinationSection(), nullptr);
    EXPECT_EQ(section.GetPrimarySection().GetTranscodeSection(), nullptr);
    EXPECT_EQ(PrimaryPath().GetAddSubfolderCheckbox(), nullptr);
    ASSERT_EQ(Captions(), (Texts{u"Transcode files to Destination"}));
    const auto& backup = *section.GetBackupSections()[0];
    EXPECT_EQ(backup.GetRemoveButton(), nullptr);
    // A hosted backup always transcodes and never stitches.
    EXPECT_EQ(backup.GetTranscodeSection().GetTranscodeCheckbox(), nullptr);
    EXPECT_EQ(backup.GetTranscodeSection().GetConcatenateSection(), nullptr);
    EXPECT_TRUE(controller.GetDestinationSetting(1).destination->GetTranscodeSetting()->enabled);

    EXPECT_TRUE(section.GetTransferClipsCheckbox().IsChecked());
    section.GetTransferClipsCheckbox().Press();
    EXPECT_FALSE(controller.IsDestinationEnabled(0));
    EXPECT_FALSE(section.GetPrimarySection().UI_IsEnabled());
    EXPECT_TRUE(backup.GetBackupCheckbox().UI_IsEnabled());
}

TEST_F(TransferSectionTest, WhileTheSiteLocksTheSettingsNothingCanBeUsed) {
    site.settingsLocked = true;
    LocalTransferSection& section = OpenTransfer({u"/Backup/One"});
    EXPECT_FALSE(section.GetPowerOnButton().UI_IsEnabled());
    EXPECT_FALSE(PrimaryPath().GetBrowseButton().UI_IsEnabled());
    EXPECT_FALSE(section.GetBackupSections().at(0)->GetRemoveButton()->UI_IsEnabled());
    // A press on a disabled button asks nothing: the scripted chooser would fail the test.
    section.GetAddDestinationSection()->GetAddButton().Press();
    section.GetTransferClipsCheckbox().Press();
    EXPECT_TRUE(controller.IsImportOnly());
}

} // namespace
} // namespace igd::test
