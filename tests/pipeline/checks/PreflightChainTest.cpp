// The checks before a transfer: which one speaks, with which words, and where the chain stops.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <string>
#include <vector>

#include "AppFrame/DocumentManager.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/checks/ConcatenateChecks.h"
#include "pipeline/checks/PreflightChain.h"
#include "pipeline/checks/TransferConflictCheck.h"

namespace igd::test {
namespace {

using Fnd::WString;

class PreflightChainTest : public PlanTest {
protected:
    PreflightChainTest() { session_ = SessionWithClips({"A001.MOV"}); }

    // A copy destination as the chain expects it: with a transcode setting that is off.
    IGD::IngestDestinationRef AddCopyDestination(std::string_view folder) {
        auto destination = AddDestination(*session_, folder, session_->GetDestinations().empty());
        destination->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
        return destination;
    }

    bool Run() {
        return IGD::RunPreflightChain(session_->GetSourceRoot(), session_->GetSelectedItems(),
                                      session_->GetDestinations());
    }

    // Runs the chain, which must refuse with exactly one new error box of one button; answers that
    // box as "title: text".
    std::string Refusal() {
        const std::size_t first = ui->Boxes().size();
        ui->QueueBoxAnswer(0);
        EXPECT_FALSE(Run());
        if (ui->Boxes().size() != first + 1)
            return std::to_string(ui->Boxes().size() - first) + " new boxes";
        const Fnd::MessageBoxRequest& box = ui->Boxes().back();
        EXPECT_EQ(box.buttons.size(), 1u);
        EXPECT_EQ(box.icon, Fnd::BoxIcon::Error);
        return Fnd::ToUTF8(box.title + u": " + box.text);
    }

    // Selects the folder "card" and copies to a link to target.
    IGD::IngestDestinationRef AddLinkedCopyDestination(std::string_view link, std::string_view target) {
        tree.MakeFile("src/card/A002.MOV");
        AddFolder(*session_, "card", {"card/A002.MOV"});
        auto destination = AddCopyDestination("p");
        destination->SetDestinationPath(tree.MakeSymlink(link, target));
        return destination;
    }

    // A fresh session holding only the folder "card", whose content is a sub-folder.
    void OnlyAFolderOfFolders() {
        session_ = NewSession();
        session_->SetSourceRoot(tree.Path("src"));
        tree.MakeFolder("src/card/sub");
        AddFolder(*session_, "card", {"card/sub"});
    }

    IGD::IngestDialogDataRef session_;
};

TEST_F(PreflightChainTest, ASoundRequestPassesSilently) {
    // The base folder must exist; a sub-folder below it may be new.
    AddCopyDestination("p")->SetSubFolder(u"day1");
    AddCopyDestination("b");
    // Transcodes write new names, so they may share a folder with a copy.
    AddCopyDestination("b")->GetTranscodeSetting()->enabled = true;
    // A destination beside a selected folder, inside the root, holds no clash.
    tree.MakeFile("src/card/A002.MOV");
    AddFolder(*session_, "card", {"card/A002.MOV"});
    AddCopyDestination("src/copies");
    EXPECT_TRUE(Run());

    // A transcode writes new files, so a clip may be transcoded beside its source (a folder may not).
    session_ = SessionWithClips({"A001.MOV"});
    Transcode(*AddDestination(*session_, "src", true));
    EXPECT_TRUE(Run());
    EXPECT_TRUE(ui->Boxes().empty());
}

// Each row spoils a sound request; when it is wrong in several ways the user hears of the
// earliest failing step only.
TEST_F(PreflightChainTest, EachRefusalIsTheEarliestFailingStepInItsOwnWords) {
    const std::string kSameAsSource =
        "Transfer Error: The destination folder path " + tree.NativePath("src") +
        " is the same as the source folder. Cannot transfer to the source folder.";
    const std::string kBadSubFolder = "Invalid Folder Name: a|b\nThe folder name is not valid.";
    const struct {
        const char* what;
        std::function<void()> spoil;
        std::string box;
    } cases[] = {
        {"a missing source, by its normalised path, before a missing destination",
         [this] {
             AddClip(*session_, "day1/../gone.MOV");
             AddCopyDestination("p")->SetDestinationPath(tree.Path("nowhere"));
         },
         "Selected path does not exist: The selected path " + tree.NativePath("src/gone.MOV") +
             " does not exist. Please select the source clip again."},
        {"an empty source path",
         [this] {
             session_ = NewSession();
             AddClip(*session_, "");
         },
         "Selected path does not exist: The source clip path is empty. It might be because the selected "
         "file path is too long."},
        {"a missing destination, by its normalised path",
         [this] {
             AddCopyDestination("p");
             AddCopyDestination("b")->SetDestinationPath(tree.Path("gone//deeper/"));
         },
         "Destination path does not exist: The specified destination path " + tree.NativePath("gone/deeper") +
             " does not exist. Please specify a new one."},
        {"an empty destination", [this] { AddCopyDestination("p")->SetDestinationPath({}); },
         "Destination path is not set: Please specify the destination path."},
        {"two copies to one folder, the sub-folder names trimmed before they are compared",
         [this] {
             AddCopyDestination("p")->SetSubFolder(u"day1");
             AddCopyDestination("q");
             AddCopyDestination("p")->SetSubFolder(u" day1\t");
         },
         "Duplicate destination paths: Multiple destination paths point are the same: '" +
             tree.NativePath("p/day1") + "'. Please change or remove one of them."},
        {"a copy into the source folder", [this] { AddCopyDestination("src"); }, kSameAsSource},
        {"a folder transcoded into the source folder, which a clip may be",
         [this] {
             Transcode(*AddDestination(*session_, "src", true));
             tree.MakeFile("src/card/A002.MOV");
             AddFolder(*session_, "card", {"card/A002.MOV"});
         },
         kSameAsSource},
        {"a destination inside a selected folder",
         [this] {
             tree.MakeFile("src/card/A002.MOV");
             AddFolder(*session_, "card/", {"card/A002.MOV"});
             auto inside = AddCopyDestination("src/card/out");
             inside->SetDestinationPath(tree.Path("src/card"));
             inside->SetSubFolder(u"out");
         },
         "Transfer Error: The source folder path " + tree.NativePath("src/card") +
             " contains the destination "
             "folder " +
             tree.NativePath("src/card/out") +
             ". Cannot transfer to the sub-folder of the source "
             "folder."},
        {"a copy through a link to the source folder",
         [this] { AddCopyDestination("p")->SetDestinationPath(tree.MakeSymlink("src-link", "src")); },
         "Transfer Error: The destination folder path " + tree.NativePath("src-link") +
             " is the same as the source folder. Cannot transfer to the source folder."},
        {"a copy through a link to a selected folder",
         [this] { AddLinkedCopyDestination("card-link", "src/card"); },
         "Transfer Error: The destination folder path " + tree.NativePath("card-link") +
             " is the same as the source folder. Cannot transfer to the source folder."},
        {"a sub-folder still to be made behind a link into a selected folder",
         [this] {
             tree.MakeFolder("src/card/deeper");
             AddLinkedCopyDestination("deeper-link", "src/card/deeper")->SetSubFolder(u"day1");
         },
         "Transfer Error: The source folder path " + tree.NativePath("src/card") +
             " contains the destination folder " + tree.NativePath("deeper-link/day1") +
             ". Cannot transfer to the sub-folder of the source folder."},
        {"folders holding only folders",
         [this] {
             OnlyAFolderOfFolders();
             AddCopyDestination("p");
         },
         "Import Error: There's no item can be import."},
        {"a bad sub-folder before a missing destination",
         [this] {
             AddCopyDestination("p")->SetSubFolder(u"a|b");
             AddCopyDestination("q")->SetDestinationPath(tree.Path("gone"));
         },
         kBadSubFolder},
        {"duplicates before a conflict with the source",
         [this] {
             AddCopyDestination("src");
             AddCopyDestination("src");
         },
         "Duplicate destination paths: Multiple destination paths point are the same: '" +
             tree.NativePath("src") + "'. Please change or remove one of them."},
        {"a conflict before an empty import",
         [this] {
             OnlyAFolderOfFolders();
             AddCopyDestination("src");
         },
         kSameAsSource},
        {"an empty import before a stitch without a name",
         [this] {
             OnlyAFolderOfFolders();
             Transcode(*AddDestination(*session_, "t", true), true)->concatenateName.clear();
         },
         "Import Error: There's no item can be import."},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        session_ = SessionWithClips({"A001.MOV"});
        row.spoil();
        EXPECT_EQ(Refusal(), row.box);
    }
}

// Mount points nest: a destination on a filesystem of its own is still inside the selected folder
// that holds its mount point.
TEST_F(PreflightChainTest, ADestinationMountedInsideASelectedFolderIsRefused) {
    struct stat folder {};
    struct stat mounted {};
    if (stat("/dev", &folder) != 0 || stat("/dev/shm", &mounted) != 0 || folder.st_dev == mounted.st_dev)
        GTEST_SKIP() << "needs /dev/shm mounted inside /dev";
    session_ = NewSession();
    AddFolder(*session_, "dev", {});
    const IGD::IngestDestinationRef destination(new IGD::IngestDestination);
    destination->SetDestinationPath(u"/dev/shm");
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(IGD::CheckTransferConflicts(u"/", session_->GetSelectedItems(), {destination}));
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().text),
              "The source folder path /dev contains the destination folder /dev/shm. Cannot transfer to "
              "the sub-folder of the source folder.");
}

// On a server project the transfer goes to the server: local folders cannot clash there.
TEST_F(PreflightChainTest, OnlyAProjectOnAServerSkipsTheDuplicateCheck) {
    AddCopyDestination("p");
    AddCopyDestination("p");
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));
    EXPECT_TRUE(Run());

    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(false));
    EXPECT_EQ(Refusal().rfind("Duplicate destination paths: ", 0), 0u);
}

TEST_F(PreflightChainTest, SubFolderNamesAreTrimmedOrRefusedAsTyped) {
    const struct {
        const char* typed;
        bool passes;
        const char* stored; // after the chain
    } cases[] = {{"\t day1  ", true, "day1"}, {"Day 1", true, "Day 1"}, {"day1/cam", false, "day1/cam"},
                 {" bad|name ", false, " bad|name "}, {"..", false, ".."}, {" . ", false, " . "},
                 {"...", true, "..."}, {" \t ", false, " \t "}};
    for (const auto& row : cases) {
        SCOPED_TRACE(row.typed);
        session_ = SessionWithClips({"A001.MOV"});
        const std::size_t first = ui->Boxes().size();
        auto destination = AddCopyDestination("p");
        destination->SetSubFolder(Fnd::FromUTF8(row.typed));

        if (row.passes) {
            EXPECT_TRUE(Run());
            EXPECT_EQ(ui->Boxes().size(), first);
        } else {
            EXPECT_EQ(Refusal(),
                      std::string("Invalid Folder Name: ") + row.typed + "\nThe folder name is not valid.");
        }
        EXPECT_EQ(Fnd::ToUTF8(destination->GetSubFolder()), row.stored);
    }

    // The trimmed names stay even when a later name stops the chain: they are what the user meant.
    session_ = SessionWithClips({"A001.MOV"});
    auto trimmed = AddCopyDestination("p");
    trimmed->SetSubFolder(u" day1 ");
    AddCopyDestination("q")->SetSubFolder(u"?");
    EXPECT_EQ(Refusal(), "Invalid Folder Name: ?\nThe folder name is not valid.");
    EXPECT_EQ(trimmed->GetSubFolder(), u"day1");
}

TEST_F(PreflightChainTest, AStitchNeedsAUsableNameAndMarksTheField) {
    const struct {
        const char* name;
        std::string box;
    } cases[] = {
        {"", "Invalid File Name: Please specify a file name for the new stitched clip."},
        {"a*b", "Invalid File Name: a*b\nThe file name is not valid."},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.name);
        session_ = SessionWithClips({"A001.MOV"});
        AddCopyDestination("p");
        auto setting = Transcode(*AddDestination(*session_, "t", false), /*concatenate=*/true);
        setting->concatenateName = Fnd::FromUTF8(row.name);
        std::vector<bool> marked;
        setting->nameErrorCallback = [&marked](bool error) { marked.push_back(error); };
        // A folder in the stitch is refused too, but a later step.
        tree.MakeFile("src/card/A002.MOV");
        AddFolder(*session_, "card", {"card/A002.MOV"});

        EXPECT_EQ(Refusal(), row.box);
        EXPECT_EQ(marked, std::vector<bool>{true});
        EXPECT_EQ(setting->concatenateName, Fnd::FromUTF8(row.name));
    }

    // Names of stitches that are off, or of transcodes that do not stitch, are not looked at.
    session_ = SessionWithClips({"A001.MOV"});
    auto off = Transcode(*AddDestination(*session_, "t", true), /*concatenate=*/true);
    off->enabled = false;
    off->concatenateName.clear();
    Transcode(*AddDestination(*session_, "u", false))->concatenateName.clear();
    EXPECT_TRUE(Run());
    EXPECT_EQ(ui->Boxes().size(), std::size(cases));
}

TEST_F(PreflightChainTest, OnlyClipsCanBeStitched) {
    const struct {
        const char* what;
        std::function<void(IGD::IIngestDialogData&)> add;
        std::string box;
    } cases[] = {
        {"a folder",
         [this](IGD::IIngestDialogData& session) {
             tree.MakeFile("src/card/A002.MOV");
             AddFolder(session, "card", {"card/A002.MOV"});
         },
         "Invalid Selection: Concatenating folders is not supported. Please uncheck the folders and try "
         "again."},
        {"a rough cut",
         [this](IGD::IIngestDialogData& session) {
             tree.MakeFile("src/Edit.RoughCut");
             AddClip(session, "Edit.RoughCut");
         },
         "Invalid Selection: Concatenating rough cuts is not supported. Please uncheck the rough cut files "
         "and try again."},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        session_ = SessionWithClips({"A001.MOV"});
        row.add(*session_);
        Transcode(*AddDestination(*session_, "t", true), /*concatenate=*/true);
        EXPECT_EQ(Refusal(), row.box);

        // The same selection may be transcoded clip by clip.
        session_->GetDestinations()[0]->GetTranscodeSetting()->concatenate = false;
        EXPECT_TRUE(Run());
    }
}

TEST_F(PreflightChainTest, AStitchOfAPathNoFilesystemCanHoldIsInvalid) {
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(IGD::CheckConcatenateSelection({u"/tmp/" + Fnd::WString(300, u'x') + u".MOV"}));
    EXPECT_EQ(BoxTexts(), Strings{"Invalid file path: Invalid path exists in the selection."});
}

} // namespace
} // namespace igd::test
