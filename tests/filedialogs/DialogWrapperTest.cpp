// The checks made when the person presses OK in a save dialog: nothing is replaced unasked.
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "IGD/WinCommonSaveDialogWrapper.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"
#include "tests/filedialogs/ScriptedFileDialog.h"

namespace igd::test {
namespace {

using namespace std::string_literals;

constexpr int kYes = 0;
constexpr int kNo = 1;

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
        {"same extension in upper case", "clip.MOV", u"mov", false, Box::None, 0, "clip.MOV"},
        {"another extension gets the default too", "clip.wav", u"mov", false, Box::None, 0, "clip.wav.mov"},
        {"existing file, Yes", "take.mov", u"mov", false, Box::Replace, kYes, "take.mov"},
        {"existing file, No", "take.mov", u"mov", false, Box::Replace, kNo, ""},
        {"existing file found by the default extension", "take", u"mov", false, Box::Replace, kNo, ""},
        {"existing file, the dialog asked already", "take.mov", u"", true, Box::None, 0, "take.mov"},
        {"a folder is not a file to replace", "folder.mov", u"", false, Box::None, 0, "folder.mov"},
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
        dialog->chosen =
            IShellItemArray{c.chosen ? MakeFileSystemShellItem(tree.Path(*c.chosen)) : MakeItemWithoutPath()};
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
             {u"Confirm File Replacement", u"The file \"" + tree.Path("take.mov") +
                                               u"\" already exists. Are you sure you want to replace it?"}},
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

TEST(SaveDialogOptions, CustomOverwriteConfirmationTurnsOffOnlyTheDialogsPrompt) {
    auto dialog = std::make_shared<ScriptedFileDialog>();
    dialog->SetOptions(kFileDialogOverwritePrompt | kFileDialogAllowMultiSelect);
    IGD::WinCommonSaveDialogWrapper wrapper;
    wrapper.SetFileSaveDialog(dialog);
    wrapper.UseCustomOverwiteConfirmation();
    EXPECT_EQ(dialog->options, kFileDialogAllowMultiSelect);
}

} // namespace
} // namespace igd::test
