// The Ingest dialog as the host opens it: what stops an ingest, what a full pass submits, where the
// window opens and what it remembers, and the keys and messages it answers.
#include <gtest/gtest.h>

#include <functional>

#include "AppFrame/DocumentManager.h"
#include "AppFrame/ShortcutManager.h"
#include "AppFrame/Workspace.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestDialogApi.h"
#include "PanelkitManager/LocalPanelHost.h"
#include "Proj/Backend.h"
#include "Proj/PreferenceMessages.h"
#include "QL/IngestMessages.h"
#include "QL/SRProject.h"
#include "fluxcore/geom/Matrix.h"
#include "fluxcore/ConfigError.h"
#include "fluxmediabrowser/MediaBrowserView.h"
#include "fluxui/controls/UI_ListView.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "pipeline/session/IngestDialogData.h"
#include "settings/IngestSettingsController.h"
#include "settings/SettingKeys.h"
#include "shell/maindialog/IngestDialogKeys.h"
#include "shell/maindialog/IngestMainDialog.h"
#include "shell/mediapane/ImportMedia.h"
#include "support/PanelTurns.h"
#include "support/PresetFields.h"
#include "support/RecordingTaskService.h"
#include "support/ScopedIgdHome.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"
#include "tests/settings/RecordingPreferences.h"

namespace igd::test {
namespace {

using namespace IGD;
using fluxcore::geom::RectI;
using Work = std::function<void(IngestMainDialog&)>;

std::string P2Xml(const std::string& id) {
    return "<P2Main><ClipContent><GlobalClipID>" + id + "</GlobalClipID></ClipContent></P2Main>";
}

class MainDialogTest : public testing::Test, public Fnd::Listener {
protected:
    MainDialogTest() {
        for (const char* id : {"000A01", "000A02", "000A03"}) {
            tree.MakeFile(std::string("CARD/CONTENTS/CLIP/") + id + ".XML", P2Xml(id));
            tree.MakeFile(std::string("CARD/CONTENTS/VIDEO/") + id + ".MXF", "frames");
        }
        tree.MakeFolder("out");
        preferences->allowSessionValues = true;
        preferences->values[std::string(kMinimumMetadataDialogEnable.name)] = false;
        mainWindow->UI_SetGlobalStructureRect({100, 50, 1600, 1000});
        AppFrame::Workspace::Install(std::make_shared<fluxworkspace::workspace::Workspace>(mainWindow.get()));
        IngestDialogRegister();
        QL::SRProject::GetInstance()->SetTargetBin(u"Dailies");
        Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this);
        Fnd::StationUtils::AddListener(preferences->GetStationID(), this);
    }
    ~MainDialogTest() override {
        Fnd::GetDefaultQueue().Drain();
        Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this);
        Fnd::StationUtils::RemoveListener(preferences->GetStationID(), this);
        AppFrame::Workspace::Install(nullptr);
        AppFrame::DocumentManager::SetInstance(nullptr);
        AppFrame::ShortcutManager::Instance().Clear();
        PanelkitManager::PanelHost::Install(nullptr);
    }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        if (const auto* start = Fnd::MessageCast<QL::StartIngestMessage>(message))
            starts.push_back(*start);
        warnings += Fnd::MessageCast<Proj::OverrideReadOnlyPropertyWarningMessage>(message) != nullptr;
    }

    // Opens the dialog through the host's entry point and does the work inside it, as the person
    // would; a dialog the work leaves open is then cancelled.
    void Open(Work work) {
        ui->QueueModal([this, work](Fnd::IModalSession& session) {
            auto& dialog = dynamic_cast<IngestMainDialog&>(session);
            Fnd::GetDefaultQueue().Drain();
            work(dialog);
            Fnd::GetDefaultQueue().Drain();
            stayedOpen = !dialog.IsCloseRequested();
            enabledAfter = dialog.UI_IsEnabled();
            if (stayedOpen)
                dialog.DefaultCloseCancel();
        });
        DoIngestDialogAndPerformImport(u"Dailies");
        Fnd::GetDefaultQueue().Drain();
    }
    // Ticks the clips of the card by row, as clicks in the media view do.
    void Tick(IngestMainDialog& dialog, std::initializer_list<std::size_t> rows, const std::string& folder = "CARD") {
        fluxmediabrowser::MediaBrowserView& browser = *dialog.GetTopView()->GetBrowser();
        browser.OpenDirectory(tree.Path(folder));
        browser.GetModel().WaitUntilSettled();
        auto& media = dynamic_cast<fluxui::controls::UI_ListView&>(*browser.UI_FindNodeByID(fluxmediabrowser::kMediaViewID));
        for (std::size_t row : rows)
            media.SetRowChecked(row, true, true);
        Fnd::GetDefaultQueue().Drain();
    }
    // Copies go to these folders of the tree, the first the primary.
    void UseDestinations(std::initializer_list<std::string> folders) {
        const std::shared_ptr<IngestSettingsController> settings = IngestSettingsController::GetInstance();
        settings->SetTransferDisabled(false);
        bool first = true;
        for (const std::string& folder : folders) {
            if (first) {
                DestinationSetting& primary = settings->GetDestinationSetting(0);
                primary.enabled = true;
                primary.needSubFolder = false;
                primary.AddPathToMRU(tree.Path(folder));
                primary.destination->SetSubFolder({});
            } else {
                DestinationSetting& backup = settings->GetDestinationSetting(settings->AddBackupDestination(tree.Path(folder)));
                backup.needSubFolder = false;
                backup.destination->SetSubFolder({});
            }
            first = false;
        }
    }
    static void PressIngest(IngestMainDialog& dialog) {
        Fnd::StationUtils::BroadcastMessage(dialog.GetSettingView()->GetStation(), ImportMedia());
        Fnd::GetDefaultQueue().Drain();
    }
    std::string Stored(const char* key) const {
        const auto found = preferences->values.find(key);
        return found == preferences->values.end() ? "" : Proj::FormatPreferenceData(found->second);
    }

    TempTree tree;
    Fnd::InterfaceRef<RecordingPreferences> preferences = RecordingPreferences::Make();
    Proj::ScopedBackend backend{preferences->Interface()};
    ScopedInteractionDriver ui;
    ScopedTaskService tasks;
    boost::intrusive_ptr<fluxui::ui::OS_Window> mainWindow{new fluxui::ui::OS_Window(nullptr, u"Host")};
    std::vector<QL::StartIngestMessage> starts;
    int warnings = 0;
    bool stayedOpen = false;
    bool enabledAfter = false;
};

// Every way an ingest is refused leaves the dialog open and usable, with nothing handed to the
// task service and no batch started.
TEST_F(MainDialogTest, EveryStopLeavesTheDialogOpenAndSubmitsNothing) {
    ScopedIgdHome home;
    struct Case {
        const char* name;
        std::function<void(IngestMainDialog&)> setUp;
        const char16_t* boxTitle; // null: no box
        int boxAnswer = 0;
    };
    const auto document = std::make_shared<AppFrame::FixedDocumentManager>(false, u"/projects/a.igdproj");
    const Case cases[] = {
        {"project saved under a new name",
         [&](IngestMainDialog& d) {
             Tick(d, {0});
             UseDestinations({"out"});
             document->SetCurrentDocumentPath(u"/projects/b.igdproj");
         },
         u"Ingest Failure"},
        {"nothing ticked", [this](IngestMainDialog&) { UseDestinations({"out"}); }, u"Ingest Failure"},
        {"transfer on without a destination", [this](IngestMainDialog& d) {
             Tick(d, {0});
             IngestSettingsController::GetInstance()->SetTransferDisabled(false);
             IngestSettingsController::GetInstance()->GetDestinationSetting(0).enabled = false;
         }, u"Ingest Failure"},
        {"rename template in edit mode",
         [this](IngestMainDialog& d) {
             Tick(d, {0});
             UseDestinations({"out"});
             IngestSettingsController::GetInstance()->SetEnableRenameTemplate(true);
             IngestSettingsController::GetInstance()->SetRenameEditMode(true);
         },
         u"IGD"},
        {"metadata template in edit mode",
         [this](IngestMainDialog& d) {
             Tick(d, {0});
             UseDestinations({"out"});
             IngestSettingsController::GetInstance()->SetEnableMetadataTemplate(true);
             IngestSettingsController::GetInstance()->SetMetadataEditMode(true);
         },
         u"IGD"},
        {"destination folder missing",
         [this](IngestMainDialog& d) {
             Tick(d, {0});
             UseDestinations({"gone"});
         },
         u"Destination path does not exist"},
        {"metadata panel cancelled",
         [&](IngestMainDialog& d) {
             home.MakeFile("panels/meta/manifest.xml",
                           "<panel id=\"" + Fnd::ToUTF8(PanelkitManager::GetMinimumMetadataIDStr()) +
                               "\" title=\"Shoot\" mode=\"modal\" width=\"400\" height=\"220\"/>");
             home.MakeFile("panels/meta/form.xml", "<form><namespace uri=\"http://ns.example/shoot/\" prefix=\"shoot\">"
                                             "<field key=\"scene\" label=\"Scene\"/></namespace></form>");
             PanelkitManager::PanelHost::Install(PanelkitManager::MakeLocalPanelHost({{home.Path() + "/panels"}}));
             preferences->values[std::string(kMinimumMetadataDialogEnable.name)] = true;
             Tick(d, {0});
             UseDestinations({"out"});
             ui->QueueModalTurn(FillPanelAndPress({}, "cancel"));
         },
         nullptr},
        {"existing file at the destination not replaced",
         [this](IngestMainDialog& d) {
             tree.MakeFile("plain/clip.mov", "new");
             tree.MakeFile("out/clip.mov", "old");
             Tick(d, {0}, "plain");
             UseDestinations({"out"});
             ui->QueueExistingPathCancel();
         },
         nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        AppFrame::DocumentManager::SetInstance(document);
        document->SetCurrentDocumentPath(u"/projects/a.igdproj");
        const std::size_t boxesBefore = ui->Boxes().size();
        int result = -1;
        if (c.boxTitle)
            ui->QueueBoxAnswer(c.boxAnswer);
        Open([&](IngestMainDialog& dialog) {
            c.setUp(dialog);
            PressIngest(dialog);
            result = dialog.GetIngestResult();
            IngestSettingsController::GetInstance()->SetRenameEditMode(false);
            IngestSettingsController::GetInstance()->SetMetadataEditMode(false);
        });
        EXPECT_TRUE(stayedOpen);
        EXPECT_TRUE(enabledAfter);
        EXPECT_EQ(result, 0);
        if (c.boxTitle) {
            ASSERT_EQ(ui->Boxes().size(), boxesBefore + 1);
            EXPECT_EQ(ui->Boxes().back().title, c.boxTitle);
        }
        EXPECT_TRUE(tasks->Tasks().empty());
        EXPECT_TRUE(starts.empty());
        PanelkitManager::PanelHost::Install(nullptr);
        preferences->values[std::string(kMinimumMetadataDialogEnable.name)] = false;
    }
}

TEST_F(MainDialogTest, AFullPassClosesWithACopyAndStartsTheBatchForTheTargetBin) {
    tree.MakeFolder("backup");
    int result = 0;
    std::u16string title;
    Open([&](IngestMainDialog& dialog) {
        title = dialog.GetTitle();
        Tick(dialog, {0, 2});
        EXPECT_TRUE(dialog.GetSettingView()->GetControlView()->GetIngestButton()->UI_IsEnabled());
        UseDestinations({"out", "backup"});
        dialog.GetSettingView()->GetControlView()->GetIngestButton()->Press();
        Fnd::GetDefaultQueue().Drain();
        result = dialog.GetIngestResult();
    });
    EXPECT_EQ(title, u"Ingest - Target Bin: Dailies");
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(result, 2);
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].target, u"Dailies");
    ASSERT_FALSE(tasks->Tasks().empty());
    std::size_t copies = 0;
    for (const RecordedTask& task : tasks->Tasks()) {
        EXPECT_EQ(task.batch, starts[0].batch);
        copies += task.kind == TaskKind::Copy;
    }
    EXPECT_EQ(copies, 2u); // one for each destination
}

// The start number of a counter moves on by what the finished ingest used, so the next one does
// not hand out the same numbers.
TEST_F(MainDialogTest, AFinishedIngestAdvancesTheRenameCounterByItsItems) {
    const PresetRef counter(Preset(QL::kQLPresetCategoryRename, {Field(QL::kQLFieldUserDefinedAutoIncrement, u"000")}));
    preferences->values[std::string(kUserDefAutoIncStartNumber.name)] = std::uint32_t{7};
    Open([&](IngestMainDialog& dialog) {
        Tick(dialog, {0, 1, 2});
        UseDestinations({"out"});
        IngestSettingsController::GetInstance()->SetRenamePreset(counter);
        IngestSettingsController::GetInstance()->SetEnableRenameTemplate(true);
        PressIngest(dialog);
    });
    EXPECT_FALSE(stayedOpen);
    EXPECT_EQ(IngestSettingsController::GetInstance()->GetUserDefAutoIncStartNumber(), 10u);
}

TEST_F(MainDialogTest, CancelWhileATemplateIsEditedAsksAndNoKeepsEverything) {
    Open([&](IngestMainDialog& dialog) {
        IngestSettingsController::GetInstance()->SetEnableRenameTemplate(true);
        IngestSettingsController::GetInstance()->SetRenameEditMode(true);
        ui->QueueBoxAnswer(1); // No
        dialog.GetSettingView()->GetControlView()->GetCancelButton()->Press();
        EXPECT_FALSE(dialog.IsCloseRequested());
        EXPECT_TRUE(IngestSettingsController::GetInstance()->GetRenameEditMode());
        ui->QueueBoxAnswer(1); // the close box asks once too: No
        dialog.CloseByUser();
        EXPECT_FALSE(dialog.IsCloseRequested());
        ui->QueueBoxAnswer(0); // Yes
        dialog.GetSettingView()->GetControlView()->GetCancelButton()->Press();
        EXPECT_TRUE(dialog.IsCloseRequested());
    });
    ASSERT_EQ(ui->Boxes().size(), 3u);
    EXPECT_EQ(ui->Boxes()[0].text, u"Metadata or rename preset is in editing mode, would you like to cancel?");
    IngestSettingsController::GetInstance()->SetRenameEditMode(false);
}

TEST_F(MainDialogTest, TheWindowOpensCentredOrWhereItWasAndIsRememberedUnlessLocked) {
    struct Case {
        const char* name;
        RectI main;
        float scale;
        std::map<std::string, std::int32_t> stored;
        bool locked;
        RectI expected;
    };
    const Case cases[] = {
        {"first run", {100, 50, 1600, 1000}, 1.0f, {}, false, {260, 150, 1280, 800}},
        {"small main window on a dense display", {0, 0, 1000, 300}, 2.0f, {}, false, {-300, -125, 1600, 550}},
        {"stored place and size",
         {100, 50, 1600, 1000},
         1.0f,
         {{"IngestDialog.mainDialog.Left", 10}, {"IngestDialog.mainDialog.Top", 20},
          {"IngestDialog.mainDialog.Width", 900}, {"IngestDialog.mainDialog.Height", 500}},
         false,
         {10, 20, 900, 500}},
        {"stored width only", {100, 50, 1600, 1000}, 1.0f, {{"IngestDialog.mainDialog.Width", 1000}}, false,
         {260, 150, 1000, 800}},
        {"locked keys", {100, 50, 1600, 1000}, 1.0f, {}, true, {260, 150, 1280, 800}},
    };
    const char* keys[] = {"IngestDialog.mainDialog.Left", "IngestDialog.mainDialog.Top",
                          "IngestDialog.mainDialog.Width", "IngestDialog.mainDialog.Height"};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        for (const char* key : keys)
            preferences->values.erase(key);
        preferences->locked.clear();
        for (const auto& [key, value] : c.stored)
            preferences->values[key] = value;
        if (c.locked)
            preferences->locked = {keys[0], keys[1], keys[2], keys[3]};
        mainWindow->UI_SetGlobalStructureRect(c.main);
        mainWindow->SetViewScaleFactor(c.scale);
        warnings = 0;
        RectI opened;
        Open([&](IngestMainDialog& dialog) {
            opened = dialog.UI_GetGlobalStructureRect();
            dialog.UI_SetGlobalStructureRect({opened.left + 5, opened.top, opened.width, opened.height});
        });
        EXPECT_EQ(opened, c.expected);
        if (c.locked) {
            for (const char* key : keys)
                EXPECT_EQ(Stored(key), "");
            EXPECT_EQ(warnings, 4);
        } else {
            EXPECT_EQ(Stored(keys[0]), std::to_string(c.expected.left + 5));
            EXPECT_EQ(Stored(keys[3]), std::to_string(c.expected.height));
            EXPECT_EQ(warnings, 0);
        }
    }
}

TEST_F(MainDialogTest, WithoutAWorkspaceNothingOpens) {
    AppFrame::Workspace::Install(nullptr);
    DoIngestDialogAndPerformImport(u"Dailies");
    EXPECT_EQ(ui->UnusedAnswers(), 0u);
    EXPECT_TRUE(preferences->calls.empty());
    EXPECT_TRUE(starts.empty());
}

TEST_F(MainDialogTest, TheSplitIsKeptWithinBoundsAndRemembered) {
    preferences->values["IngestDialog.mainDialog.SplitterPercent"] = 0.9f;
    float shown = 0.0f;
    Open([&](IngestMainDialog& dialog) {
        shown = dialog.GetSplitter()->GetSplitPercentage();
        dialog.GetSplitter()->DragDividerTo(10.0f);
        EXPECT_FLOAT_EQ(dialog.GetSplitter()->GetSplitPercentage(), 15.0f);
        dialog.GetSplitter()->SetSplitPercentage(50.0f);
    });
    EXPECT_FLOAT_EQ(shown, 85.0f);
    EXPECT_EQ(Stored("IngestDialog.mainDialog.SplitterPercent"), Proj::FormatPreferenceData(0.5f));
}

// Keys reach the dialog's commands through the "ingestdialog" context, except those typed into a
// text field.
TEST_F(MainDialogTest, ShortcutsRunTheBrowserCommandsButNotFromInsideATextField) {
    Open([&](IngestMainDialog& dialog) {
        AppFrame::CommandContext* context = AppFrame::ShortcutManager::Instance().GetContext("ingestdialog");
        ASSERT_NE(context, nullptr);
        EXPECT_EQ(AppFrame::ShortcutManager::Instance().GetAppliedContexts().back(), "ingestdialog");
        context->SetShortcut(30208, "Ctrl+K"); // check all
        Tick(dialog, {});
        const fluxui::ui::KeyboardEvent key{fluxui::ui::Key::Character, u'K', fluxui::ui::kModifierControl};
        const auto anyChecked = [&] { return dialog.GetTopView()->GetBrowser()->GetModel().AnyChecked(); };

        boost::intrusive_ptr<fluxui::ui::UI_SubView> field(new fluxui::controls::UI_TextEdit);
        boost::intrusive_ptr<fluxui::ui::UI_SubView> inside(new fluxui::ui::UI_SubView);
        field->ChildPushBack(inside);
        dialog.GetSettingView()->ChildPushBack(field);
        EXPECT_FALSE(dialog.UI_DoKeyboardEvent(inside.get(), key));
        EXPECT_FALSE(anyChecked());
        EXPECT_TRUE(dialog.UI_DoKeyboardEvent(dialog.GetSettingView(), key));
        EXPECT_TRUE(anyChecked());
    });
    EXPECT_TRUE(AppFrame::ShortcutManager::Instance().GetAppliedContexts().back() != "ingestdialog");
}

// The project library answers later; an answer to another dialog's request is not this one's.
TEST_F(MainDialogTest, OnlyTheAnswerToItsOwnRequestNamesTheTargetBin) {
    struct Library : QL::IngestLibraryNotifier {
        fluxcore::utility::Guid one, two;
        void RequestTargetBin(const fluxcore::utility::Guid& a, const fluxcore::utility::Guid& b) override {
            one = a;
            two = b;
        }
        void AnnounceIngestItems(const std::vector<QL::IngestItem>&, const fluxcore::utility::Guid&,
                                 const fluxcore::utility::Guid&) override {}
    };
    const auto library = std::make_shared<Library>();
    QL::SRProject::GetInstance()->SetIngestLibraryNotifier(library);
    const IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
    boost::intrusive_ptr<IngestMainDialog> dialog(new IngestMainDialog({}, nullptr, nullptr, {0, 0, 1000, 600}, session));
    const fluxcore::utility::Guid other = fluxcore::utility::Guid::CreateUnique();
    const auto answer = [](const auto& one, const auto& two) {
        Fnd::StationUtils::BroadcastMessage(QL::kStation_IngestMedia, QL::UpdateTargetBinMessage(one, two, u"Bin"));
    };
    answer(library->one, other);
    answer(other, library->two);
    EXPECT_EQ(dialog->GetTitle(), u"Ingest");
    answer(library->one, library->two);
    EXPECT_EQ(dialog->GetTitle(), u"Ingest - Target Bin: Bin");
    dialog.reset();
    QL::SRProject::GetInstance()->SetIngestLibraryNotifier(nullptr);
}

TEST(ContentMatrixTest, MapsThroughItsInverseAndRefusesAZeroScale) {
    const fluxcore::geom::MatrixF matrix{{2.0f, 0.5f}, {10.0f, -4.0f}};
    const fluxcore::geom::RectF rect{3, 8, 40, 20};
    EXPECT_EQ(matrix.Inverted().Map(matrix.Map(rect)), rect);
    EXPECT_EQ((fluxcore::geom::MatrixF{{-1.0f, 1.0f}, {}}.Map(rect)), (fluxcore::geom::RectF{-43, 8, 40, 20}));
    for (const fluxcore::geom::PointF scale : {fluxcore::geom::PointF{0, 1}, fluxcore::geom::PointF{1, 0}}) {
        try {
            fluxcore::geom::MatrixF{scale, {}}.Inverted();
            ADD_FAILURE() << "a zero scale was inverted";
        } catch (const fluxcore::config::Error& error) {
            EXPECT_EQ(error.Text(), u"Matrix cannot be inverted.");
        }
    }
}

} // namespace
} // namespace igd::test
