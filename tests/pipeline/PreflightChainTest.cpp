// The checks before a transfer: which one speaks, with which words, and where the chain stops.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "AppFrame/DocumentManager.h"
#include "Fnd/NullInterfaceException.h"
#include "PlanTestSupport.h"
#include "pipeline/ConcatenateChecks.h"
#include "pipeline/PreflightChain.h"

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

    // The one box the chain showed, as "title: text"; it must be an error with one button.
    std::string OnlyBox() const {
        if (ui->Boxes().size() != 1u)
            return std::to_string(ui->Boxes().size()) + " boxes";
        const Fnd::MessageBoxRequest& box = ui->Boxes()[0];
        EXPECT_EQ(box.buttons.size(), 1u);
        EXPECT_EQ(box.icon, Fnd::BoxIcon::Error);
        return Fnd::ToUTF8(box.title + u": " + box.text);
    }

    IGD::IngestDialogDataRef session_;
};

TEST_F(PreflightChainTest, ASoundRequestPassesSilently) {
    // The base folder must exist; a sub-folder below it may be new.
    AddCopyDestination("p")->SetSubFolder(u"day1");
    AddCopyDestination("b");
    // Transcodes write new names, so they may share a folder with a copy.
    AddCopyDestination("b")->GetTranscodeSetting()->enabled = true;
    EXPECT_TRUE(Run());
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(PreflightChainTest, AMissingSourceIsToldFirstByItsNormalisedPath) {
    AddClip(*session_, "day1/../gone.MOV");
    AddCopyDestination("p")->SetDestinationPath(tree.Path("nowhere")); // would fail later in the chain
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Selected path does not exist: The selected path " +
                             tree.NativePath("src/gone.MOV") +
                             " does not exist. Please select the source clip again.");
}

TEST_F(PreflightChainTest, AnEmptySourcePathSaysSo) {
    session_ = NewSession();
    AddClip(*session_, "");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Selected path does not exist: The source clip path is empty. It might be because "
                         "the selected file path is too long.");
}

TEST_F(PreflightChainTest, AMissingDestinationIsTold) {
    AddCopyDestination("p");
    AddCopyDestination("b")->SetDestinationPath(tree.Path("gone//deeper/"));
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Destination path does not exist: The specified destination path " +
                             tree.NativePath("gone/deeper") + " does not exist. Please specify a new one.");
}

TEST_F(PreflightChainTest, AnEmptyDestinationIsNotSet) {
    AddCopyDestination("p")->SetDestinationPath({});
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Destination path is not set: Please specify the destination path.");
}

TEST_F(PreflightChainTest, TwoCopiesToOneFolderAreDuplicates) {
    AddCopyDestination("p")->SetSubFolder(u"day1");
    AddCopyDestination("q");
    // The name is trimmed before the targets are compared: both create the one folder.
    AddCopyDestination("p")->SetSubFolder(u" day1\t");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Duplicate destination paths: Multiple destination paths point are the same: '" +
                             tree.NativePath("p/day1") + "'. Please change or remove one of them.");
}

// On a server project the transfer goes to the server: local folders cannot clash there.
TEST_F(PreflightChainTest, OnlyAProjectOnAServerSkipsTheDuplicateCheck) {
    AddCopyDestination("p");
    AddCopyDestination("p");
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));
    EXPECT_TRUE(Run());

    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(false));
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(Run());
    EXPECT_EQ(ui->Boxes().size(), 1u);
}

TEST_F(PreflightChainTest, ADestinationWithoutATranscodeSettingIsAProgrammingFault) {
    AddDestination(*session_, "p", true);
    EXPECT_THROW(Run(), Fnd::NullInterfaceException);
    EXPECT_TRUE(ui->Boxes().empty());
}

// Sub-folder names: what is refused, and what is stored.
struct SubFolderCase {
    const char* typed;
    bool passes;
    const char* stored; // after the chain
};

TEST_F(PreflightChainTest, SubFolderNamesAreTrimmedOrRefusedAsTyped) {
    const SubFolderCase cases[] = {
        {"\t day1  ", true, "day1"},
        {"Day 1", true, "Day 1"},
        {"   ", false, "   "},
        {" \t", false, " \t"},
        {"a:b", false, "a:b"},
        {"day1/cam", false, "day1/cam"},
        {" bad|name ", false, " bad|name "},
    };
    for (const SubFolderCase& row : cases) {
        SCOPED_TRACE(row.typed);
        session_ = SessionWithClips({"A001.MOV"});
        const std::size_t first = ui->Boxes().size();
        auto destination = AddCopyDestination("p");
        destination->SetSubFolder(Fnd::FromUTF8(row.typed));
        if (!row.passes)
            ui->QueueBoxAnswer(0);

        EXPECT_EQ(Run(), row.passes);
        EXPECT_EQ(Fnd::ToUTF8(destination->GetSubFolder()), row.stored);
        ASSERT_EQ(ui->Boxes().size() - first, row.passes ? 0u : 1u);
        if (!row.passes) {
            EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().title + u": " + ui->Boxes().back().text),
                      std::string("Invalid Folder Name: ") + row.typed + "\nThe folder name is not valid.");
        }
    }
}

// The trimmed names stay even when a later name stops the chain: they are what the user meant.
TEST_F(PreflightChainTest, NamesTrimmedBeforeARefusalStayTrimmed) {
    auto first = AddCopyDestination("p");
    first->SetSubFolder(u" day1 ");
    AddCopyDestination("q")->SetSubFolder(u"?");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(first->GetSubFolder(), u"day1");
    EXPECT_EQ(OnlyBox(), "Invalid Folder Name: ?\nThe folder name is not valid.");
}

TEST_F(PreflightChainTest, CopyingIntoTheSourceFolderIsRefused) {
    AddCopyDestination("src");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Transfer Error: The destination folder path " + tree.NativePath("src") +
                             " is the same as the source folder. Cannot transfer to the source folder.");
}

// A transcode writes new files, so a clip may be transcoded beside its source; a folder may not.
TEST_F(PreflightChainTest, OnlyClipsMayBeTranscodedIntoTheSourceFolder) {
    Transcode(*AddDestination(*session_, "src", true));
    EXPECT_TRUE(Run());
    EXPECT_TRUE(ui->Boxes().empty());

    tree.MakeFile("src/card/A002.MOV");
    AddFolder(*session_, "card", {"card/A002.MOV"});
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Transfer Error: The destination folder path " + tree.NativePath("src") +
                             " is the same as the source folder. Cannot transfer to the source folder.");
}

TEST_F(PreflightChainTest, ASelectedFolderMayNotHoldADestination) {
    tree.MakeFile("src/card/A002.MOV");
    AddFolder(*session_, "card/", {"card/A002.MOV"});
    auto inside = AddCopyDestination("src/card/out");
    inside->SetDestinationPath(tree.Path("src/card"));
    inside->SetSubFolder(u"out");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Transfer Error: The source folder path " + tree.NativePath("src/card") +
                             " contains the destination folder " + tree.NativePath("src/card/out") +
                             ". Cannot transfer to the sub-folder of the source folder.");
}

TEST_F(PreflightChainTest, ADestinationBesideTheSelectedFolderInsideTheRootIsFine) {
    tree.MakeFile("src/card/A002.MOV");
    AddFolder(*session_, "card", {"card/A002.MOV"});
    AddCopyDestination("src/copies");

    EXPECT_TRUE(Run());
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(PreflightChainTest, FoldersHoldingOnlyFoldersLeaveNothingToImport) {
    session_ = NewSession();
    session_->SetSourceRoot(tree.Path("src"));
    tree.MakeFolder("src/card/CLIPS/empty");
    AddFolder(*session_, "card", {"card/CLIPS", "card/CLIPS/empty"});
    AddCopyDestination("p");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Import Error: There's no item can be import.");

    // One file anywhere in the content is enough.
    tree.MakeFile("src/card/CLIPS/A001.MOV");
    session_->GetSelectedItems()[0]->AddExtraPath(u"card/CLIPS/A001.MOV");
    EXPECT_TRUE(Run());
    EXPECT_EQ(ui->Boxes().size(), 1u);
}

TEST_F(PreflightChainTest, AStitchNeedsAUsableNameAndMarksTheField) {
    struct NameCase {
        const char* name;
        std::string box;
    };
    const NameCase cases[] = {
        {"", "Invalid File Name: Please specify a file name for the new stitched clip."},
        {"Day 1/Stitch", "Invalid File Name: Day 1/Stitch\nThe file name is not valid."},
        {"a*b", "Invalid File Name: a*b\nThe file name is not valid."},
    };
    for (const NameCase& row : cases) {
        SCOPED_TRACE(row.name);
        session_ = SessionWithClips({"A001.MOV"});
        AddCopyDestination("p");
        auto setting = Transcode(*AddDestination(*session_, "t", false), /*concatenate=*/true);
        setting->concatenateName = Fnd::FromUTF8(row.name);
        std::vector<bool> marked;
        setting->nameErrorCallback = [&marked](bool error) { marked.push_back(error); };
        const std::size_t first = ui->Boxes().size();
        ui->QueueBoxAnswer(0);

        EXPECT_FALSE(Run());
        EXPECT_EQ(marked, std::vector<bool>{true});
        EXPECT_EQ(setting->concatenateName, Fnd::FromUTF8(row.name));
        ASSERT_EQ(ui->Boxes().size(), first + 1);
        EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().title + u": " + ui->Boxes().back().text), row.box);
    }
}

// Names of stitches that are off are not looked at.
TEST_F(PreflightChainTest, AStitchThatIsOffNeedsNoName) {
    auto setting = Transcode(*AddDestination(*session_, "t", true), /*concatenate=*/true);
    setting->enabled = false;
    setting->concatenateName.clear();
    auto other = Transcode(*AddDestination(*session_, "u", false), /*concatenate=*/false);
    other->concatenateName.clear();
    EXPECT_TRUE(Run());
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(PreflightChainTest, OnlyClipsCanBeStitched) {
    struct SelectionCase {
        const char* what;
        std::function<void(IGD::IIngestDialogData&)> add;
        std::string box;
    };
    const SelectionCase cases[] = {
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
         "and "
         "try again."},
    };
    for (const SelectionCase& row : cases) {
        SCOPED_TRACE(row.what);
        session_ = SessionWithClips({"A001.MOV"});
        row.add(*session_);
        Transcode(*AddDestination(*session_, "t", true), /*concatenate=*/true);
        const std::size_t first = ui->Boxes().size();
        ui->QueueBoxAnswer(0);

        EXPECT_FALSE(Run());
        ASSERT_EQ(ui->Boxes().size(), first + 1);
        EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().title + u": " + ui->Boxes().back().text), row.box);

        // The same selection may be transcoded clip by clip.
        session_->GetDestinations()[0]->GetTranscodeSetting()->concatenate = false;
        EXPECT_TRUE(Run());
    }
}

TEST(ConcatenateSelection, APathNoFilesystemCanHoldIsInvalid) {
    ScopedInteractionDriver ui;
    ui->QueueBoxAnswer(0);
    const Fnd::WString tooLong = u"/tmp/" + Fnd::WString(300, u'x') + u".MOV";
    EXPECT_FALSE(IGD::CheckConcatenateSelection({tooLong}));
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Invalid file path");
    EXPECT_EQ(ui->Boxes()[0].text, u"Invalid path exists in the selection.");
}

// When a request is wrong in several ways, the user hears of the earliest step only.
TEST_F(PreflightChainTest, TheEarliestFailingStepIsTheOnlyOneTold) {
    struct OrderCase {
        const char* what;
        std::function<void()> spoil;
        std::string title;
    };
    const OrderCase cases[] = {
        {"a bad sub-folder before a missing destination",
         [this] {
             AddCopyDestination("p")->SetSubFolder(u"a|b");
             AddCopyDestination("q")->SetDestinationPath(tree.Path("gone"));
         },
         "Invalid Folder Name"},
        {"a missing source before a bad sub-folder",
         [this] {
             AddClip(*session_, "gone.MOV");
             AddCopyDestination("p")->SetSubFolder(u"a|b");
         },
         "Selected path does not exist"},
        {"duplicates before a conflict with the source",
         [this] {
             AddCopyDestination("src");
             AddCopyDestination("src");
         },
         "Duplicate destination paths"},
        {"a conflict before an empty import",
         [this] {
             session_ = NewSession();
             session_->SetSourceRoot(tree.Path("src"));
             tree.MakeFolder("src/card/sub");
             AddFolder(*session_, "card", {"card/sub"});
             AddCopyDestination("src");
         },
         "Transfer Error"},
        {"an empty import before a stitch without a name",
         [this] {
             session_ = NewSession();
             session_->SetSourceRoot(tree.Path("src"));
             tree.MakeFolder("src/card/sub");
             AddFolder(*session_, "card", {"card/sub"});
             Transcode(*AddDestination(*session_, "t", true), true)->concatenateName.clear();
         },
         "Import Error"},
        {"a stitch without a name before a folder in the stitch",
         [this] {
             tree.MakeFile("src/card/A002.MOV");
             AddFolder(*session_, "card", {"card/A002.MOV"});
             auto setting = Transcode(*AddDestination(*session_, "t", true), true);
             setting->concatenateName.clear();
             setting->nameErrorCallback = [](bool) {};
         },
         "Invalid File Name"},
    };
    for (const OrderCase& row : cases) {
        SCOPED_TRACE(row.what);
        session_ = SessionWithClips({"A001.MOV"});
        row.spoil();
        const std::size_t first = ui->Boxes().size();
        ui->QueueBoxAnswer(0);

        EXPECT_FALSE(Run());
        ASSERT_EQ(ui->Boxes().size(), first + 1);
        EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().title), row.title);
    }
}

} // namespace
} // namespace igd::test
