// The browser as a person uses it, through its controls: rows of a card and of a folder, ticks,
// the bar's buttons, search, columns, places, and the preview player's marks reaching the ingest.
#include <gtest/gtest.h>

#include <cstdlib>

#include <chrono>
#include <thread>

#include "Av/ClipPlaybackInstall.h"
#include "Fnd/RunLoop.h"
#include "Mid/ClipPlayback.h"
#include "Mid/PlayerOwner.h"
#include "Proj/Backend.h"
#include "Proj/PreferenceStore.h"
#include "fluxmediabrowser/FavoritesPref.h"
#include "fluxmediabrowser/MediaBrowserView.h"
#include "fluxmediabrowser/PlayerFactory.h"
#include "fluxui/controls/UI_ListView.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "support/ScopedIgdHome.h"
#include "support/TestClips.h"
#include "tests/platform/media/CardTrees.h"

namespace igd::test {
namespace {

namespace mb = fluxmediabrowser;
using fluxui::controls::ListViewMode;
using fluxui::controls::UI_ListView;
using mb::MediaColumn;

class MediaBrowserViewTest : public ::testing::Test {
protected:
    void TearDown() override {
        mb::SetRequestMBPlayerOwnerSharedFxn({});
        Fnd::GetDefaultQueue().Drain();
    }

    mb::MediaBrowserViewRef MakeView(mb::MediaBrowserConfiguration configuration = {}, bool withPlayer = false,
                                     bool remembersState = false) {
        mb::MediaBrowserViewRef view(new mb::MediaBrowserView({}, "ingestdialog", configuration, withPlayer, remembersState));
        view->UI_SetLocalRectF({0, 0, 1000, 600});
        return view;
    }
    void Open(mb::MediaBrowserView& view, const std::string& relative) {
        view.OpenDirectory(tree.Path(relative));
        view.GetModel().WaitUntilSettled();
    }
    template <typename T> static T& Control(mb::MediaBrowserView& view, const char* id) {
        auto* control = dynamic_cast<T*>(view.UI_FindNodeByID(id));
        if (!control)
            throw std::logic_error(std::string("no control ") + id);
        return *control;
    }
    static UI_ListView& MediaView(mb::MediaBrowserView& view) { return Control<UI_ListView>(view, mb::kMediaViewID); }
    static std::vector<std::string> RowNames(mb::MediaBrowserView& view) {
        std::vector<std::string> names;
        for (const auto& row : MediaView(view).GetRows())
            names.push_back(Fnd::ToUTF8(row.cells.at(0)));
        return names;
    }
    static void Press(mb::MediaBrowserView& view, const char* id) {
        Control<fluxui::controls::UI_TextButton>(view, id).Press();
    }
    void MakeCard() {
        MakeFiles(tree, {"P2/CONTENTS/VIDEO/0001AB.MXF", "P2/CONTENTS/VIDEO/0002CD.MXF",
                         "P2/CONTENTS/VIDEO/0003EF.MXF"});
        tree.MakeFile("P2/CONTENTS/CLIP/0001AB.XML", P2ClipXml("G1"));
        tree.MakeFile("P2/CONTENTS/CLIP/0002CD.XML", P2ClipXml("G2"));
        tree.MakeFile("P2/CONTENTS/CLIP/0003EF.XML", P2ClipXml("G3"));
    }

    TempTree tree;
};

TEST_F(MediaBrowserViewTest, ACardShowsARowPerClipAndTicksReachGetChecked) {
    MakeCard();
    auto view = MakeView();
    Open(*view, "P2");
    EXPECT_EQ(RowNames(*view), (std::vector<std::string>{"0001AB", "0002CD", "0003EF"}));
    EXPECT_EQ(Control<fluxui::controls::UI_StaticText>(*view, mb::kPathTextID).GetValue(), tree.Path("P2"));
    UI_ListView& media = MediaView(*view);
    EXPECT_EQ(media.GetRows()[1].key, Fnd::ToUTF8(tree.Path("P2/CONTENTS/VIDEO/0002CD.MXF")));

    media.SetRowChecked(1, true, true);
    mb::CheckedPairs checked;
    mb::ClipSettings settings;
    view->GetChecked(checked, settings);
    ASSERT_EQ(checked.size(), 1u);
    EXPECT_EQ(checked[0].first, tree.Path("P2/CONTENTS/VIDEO/0002CD.MXF"));

    Press(*view, mb::kCheckAllButtonID);
    for (const auto& row : media.GetRows())
        EXPECT_TRUE(row.checked) << "the model's ticks are shown on every row";
    view->GetChecked(checked = {}, settings);
    EXPECT_EQ(checked.size(), 3u);
    Press(*view, mb::kUncheckAllButtonID);
    view->GetChecked(checked = {}, settings);
    EXPECT_TRUE(checked.empty());
    EXPECT_FALSE(media.GetRows()[1].checked);
    EXPECT_NE(view->GetStationID(), MakeView()->GetStationID()) << "each browser posts on its own station";
}

TEST_F(MediaBrowserViewTest, AFolderIsSearchedOpenedAndLeftThroughTheControls) {
    MakeFiles(tree, {"shoot/day1/a.mov", "shoot/Beach.mov", "shoot/beach2.mp4", "shoot/city.mov"});
    auto view = MakeView();
    Open(*view, "shoot");
    EXPECT_EQ(RowNames(*view), (std::vector<std::string>{"day1", "Beach.mov", "beach2.mp4", "city.mov"}));
    EXPECT_TRUE(MediaView(*view).GetRows()[0].folder);

    Control<fluxui::controls::UI_TextEdit>(*view, mb::kSearchFieldID).TypeText(u"BEACH");
    EXPECT_EQ(RowNames(*view), (std::vector<std::string>{"Beach.mov", "beach2.mp4"}));
    // A tick on a filtered row reaches the entry it shows, not the entry at that place.
    MediaView(*view).SetRowChecked(1, true, true);
    mb::CheckedPairs checked;
    mb::ClipSettings settings;
    view->GetChecked(checked, settings);
    ASSERT_EQ(checked.size(), 1u);
    EXPECT_EQ(checked[0].first, tree.Path("shoot/beach2.mp4"));
    Control<fluxui::controls::UI_TextEdit>(*view, mb::kSearchFieldID).TypeText(u"");
    ASSERT_EQ(MediaView(*view).GetRowCount(), 4u);

    MediaView(*view).Activate(0);
    view->GetModel().WaitUntilSettled();
    EXPECT_EQ(view->GetCurrentDirPath(), tree.Path("shoot/day1"));
    EXPECT_EQ(RowNames(*view), std::vector<std::string>{"a.mov"});
    Press(*view, mb::kParentButtonID);
    view->GetModel().WaitUntilSettled();
    EXPECT_EQ(view->GetCurrentDirPath(), tree.Path("shoot"));
}

TEST_F(MediaBrowserViewTest, ModeAndColumnsFollowTheBarAndAreRememberedWhenAsked) {
    ScopedIgdHome home;
    Proj::ScopedBackend backend(Fnd::InterfaceRef<Proj::IPreferences>(
        Proj::PreferenceStore::Open(Proj::PreferenceStore::DefaultPath()).get()));
    MakeFiles(tree, {"f/a.mov"});
    std::vector<MediaColumn> chosen;
    {
        auto view = MakeView({}, false, true);
        Open(*view, "f");
        UI_ListView& media = MediaView(*view);
        Press(*view, mb::kIconViewButtonID);
        EXPECT_EQ(media.GetMode(), ListViewMode::Icons);
        EXPECT_TRUE(Control<fluxui::controls::UI_TextButton>(*view, mb::kIconViewButtonID).IsDownState());
        EXPECT_FALSE(Control<fluxui::controls::UI_TextButton>(*view, mb::kListViewButtonID).IsDownState());

        // The popup's first item is its title; the others stand for the columns, in their order.
        auto& popup = Control<fluxui::controls::UI_Popup>(*view, mb::kColumnsPopupID);
        const auto& all = mb::AllMediaColumns();
        const auto item = [&](MediaColumn column) {
            return 1 + static_cast<int>(std::find_if(all.begin(), all.end(), [&](const auto& info) {
                                            return info.column == column;
                                        }) - all.begin());
        };
        const std::size_t before = media.GetColumns().size();
        const bool hadFrameRate = popup.GetItems()[item(MediaColumn::FrameRate)].text.starts_with(u"\u2713");
        popup.ChooseByUser(item(MediaColumn::FrameRate));
        EXPECT_EQ(media.GetColumns().size(), hadFrameRate ? before - 1 : before + 1);
        EXPECT_EQ(media.GetRows()[0].cells.size(), media.GetColumns().size()) << "every row has a cell per column";
        popup.ChooseByUser(item(MediaColumn::Name));
        EXPECT_EQ(media.GetColumns().front().key, "name") << "Name cannot be taken away";
        EXPECT_EQ(popup.GetValue(), 0) << "the popup shows its title again";
        chosen = view->GetModel().GetColumns();
    }
    auto again = MakeView({}, false, true);
    EXPECT_EQ(MediaView(*again).GetMode(), ListViewMode::Icons);
    EXPECT_EQ(again->GetModel().GetColumns(), chosen);

    mb::MediaBrowserConfiguration light;
    light.lightEditor = true;
    auto forgetful = MakeView(light);
    EXPECT_EQ(MediaView(*forgetful).GetMode(), ListViewMode::List) << "a browser that does not remember starts in a list";
    std::vector<std::string> keys;
    for (const auto& column : MediaView(*forgetful).GetColumns())
        keys.push_back(column.key);
    EXPECT_EQ(keys.size(), 3u) << "the light editor starts with name, duration and size";
    EXPECT_EQ(keys.front(), "name");
}

TEST_F(MediaBrowserViewTest, TheDirectoryListStartsAtHomeAndOpensAPlace) {
    tree.MakeFolder("home/clips");
    const char* previous = std::getenv("HOME");
    const std::string saved = previous ? previous : "";
    ::setenv("HOME", tree.NativePath("home").c_str(), 1);
    mb::RecentDirectories() = {tree.Path("home/clips")};
    auto view = MakeView();
    UI_ListView& places = Control<UI_ListView>(*view, mb::kDirectoryListID);
    ASSERT_GE(places.GetRowCount(), 2u);
    EXPECT_EQ(places.GetRows().front().key, tree.NativePath("home"));
    EXPECT_EQ(places.GetRows().back().key, tree.NativePath("home/clips")) << "recent directories come last";

    places.SetSelection({0}, true);
    view->GetModel().WaitUntilSettled();
    EXPECT_EQ(view->GetCurrentDirPath(), tree.Path("home"));
    EXPECT_EQ(RowNames(*view), std::vector<std::string>{"clips"});

    // The star adds the folder shown to the favourites, listed before the recent ones; again takes it out.
    auto& star = Control<fluxui::controls::UI_TextButton>(*view, mb::kFavoriteButtonID);
    star.Press();
    EXPECT_EQ(mb::FavoriteDirectories(), std::vector<Fnd::WString>{tree.Path("home")});
    EXPECT_EQ(places.GetRows()[places.GetRowCount() - 2].key, tree.NativePath("home"));
    EXPECT_EQ(star.GetText(), u"\u2605");
    star.Press();
    EXPECT_TRUE(mb::FavoriteDirectories().empty());
    EXPECT_EQ(star.GetText(), u"\u2606");

    view->OnClearRecentDirectories();
    EXPECT_TRUE(mb::RecentDirectories().empty());
    EXPECT_NE(places.GetRows().back().key, tree.NativePath("home/clips"));
    ::setenv("HOME", saved.c_str(), 1);
}

TEST_F(MediaBrowserViewTest, OnePlayerFollowsTheSelectedClipAndItsMarksReachTheIngest) {
    tree.MakeFolder("clips");
    MakeTestClip(tree.NativePath("clips/a.mov"));
    MakeTestClip(tree.NativePath("clips/b.mov"));
    Av::InstallClipPlayback();
    std::vector<Fnd::WString> asked;
    Mid::PlayerOwnerRef player;
    mb::SetRequestMBPlayerOwnerSharedFxn([&](fluxui::ui::UI_SubView& parent, const Mid::PlayerItem& item, bool,
                                             const fluxcore::geom::RectF& playerRect, const fluxcore::geom::RectF& clipRect) {
        asked.push_back(item.mediaPath);
        player = new Mid::PlayerOwner(nullptr, 0, true);
        player->Create(parent, playerRect);
        player->SetClipRect(clipRect);
        player->SetProjectItem(item);
        return player;
    });
    auto view = MakeView({}, true);
    const auto rect = [&](const char* id) { return view->UI_FindNodeByID(id)->UI_GetLocalRectF(true); };
    EXPECT_EQ(rect(mb::kMediaViewID).left, 200.0f) << "the directory list is 200 wide";
    EXPECT_FLOAT_EQ(rect(mb::kPlayerAreaID).height, (600.0f - 28.0f) * 0.4f) << "the player has 40% under the bar";
    Open(*view, "clips");
    UI_ListView& media = MediaView(*view);
    media.SetSelection({0}, true);
    media.SetSelection({1}, true);
    ASSERT_EQ(asked, std::vector<Fnd::WString>{tree.Path("clips/a.mov")}) << "one player, handed each clip";
    EXPECT_EQ(player->GetView()->UI_GetParentNode(), view->UI_FindNodeByID(mb::kPlayerAreaID));

    // Marks need the clip open: the player reads it on its own thread.
    for (int turn = 0; turn < 2000 && player->GetFrameRate() == 0; ++turn) {
        Fnd::GetDefaultQueue().Drain();
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    ASSERT_NE(player->GetFrameRate(), 0) << "the second clip opened in the player";
    player->SetInPoint();
    player->Scrub(fluxmediatypes::kTicksPerSecond / 2);
    player->SetOutPoint();
    media.SetRowChecked(1, true, true);
    mb::CheckedPairs checked;
    mb::ClipSettings settings;
    view->GetChecked(checked, settings);
    ASSERT_EQ(settings.count(tree.Path("clips/b.mov")), 1u) << "the marks belong to the clip the player shows";
    const mb::TranscodeClipSetting& marks = settings.at(tree.Path("clips/b.mov"));
    EXPECT_EQ(marks.inPoint, player->GetInPoint());
    EXPECT_EQ(marks.outPoint, player->GetOutPoint());
    EXPECT_LT(marks.inPoint, marks.outPoint);

    media.SetSelection({0, 1}, true);
    EXPECT_FALSE(player->GetView()->UI_IsShown()) << "two clips selected: nothing to preview";
    EXPECT_EQ(asked.size(), 1u);
    player.reset();
    mb::SetRequestMBPlayerOwnerSharedFxn({});
    Mid::ClipPlaybackFactory::Install(nullptr);
}

} // namespace
} // namespace igd::test
