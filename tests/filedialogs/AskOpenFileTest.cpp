// Asking for files to open: where the dialog starts, what is remembered, what the caller gets
// back, and what happens around the dialog while it is up.
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <boost/intrusive_ptr.hpp>
#include <gtest/gtest.h>

#include "AppFrame/PlayerControl.h"
#include "AppFrame/Workspace.h"
#include "HostApp/ApplicationType.h"
#include "IGD/FileDialogs.h"
#include "Proj/Backend.h"
#include "Proj/LastUsedDirectory.h"
#include "fluxui/ui/UI_NodeManager.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"
#include "tests/filedialogs/ScriptedFileDialog.h"
#include "tests/settings/RecordingPreferences.h"

namespace igd::test {
namespace {

using namespace std::string_literals;
using Paths = std::vector<Fnd::WString>;

const std::string kLastUsedKey(Proj::kLastUsedDirectoryKey);

class AskOpenFileTest : public ::testing::Test {
protected:
    void SetUp() override {
        backend.emplace(preferences->Interface());
        card = tree.MakeFolder("card");
        clip = tree.MakeFile("card/A001.MOV", "frames");
        other = tree.MakeFolder("other");
        otherClip = tree.MakeFile("other/B001.MOV", "frames");
        AppFrame::Workspace::Install(std::make_shared<fluxworkspace::workspace::Workspace>(mainWindow.get()));
        player = AppFrame::PlayerControl::Register([this] { ++playersStopped; });
    }
    void TearDown() override {
        AppFrame::PlayerControl::Unregister(player);
        AppFrame::Workspace::Install(nullptr);
        HostApp::SetApplicationType(0);
    }

    void RememberFolder(const Fnd::WString& folder) {
        preferences->values[kLastUsedKey] = Fnd::ToUTF8(folder);
    }
    Fnd::WString Remembered() const {
        const auto found = preferences->values.find(kLastUsedKey);
        const std::string* text =
            found == preferences->values.end() ? nullptr : std::get_if<std::string>(&found->second);
        return text ? Fnd::FromUTF8(*text) : Fnd::WString();
    }
    std::size_t Writes() const { return preferences->KeysOf(RecordingPreferences::Op::kSet).size(); }

    bool AskOne(Fnd::WString& path) { return IGD::AskOpenFile(u"Import", path, u"", filter, 0, 0); }
    bool AskMany(Paths& paths) { return IGD::AskOpenFile(u"Import", paths, u"", filter, 0, 0); }

    TempTree tree;
    Fnd::WString card, clip, other, otherClip;
    Fnd::InterfaceRef<RecordingPreferences> preferences = RecordingPreferences::Make();
    std::optional<Proj::ScopedBackend> backend;
    std::shared_ptr<ScriptedFileDialog> dialog = std::make_shared<ScriptedFileDialog>();
    const Fnd::WString filter = u"Movies\0*.mov\0Audio\0*.wav"s;
    boost::intrusive_ptr<fluxui::ui::OS_Window> mainWindow{new fluxui::ui::OS_Window()};
    int player = 0;
    int playersStopped = 0;
};

TEST_F(AskOpenFileTest, BothFormsReturnTheChosenFilesNormalisedAndCancelKeepsThem) {
    ScopedFileDialogFactory factory(dialog);
    ScopedInteractionDriver ui;
    ui->QueueBoxAnswer(0);
    dialog->QueueChooseItems({MakeItemWithoutPath()}); // refused with a box; the dialog stays open
    dialog->QueueChoose({card + u"/./../card/A001.MOV"});
    Fnd::WString path;
    EXPECT_TRUE(AskOne(path));
    EXPECT_EQ(path, clip);
    EXPECT_EQ(dialog->fileOkAnswers, (std::vector<HRESULT>{S_FALSE, S_OK}));
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(std::pair(ui->Boxes()[0].title, ui->Boxes()[0].text),
              std::pair(u"Invalid File Path"s, u"Invalid File Path"s));
    EXPECT_EQ(ui->Boxes()[0].buttons.size(), 1u);
    EXPECT_EQ(dialog->title, u"Import");
    EXPECT_EQ(dialog->rows,
              (std::vector<ScriptedFileDialog::Row>{{u"Movies", u"*.mov"}, {u"Audio", u"*.wav"}}));
    EXPECT_EQ(dialog->options & kFileDialogAllowMultiSelect, 0u);
    EXPECT_EQ(dialog->advised.size(), 0u) << "the wrapper must be unadvised before it dies";

    dialog->QueueChoose({otherClip, card + u"//A001.MOV"});
    Paths paths = {clip};
    EXPECT_TRUE(AskMany(paths));
    EXPECT_EQ(paths, (Paths{otherClip, clip}));
    EXPECT_NE(dialog->options & kFileDialogAllowMultiSelect, 0u);

    RememberFolder(other);
    preferences->calls.clear();
    dialog->QueueCancel();
    dialog->QueueCancel();
    EXPECT_FALSE(AskOne(path));
    EXPECT_EQ(path, clip);
    paths = {tree.Path("missing.mov"), clip};
    EXPECT_FALSE(AskMany(paths));
    EXPECT_EQ(paths, (Paths{tree.Path("missing.mov"), clip}));
    EXPECT_EQ(Writes(), 0u);
}

TEST_F(AskOpenFileTest, StartFolderComesFromTheCallerElseFromTheLastUsedFolderWhichIsThenUpdated) {
    struct Case {
        const char* label;
        std::string given;          // relative to the tree; "" for none
        std::string remembered;     // relative to the tree; "" for nothing stored
        std::string expectedFolder; // where the dialog starts; "" for its own default
        bool rememberedAfter;       // the chosen file's folder is stored
        bool locked = false;
    };
    const std::vector<Case> cases = {
        {"caller's folder", "card/", "other", "card", false},
        {"caller's folder that does not exist", "gone/", "other", "", false},
        {"caller's existing file", "card/A001.MOV", "other", "card", false},
        {"caller's missing file falls back", "card/A002.MOV", "card", "card", true},
        {"nothing given, nothing remembered", "", "", "", true},
        {"remembered path is a file", "", "card/A001.MOV", "", true},
        {"a locked last used folder is not written", "", "card", "card", false, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        preferences->values.clear();
        preferences->calls.clear();
        preferences->locked.clear();
        if (!c.remembered.empty())
            RememberFolder(tree.Path(c.remembered));
        if (c.locked)
            preferences->locked.insert(kLastUsedKey);
        auto fresh = std::make_shared<ScriptedFileDialog>();
        ScopedFileDialogFactory factory(fresh);
        fresh->QueueChoose({otherClip});

        Paths paths;
        if (!c.given.empty())
            paths.push_back(tree.Path(c.given) + (c.given.back() == '/' ? u"/" : u""));
        ASSERT_TRUE(AskMany(paths));
        EXPECT_EQ(paths, Paths{otherClip});
        EXPECT_EQ(fresh->foldersSet, c.expectedFolder.empty() ? Paths{} : Paths{tree.Path(c.expectedFolder)});
        if (c.rememberedAfter)
            EXPECT_EQ(Remembered(), other + u"/");
        else
            EXPECT_EQ(Writes(), 0u);
    }
}

TEST_F(AskOpenFileTest, WithoutADialogNothingIsChosenAndNothingAsked) {
    ScopedInteractionDriver ui;
    ScopedFileDialogFactory none(nullptr);
    Fnd::WString path = clip;
    EXPECT_FALSE(AskOne(path));
    EXPECT_EQ(path, clip);
    Paths paths;
    EXPECT_FALSE(AskMany(paths));
    EXPECT_TRUE(paths.empty());
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(AskOpenFileTest, TheOwningWindowIsDisabledWhileTheDialogIsUpUnlessTheHostIsOfKind8) {
    boost::intrusive_ptr<fluxui::ui::OS_Window> ownWindow{new fluxui::ui::OS_Window()};
    ScopedFileDialogFactory factory(dialog);
    std::optional<bool> ownEnabled, mainEnabled;
    int stoppedBeforeShow = -1;
    dialog->WhileShown([&] {
        ownEnabled = ownWindow->UI_IsEnabled();
        mainEnabled = mainWindow->UI_IsEnabled();
        stoppedBeforeShow = playersStopped;
    });
    auto capturing = boost::intrusive_ptr<fluxui::ui::OS_Window>(new fluxui::ui::OS_Window());
    fluxui::ui::UI_NodeManager::Get(true).BeginInputCapture(capturing.get());
    dialog->QueueChoose({clip});
    Fnd::WString path;
    EXPECT_TRUE(AskOne(path));
    EXPECT_EQ(dialog->shownParent, mainWindow->GetPlatformWindow());
    EXPECT_EQ(mainEnabled, false);
    EXPECT_TRUE(mainWindow->UI_IsEnabled());
    EXPECT_EQ(stoppedBeforeShow, 1);
    EXPECT_EQ(fluxui::ui::UI_NodeManager::Get(true).GetInputCapture(), nullptr);

    dialog->QueueCancel();
    EXPECT_FALSE(IGD::AskOpenFile(u"Import", path, u"", filter, 0, ownWindow->GetPlatformWindow()));
    EXPECT_EQ(dialog->shownParent, ownWindow->GetPlatformWindow());
    EXPECT_EQ(ownEnabled, false);
    EXPECT_EQ(mainEnabled, true);
    EXPECT_TRUE(ownWindow->UI_IsEnabled());

    HostApp::SetApplicationType(8);
    mainEnabled.reset();
    dialog->QueueCancel();
    EXPECT_FALSE(AskOne(path));
    EXPECT_EQ(mainEnabled, true);
}

} // namespace
} // namespace igd::test
