// The destination path block as a user works it: the browse button, the recent folders and the
// subfolder.
#include "HostApp/ApplicationType.h"
#include "tests/transfer/local/TransferSectionFixture.h"
#include "transfer/path/PathSettingSection.h"

namespace igd::test {
namespace {

using Paths = std::vector<Fnd::WString>;
const Fnd::WString kBrowseRow = u"Browse for Location...";

class PathSettingSectionTest : public TransferSectionFixture {
protected:
    PathSettingSection& OpenPrimary(Paths recent, const char* layout = "igdPathSetting") {
        Primary().pathsMRU = std::move(recent);
        return Open(new PathSettingSection(layout, 0, Shared()));
    }
    DestinationSetting& Primary() {
        if (controller.GetDestinations().empty())
            controller.LoadSettings();
        return controller.GetDestinationSetting(0);
    }
    Fnd::WString Path() { return Primary().destination->GetDestinationPath(); }
};

TEST_F(PathSettingSectionTest, WithoutFoldersTheButtonBrowsesAndACancelLeavesItShowing) {
    PathSettingSection& section = OpenPrimary({});
    EXPECT_EQ(Rows(section.GetDestinationPopup()), (Paths{u"", kBrowseRow}));
    ui->QueueFolderCancel();
    section.GetBrowseButton().Press();
    EXPECT_TRUE(section.GetBrowseButton().UI_IsShown());
    EXPECT_EQ(Path(), u"");

    ui->QueueFolderAnswer(u"/Volumes/Card");
    section.GetBrowseButton().Press();
    EXPECT_FALSE(section.GetBrowseButton().UI_IsShown());
    EXPECT_TRUE(section.GetDestinationPopup().UI_IsShown());
    EXPECT_EQ(Rows(section.GetDestinationPopup()), (Paths{u"/Volumes/Card", u"", kBrowseRow}));
    EXPECT_EQ(Path(), u"/Volumes/Card");
    EXPECT_EQ(notifications, 1);
}

TEST_F(PathSettingSectionTest, ARecentFolderChosenOrBrowsedToHeadsTheList) {
    auto& popup = OpenPrimary({u"/A", u"/B", u"/C"}).GetDestinationPopup();
    EXPECT_EQ(Path(), u"/A");
    popup.ChooseByUser(2);
    EXPECT_EQ(Rows(popup), (Paths{u"/C", u"/A", u"/B", u"", kBrowseRow}));
    EXPECT_EQ(popup.GetValue(), 0);
    EXPECT_EQ(Path(), u"/C");
    popup.ChooseByUser(3);
    EXPECT_EQ(Primary().pathsMRU, (Paths{u"/C", u"/A", u"/B"}));

    // Moving an entry up looks at four old entries only, so the fifth goes.
    auto& five = OpenPrimary({u"/A", u"/B", u"/C", u"/D", u"/E"}).GetDestinationPopup();
    ui->QueueFolderAnswer(u"/C");
    five.ChooseByUser(6);
    EXPECT_EQ(ui->FolderQuestions().back().defaultDirectory, u"/A");
    EXPECT_EQ(Primary().pathsMRU, (Paths{u"/C", u"/A", u"/B", u"/D"}));
    // A cancelled chooser answers where it started, which changes nothing.
    ui->QueueFolderCancel();
    five.ChooseByUser(5);
    EXPECT_EQ(Primary().pathsMRU, (Paths{u"/C", u"/A", u"/B", u"/D"}));
    EXPECT_EQ(five.GetValue(), 0);
}

TEST_F(PathSettingSectionTest, TheSubfolderGoesToTheDestinationOnlyWhileTicked) {
    site.defaultSubfolder = u"Dailies";
    Primary().needSubFolder = false;
    PathSettingSection& section = OpenPrimary({});
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

TEST_F(PathSettingSectionTest, AHostedPathKeepsTheHostsFolderEvenWhenItIsNotInTheList) {
    HostApp::SetApplicationType(8);
    Primary().destination->SetDestinationPath(u"/Host/Media");
    EXPECT_EQ(OpenPrimary({u"/A"}, "igdKilnHostedPathSetting").GetDestinationPopup().GetValue(), -1);
    EXPECT_EQ(Path(), u"/Host/Media");
}

} // namespace
} // namespace igd::test
