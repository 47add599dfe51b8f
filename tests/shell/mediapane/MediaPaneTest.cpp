#include <gtest/gtest.h>

#include "AppFrame/Commander.h"
#include "Fnd/Exception.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "IGD/SelectedClipItem.h"
#include "fluxmediabrowser/FavoritesPref.h"
#include "fluxmediabrowser/MediaBrowserCheckStatusChanged.h"
#include "fluxmediabrowser/PlayerFactory.h"
#include "fluxui/controls/UI_ListView.h"
#include "pipeline/gathering/GatherCheckedItems.h"
#include "pipeline/session/IngestDialogData.h"
#include "shell/mediapane/ImportMedia.h"
#include "shell/mediapane/IngestControlView.h"
#include "shell/mediapane/IngestTopView.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace IGD;
using fluxcore::geom::RectF;

std::string P2Xml(const std::string& id) {
    return "<P2Main><ClipContent><GlobalClipID>" + id + "</GlobalClipID></ClipContent></P2Main>";
}

// Hears every message of one station.
struct Recorder : Fnd::Listener {
    std::vector<bool> statuses;
    int imports = 0;
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        if (const auto* status = Fnd::MessageCast<fluxmediabrowser::MediaBrowserCheckStatusChanged>(message))
            statuses.push_back(status->GetCheckStatus());
        if (Fnd::MessageCast<ImportMedia>(message))
            ++imports;
    }
};

// The dialog's own commander, above the top view: hears what the top view leaves alone.
struct DialogCommander : AppFrame::Commander {
    std::vector<int> executed;
    bool QueryCommand(const AppFrame::Command&, AppFrame::CommandStatus& status) override {
        status.enabled = true;
        return true;
    }
    bool ExecuteCommand(const AppFrame::Command& command) override {
        executed.push_back(command.GetID());
        return true;
    }
};

TEST(IngestControlViewTest, ButtonsShareANarrowBarAndKeepTheirWidthInAWideOne) {
    struct Case {
        float width;
        RectF cancel, ingest;
    };
    for (const Case& c : {Case{180, {0, 20, 80, 20}, {90, 20, 80, 20}}, Case{300, {120, 20, 80, 20}, {210, 20, 80, 20}},
                          Case{100, {0, 20, 40, 20}, {50, 20, 40, 20}}, Case{10, {0, 20, 0, 20}, {5, 20, 0, 20}}}) {
        fluxui::ui::UI_Dialog dialog(nullptr, u"Ingest");
        boost::intrusive_ptr<IngestControlView> bar(new IngestControlView(nullptr, &dialog, "settings"));
        bar->InitUI();
        bar->UI_SetLocalRectF({0, 0, c.width, 60});
        EXPECT_EQ(bar->GetCancelButton()->UI_GetLocalRectF(true), c.cancel) << c.width;
        EXPECT_EQ(bar->GetIngestButton()->UI_GetLocalRectF(true), c.ingest) << c.width;
    }
}

TEST(IngestControlViewTest, IngestStartsDisabledAndItsClickOnlyTellsTheStation) {
    fluxui::ui::UI_Dialog dialog(nullptr, u"Ingest");
    boost::intrusive_ptr<IngestControlView> bar(new IngestControlView(nullptr, &dialog, "settings-station"));
    bar->InitUI();
    EXPECT_EQ(dialog.GetCancelButton(), bar->GetCancelButton());
    EXPECT_EQ(bar->GetCancelButton()->GetText(), u"Cancel");
    EXPECT_EQ(bar->GetIngestButton()->GetText(), u"Ingest");
    EXPECT_TRUE(bar->GetIngestButton()->HasDefaultAppearance());
    EXPECT_FALSE(bar->GetIngestButton()->UI_IsEnabled());

    Recorder heard;
    Fnd::StationUtils::AddListener("settings-station", &heard);
    bar->SetIngestEnabled(true);
    bar->GetIngestButton()->Press();
    Fnd::StationUtils::RemoveListener("settings-station", &heard);
    EXPECT_EQ(heard.imports, 1);
}

TEST(IngestControlViewTest, WithoutADialogBothButtonsAreMadeAndThenItThrows) {
    boost::intrusive_ptr<IngestControlView> bar(new IngestControlView(nullptr, nullptr, "s"));
    EXPECT_THROW(bar->InitUI(), Fnd::Exception);
    EXPECT_EQ(bar->ChildCount(), 2u);
}

// A top view with its browser over a P2 card of three clips, listed and settled.
class TopViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* id : {"000A01", "000A02", "000A03"}) {
            tree.MakeFile(std::string("CARD/CONTENTS/CLIP/") + id + ".XML", P2Xml(id));
            tree.MakeFile(std::string("CARD/CONTENTS/VIDEO/") + id + ".MXF");
        }
        fluxmediabrowser::RecentDirectories().clear();
        top = new IngestTopView(nullptr, nullptr, &dialogCommander);
        top->CreateBrowser({});
        top->UI_SetLocalRectF({0, 0, 900, 600});
        Browser().OpenDirectory(tree.Path("CARD"));
        Browser().GetModel().WaitUntilSettled();
        station = top->GetBrowserStation();
        Fnd::StationUtils::AddListener(station, &heard);
    }
    void TearDown() override {
        Fnd::StationUtils::RemoveListener(station, &heard);
        Fnd::GetDefaultQueue().Drain();
    }
    fluxmediabrowser::MediaBrowserView& Browser() { return *top->GetBrowser(); }
    fluxui::controls::UI_ListView& MediaView() {
        return dynamic_cast<fluxui::controls::UI_ListView&>(*Browser().UI_FindNodeByID(fluxmediabrowser::kMediaViewID));
    }
    static bool Run(int command) { return AppFrame::Commander::ExecuteFromTarget(AppFrame::Command(command)); }

    TempTree tree;
    DialogCommander dialogCommander;
    boost::intrusive_ptr<IngestTopView> top;
    Fnd::StationID station;
    Recorder heard;
};

TEST_F(TopViewTest, ClaimsTheBrowserCommandsAndLeavesEveryOtherToTheChain) {
    for (int id : {30205, 30206, 30207, 30208, 30209, 30210, 30211, 30212, 30213, 30214, 57642, 11303}) {
        EXPECT_TRUE(Run(id)) << id;
    }
    EXPECT_TRUE(dialogCommander.executed.empty());
    for (int id : {12065, 12066, 12071, 30204, 30215})
        EXPECT_TRUE(Run(id)) << id;
    EXPECT_EQ(dialogCommander.executed, (std::vector<int>{12065, 12066, 12071, 30204, 30215}));
}

TEST_F(TopViewTest, CommandsReachTheBrowser) {
    ASSERT_EQ(MediaView().GetRowCount(), 3u);
    Run(30213);
    EXPECT_EQ(MediaView().GetMode(), fluxui::controls::ListViewMode::Icons);
    Run(30212);
    EXPECT_EQ(MediaView().GetMode(), fluxui::controls::ListViewMode::List);
    Run(57642);
    EXPECT_EQ(Browser().GetModel().GetSelection().size(), 3u);
    Run(11303);
    EXPECT_TRUE(Browser().GetModel().GetSelection().empty());
    Run(30208);
    EXPECT_TRUE(Browser().GetModel().AnyChecked());
    Run(30209);
    EXPECT_FALSE(Browser().GetModel().AnyChecked());
}

// The last unticked clip ticked and unticked again leaves Ingest disabled: the bar follows the
// browser's latest status, as the dialog forwards it.
TEST_F(TopViewTest, TheCheckStatusFollowsTheTicksToTheLast) {
    fluxui::ui::UI_Dialog dialog(nullptr, u"Ingest");
    boost::intrusive_ptr<IngestControlView> bar(new IngestControlView(nullptr, &dialog, "s"));
    bar->InitUI();
    MediaView().SetRowChecked(0, true, true);
    MediaView().SetRowChecked(1, true, true);
    MediaView().SetRowChecked(2, true, true);
    MediaView().SetRowChecked(2, false, true);
    Fnd::GetDefaultQueue().Drain();
    EXPECT_EQ(heard.statuses, (std::vector<bool>{true, true, true, true}));
    MediaView().SetRowChecked(2, true, true);
    MediaView().SetRowChecked(0, false, true);
    MediaView().SetRowChecked(1, false, true);
    MediaView().SetRowChecked(2, false, true);
    Fnd::GetDefaultQueue().Drain();
    ASSERT_EQ(heard.statuses.size(), 8u);
    EXPECT_FALSE(heard.statuses.back());
    for (bool status : heard.statuses)
        bar->SetIngestEnabled(status);
    EXPECT_FALSE(bar->GetIngestButton()->UI_IsEnabled());
}

TEST_F(TopViewTest, TwoTickedClipsWithMarksBecomeTheSessionsItems) {
    constexpr fluxmediatypes::FrameRate rate = fluxmediatypes::kTicksPerSecond / 25;
    MediaView().SetRowChecked(0, true, true);
    MediaView().SetRowChecked(2, true, true);
    Browser().GetModel().SetMarks(2, {rate, 10 * rate, 50 * rate});

    const IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
    top->Gather(*session);

    const SelectedItemList items = session->GetSelectedItems();
    ASSERT_EQ(items.size(), 2u);
    const auto* first = dynamic_cast<const SelectedClipItem*>(items[0].get());
    const auto* third = dynamic_cast<const SelectedClipItem*>(items[1].get());
    ASSERT_TRUE(first && third);
    // The card's own folder travels with its clips, so the root is the folder above it.
    EXPECT_EQ(session->GetSourceRoot(), tree.Path());
    EXPECT_EQ(first->GetItemPath(), u"CARD/CONTENTS/VIDEO/000A01.MXF");
    EXPECT_EQ(third->GetItemPath(), u"CARD/CONTENTS/VIDEO/000A03.MXF");
    EXPECT_EQ(first->GetInPoint(), fluxmediatypes::kTime_Invalid);
    EXPECT_EQ(third->GetInPoint(), 10 * rate);
    EXPECT_EQ(third->GetOutPoint(), 50 * rate);
    EXPECT_EQ(third->GetFrameRate(), rate);
    EXPECT_EQ(fluxmediabrowser::RecentDirectories().front(), tree.Path("CARD"));
}

TEST_F(TopViewTest, ANullBrowserGathersNothing) {
    const IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
    GatherCheckedItems(*session, nullptr);
    EXPECT_TRUE(session->GetSelectedItems().empty());
}

// The player the browser asks for sits under the top view on the commander chain: the in and out
// commands reach it, the browser's commands still reach the top view.
TEST_F(TopViewTest, ThePlayerFactoryMakesAPlayerOnTheTopViewsChain) {
    const auto& factory = fluxmediabrowser::GetRequestMBPlayerOwnerSharedFxn();
    ASSERT_TRUE(factory);
    boost::intrusive_ptr<fluxui::ui::UI_SubView> parent(new fluxui::ui::UI_SubView);
    Mid::PlayerOwnerRef player = factory(*parent, Mid::PlayerItem{tree.Path("CARD/CONTENTS/VIDEO/000A01.MXF"), u"000A01"},
                                         false, {0, 0, 320, 240}, {0, 0, 320, 180});
    ASSERT_TRUE(player);
    EXPECT_EQ(player->GetParentCommander(), top.get());
    ASSERT_NE(player->GetView(), nullptr);
    EXPECT_EQ(player->GetView()->UI_GetLocalRectF(true), (RectF{0, 0, 320, 240}));
    AppFrame::Commander::SetTarget(player.get());
    Run(30213);
    EXPECT_EQ(MediaView().GetMode(), fluxui::controls::ListViewMode::Icons);
    EXPECT_TRUE(dialogCommander.executed.empty());
    player.reset();
    top.reset();
    EXPECT_FALSE(fluxmediabrowser::GetRequestMBPlayerOwnerSharedFxn());
}

} // namespace
} // namespace igd::test
