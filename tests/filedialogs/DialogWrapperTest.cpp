// The wrappers on a running dialog: the start folder, paths out of items, and the checks made when
// the person presses OK in an open or a save dialog.
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Fnd/NullInterfaceException.h"
#include "IGD/WinCommonOpenDialogWrapper.h"
#include "IGD/WinCommonSaveDialogWrapper.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"
#include "tests/filedialogs/ScriptedFileDialog.h"

namespace igd::test {
namespace {

using namespace std::string_literals;

constexpr int kYes = 0;
constexpr int kNo = 1;

TEST(WrapperFolder, StartsInAnExistingFolderOnly) {
    TempTree tree;
    const Fnd::WString sub = tree.MakeFolder("card/sub");
    struct Case {
        const char* label;
        Fnd::WString path;
        std::vector<Fnd::WString> folders;
    };
    const std::vector<Case> cases = {
        {"empty", u"", {}},
        {"missing folder", tree.Path("card/missing"), {}},
        {"existing folder", sub, {sub}},
        {"unnormalised path", tree.Path("card/./sub/../sub/"), {sub}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        auto dialog = std::make_shared<ScriptedFileDialog>();
        IGD::WinCommonFileDialogWrapper wrapper;
        wrapper.SetFileDialog(dialog);
        wrapper.SetFolder(c.path);
        EXPECT_EQ(dialog->FoldersSet(), c.folders);
        EXPECT_EQ(wrapper.GetFolder(), c.folders.empty() ? Fnd::WString() : c.folders.back());
    }
}

TEST(WrapperFolder, AWrapperWithoutItsDialogIsAProgrammingFault) {
    IGD::WinCommonFileDialogWrapper wrapper;
    EXPECT_THROW(wrapper.SetTitle(u"Open"), Fnd::NullInterfaceException);
    EXPECT_THROW(wrapper.SetFileTypes(u"Movies\0*.mov"s, false), Fnd::NullInterfaceException);
}

TEST(WrapperItems, PathsComeOutInOrderWithoutItemsThatHaveNone) {
    EXPECT_EQ(IGD::WinCommonFileDialogWrapper::ConvertShellItemToPath(nullptr), u"");
    EXPECT_EQ(IGD::WinCommonFileDialogWrapper::ConvertShellItemToPath(MakeItemWithoutPath().get()), u"");
    const IShellItemArray items = {MakeFileSystemShellItem(u"/b/2.mov"), MakeItemWithoutPath(),
                                   MakeFileSystemShellItem(u"/a/1.mov")};
    EXPECT_EQ(IGD::WinCommonFileDialogWrapper::ConvertShellItemArrayToPaths(items),
              (std::vector<Fnd::WString>{u"/b/2.mov", u"/a/1.mov"}));
}

TEST(OpenDialogOk, NothingChosenShowsABoxAndKeepsTheDialogOpen) {
    TempTree tree;
    const Fnd::WString clip = tree.MakeFile("A001.MOV", "frames");
    auto dialog = std::make_shared<ScriptedFileDialog>();
    IGD::WinCommonOpenDialogWrapper wrapper;
    wrapper.SetFileOpenDialog(dialog);
    unsigned cookie = 0;
    dialog->Advise(&wrapper, cookie);

    ScopedInteractionDriver ui;
    ui->QueueBoxAnswer(0);
    dialog->QueueChooseItems({MakeItemWithoutPath()});
    dialog->QueueChoose({clip});
    EXPECT_EQ(dialog->Show(0), S_OK);

    EXPECT_EQ(dialog->FileOkAnswers(), (std::vector<HRESULT>{S_FALSE, S_OK}));
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Invalid File Path");
    EXPECT_EQ(ui->Boxes()[0].text, u"Invalid File Path");
    EXPECT_EQ(ui->Boxes()[0].buttons.size(), 1u);
    EXPECT_EQ(wrapper.GetFilesToOpen(), std::vector<Fnd::WString>{clip});
    dialog->Unadvise(cookie);
}

// What the person sees when OK is pressed in a save dialog.
enum class Box { None, Replace, InvalidPath, NotWriteable };

struct SaveCase {
    const char* label;
    std::optional<std::string> chosen; // relative to the tree; nothing: an item without a path
    Fnd::WString defaultExtension;
    bool dialogPrompts; // the dialog's own overwrite prompt is on
    Box box;
    int answer;        // to the replacement question
    std::string saved; // relative to the tree; empty: refused and the dialog stays open
};

TEST(SaveDialogOk, CompletesTheNameAsksBeforeReplacingAndRefusesWhatCannotBeSaved) {
    TempTree tree;
    tree.MakeFile("take.mov", "old take");
    tree.MakeFolder("folder.mov");
    tree.MakeFolder("locked");
    ASSERT_EQ(::chmod(tree.NativePath("locked").c_str(), 0555), 0);
    const std::vector<SaveCase> cases = {
        {"default extension added", "clip", u"mov", false, Box::None, 0, "clip.mov"},
        {"dotted default extension", "clip", u".mov", false, Box::None, 0, "clip.mov"},
        {"same extension in upper case", "clip.MOV", u"mov", false, Box::None, 0, "clip.MOV"},
        {"another extension gets the default too", "clip.wav", u"mov", false, Box::None, 0, "clip.wav.mov"},
        {"no default extension", "clip", u"", false, Box::None, 0, "clip"},
        {"existing file, Yes", "take.mov", u"mov", false, Box::Replace, kYes, "take.mov"},
        {"existing file, No", "take.mov", u"mov", false, Box::Replace, kNo, ""},
        {"existing file found by the default extension", "take", u"mov", false, Box::Replace, kNo, ""},
        {"existing file, the dialog asked already", "take.mov", u"", true, Box::None, 0, "take.mov"},
        {"a folder is not a file to replace", "folder.mov", u"", false, Box::None, 0, "folder.mov"},
        {"item without a path", std::nullopt, u"", false, Box::InvalidPath, 0, ""},
        {"item without a path gets no extension", std::nullopt, u"mov", false, Box::InvalidPath, 0, ""},
        {"folder that is gone", "gone/clip.mov", u"", false, Box::NotWriteable, 0, ""},
        {"folder without write access", "locked/clip.mov", u"", false, Box::NotWriteable, 0, ""},
    };
    for (const SaveCase& c : cases) {
        SCOPED_TRACE(c.label);
        if (c.chosen == "locked/clip.mov" && ::geteuid() == 0)
            continue; // root may write to any folder
        auto dialog = std::make_shared<ScriptedFileDialog>();
        dialog->SetOptions(c.dialogPrompts ? kFileDialogOverwritePrompt : 0);
        dialog->SetChosenItems(
            {c.chosen ? MakeFileSystemShellItem(tree.Path(*c.chosen)) : MakeItemWithoutPath()});
        IGD::WinCommonSaveDialogWrapper wrapper;
        wrapper.SetFileSaveDialog(dialog);
        wrapper.SetDefaultExtension(c.defaultExtension);

        ScopedInteractionDriver ui;
        if (c.box != Box::None)
            ui->QueueBoxAnswer(c.answer);
        EXPECT_EQ(wrapper.OnFileOk(*dialog), c.saved.empty() ? S_FALSE : S_OK);
        EXPECT_EQ(wrapper.GetSavedFilePath(), c.saved.empty() ? Fnd::WString() : tree.Path(c.saved));
        ASSERT_EQ(ui->Boxes().size(), c.box == Box::None ? 0u : 1u);
        if (c.box == Box::None)
            continue;
        const Fnd::MessageBoxRequest& box = ui->Boxes()[0];
        const std::map<Box, std::pair<Fnd::WString, Fnd::WString>> seen = {
            {Box::Replace,
             {u"Confirm File Replacement",
              u"The file \"" + tree.Path("take.mov") + u"\" already exists. Are you sure you want to replace it?"}},
            {Box::InvalidPath, {u"Invalid File Path", u"Invalid File Path"}},
            {Box::NotWriteable,
             {u"Veltrix Quillon", u"You do not have write access to this directory. Please choose a new "
                                  u"location to save the file."}}};
        EXPECT_EQ(std::pair(box.title, box.text), seen.at(c.box));
        if (c.box == Box::Replace) {
            EXPECT_EQ(box.buttons, (std::vector<Fnd::WString>{u"Yes", u"No"}));
            EXPECT_EQ(box.defaultButton, kNo);
        } else {
            EXPECT_EQ(box.buttons.size(), 1u);
        }
    }
    ::chmod(tree.NativePath("locked").c_str(), 0755);
}

TEST(SaveDialogOk, NoResultIsLeftToTheDialog) {
    auto dialog = std::make_shared<ScriptedFileDialog>();
    IGD::WinCommonSaveDialogWrapper wrapper;
    wrapper.SetFileSaveDialog(dialog);
    ScopedInteractionDriver ui;
    EXPECT_EQ(wrapper.OnFileOk(*dialog), S_OK);
    EXPECT_TRUE(ui->Boxes().empty());
    EXPECT_TRUE(wrapper.GetSavedFilePath().empty());
}

TEST(SaveDialogOptions, CustomOverwriteConfirmationTurnsOffOnlyTheDialogsPrompt) {
    auto dialog = std::make_shared<ScriptedFileDialog>();
    dialog->SetOptions(kFileDialogOverwritePrompt | kFileDialogAllowMultiSelect | 0x40);
    IGD::WinCommonSaveDialogWrapper wrapper;
    wrapper.SetFileSaveDialog(dialog);
    wrapper.UseCustomOverwiteConfirmation();
    EXPECT_EQ(dialog->Options(), kFileDialogAllowMultiSelect | 0x40u);
}

TEST(SaveDialogOptions, TheCustomBoxAnswersForTheWholeRun) {
    TempTree tree;
    const Fnd::WString take = tree.MakeFile("take.mov", "old");
    auto dialog = std::make_shared<ScriptedFileDialog>();
    IGD::WinCommonSaveDialogWrapper wrapper;
    wrapper.SetFileSaveDialog(dialog);
    wrapper.UseCustomOverwiteConfirmation();
    unsigned cookie = 0;
    dialog->Advise(&wrapper, cookie);

    ScopedInteractionDriver ui;
    ui->QueueBoxAnswer(kNo);
    ui->QueueBoxAnswer(kYes);
    dialog->QueueChoose({take});
    dialog->QueueChoose({take});
    EXPECT_EQ(dialog->Show(0), S_OK);
    EXPECT_EQ(dialog->FileOkAnswers(), (std::vector<HRESULT>{S_FALSE, S_OK}));
    EXPECT_EQ(wrapper.GetSavedFilePath(), take);
    dialog->Unadvise(cookie);
}

} // namespace
} // namespace igd::test
