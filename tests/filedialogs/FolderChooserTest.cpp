// Asking for a folder: the chooser's question, the answer normalised, and cancel.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "IGD/FileDialogs.h"
#include "support/ScriptedInteractionDriver.h"

namespace igd::test {
namespace {

TEST(AskFolderChooser, AnswersTheChosenFolderNormalisedAndCancelKeepsThePath) {
    ScopedInteractionDriver ui;
    ui->QueueFolderAnswer(u"/media/card/./CLIPS/../CLIPS/");
    ui->QueueFolderCancel();
    Fnd::WString path = u"/media";
    EXPECT_TRUE(IGD::AskFolderChooser(u"Pick", path, u"", u"", 0, 0));
    EXPECT_EQ(path, u"/media/card/CLIPS");
    EXPECT_FALSE(IGD::AskFolderChooser(u"Pick", path, u"", u"", 0, 0));
    EXPECT_EQ(path, u"/media/card/CLIPS");
    ASSERT_EQ(ui->FolderQuestions().size(), 2u);
    EXPECT_EQ(ui->FolderQuestions()[0].title, u"Pick");
    EXPECT_EQ(ui->FolderQuestions()[0].defaultDirectory, u"/media");
}

// The destination browser is the chooser under its own caption.
TEST(BrowseForDestination, AsksWithItsCaptionAndCancelAnswersTheInitialPath) {
    ScopedInteractionDriver ui;
    ui->QueueFolderAnswer(u"/Volumes/RAID//Day 1/");
    ui->QueueFolderCancel();
    EXPECT_EQ(IGD::BrowseForDestination(u"/Volumes/RAID", 0), u"/Volumes/RAID/Day 1");
    ASSERT_EQ(ui->FolderQuestions().size(), 1u);
    EXPECT_EQ(ui->FolderQuestions()[0].title, u"Choose Destination Folder");
    EXPECT_EQ(IGD::BrowseForDestination(u"/Volumes/RAID/Day 1", 0), u"/Volumes/RAID/Day 1");
}

} // namespace
} // namespace igd::test
