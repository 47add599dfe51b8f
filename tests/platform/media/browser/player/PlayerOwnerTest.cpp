// The preview player over a reader of known frames, with the UI thread's queue drained as a host's
// event loop would: what it shows, the marks it sets through the commander chain, and play.
#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#include "AppFrame/PlayerControl.h"
#include "Fnd/RunLoop.h"
#include "Mid/ClipPlayback.h"
#include "Mid/PlayerOwner.h"
#include "fluxui/controls/UI_FrameView.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"

namespace igd::test {
namespace {

using fluxmediatypes::kTime_Invalid;
using fluxmediatypes::Time;

constexpr Time kFrame = fluxmediatypes::kTicksPerSecond / 25;

// 50 frames at 25 a second; a frame's first byte is its number, its second the clip's tag.
class FakeClip : public Mid::ClipPlayback {
public:
    explicit FakeClip(std::uint8_t tag) : tag_(tag) {}
    double FrameRate() const override { return 25; }
    std::int64_t FrameCount() const override { return 50; }
    Mid::PlaybackFrame Seek(std::int64_t index, int, int) override {
        at_ = std::clamp<std::int64_t>(index, 0, 49);
        return Frame();
    }
    std::optional<Mid::PlaybackFrame> Next(int, int) override {
        if (at_ >= 49)
            return std::nullopt;
        ++at_;
        return Frame();
    }

private:
    Mid::PlaybackFrame Frame() const {
        auto bytes = std::make_shared<std::vector<std::uint8_t>>(2 * 2 * 4, 0);
        (*bytes)[0] = std::uint8_t(at_);
        (*bytes)[1] = tag_;
        return {bytes, 2, 2, at_, double(at_) / 25};
    }
    std::uint8_t tag_;
    std::int64_t at_ = 0;
};

// Clips named "bad..." cannot be played; any other plays with its name's first letter as tag.
class FakeFactory : public Mid::ClipPlaybackFactory {
public:
    std::unique_ptr<Mid::ClipPlayback> Open(const std::string& path) override {
        if (path.rfind("bad", 0) == 0)
            throw Mid::PlaybackUnavailable(path + ": damaged");
        return std::make_unique<FakeClip>(std::uint8_t(path.at(0)));
    }
};

// A pane above the player that answers select-all (30205), as the media pane does.
class PaneCommander : public AppFrame::Commander {
public:
    int executed = 0;

protected:
    bool QueryCommand(const AppFrame::Command& command, AppFrame::CommandStatus& status) override {
        status.enabled = true;
        return command.GetID() == 30205;
    }
    bool ExecuteCommand(const AppFrame::Command& command) override {
        executed += command.GetID() == 30205;
        return command.GetID() == 30205;
    }
};

struct Marks {
    Time in = kTime_Invalid;
    Time out = kTime_Invalid;
    fluxmediatypes::FrameRate rate = 0;
    int heard = 0;
};

class PlayerOwnerTest : public ::testing::Test {
protected:
    void SetUp() override {
        Mid::ClipPlaybackFactory::Install(std::make_shared<FakeFactory>());
        parent_ = new fluxui::ui::UI_SubView;
        parent_->UI_SetLocalRectF({0, 0, 400, 300});
        player_ = MakePlayer();
    }
    void TearDown() override {
        player_.reset();
        Fnd::GetDefaultQueue().Drain();
        AppFrame::Commander::SetTarget(nullptr);
        Mid::ClipPlaybackFactory::Install(nullptr);
    }

    Mid::PlayerOwnerRef MakePlayer() {
        Mid::PlayerOwnerRef player(new Mid::PlayerOwner(&pane_, 0, true));
        player->Create(*parent_, {10, 10, 320, 240});
        player->NotifyWhenMarksChanged([this](Time in, Time out, fluxmediatypes::FrameRate rate) {
            marks_ = {in, out, rate, marks_.heard + 1};
        });
        return player;
    }
    fluxui::controls::UI_FrameView& Picture() const {
        return dynamic_cast<fluxui::controls::UI_FrameView&>(*player_->GetView()->UI_FindNodeByID("player.picture"));
    }
    fluxui::controls::UI_TextButton& Button(const std::string& id) const {
        return dynamic_cast<fluxui::controls::UI_TextButton&>(*player_->GetView()->UI_FindNodeByID(id));
    }
    // Drains the UI thread's queue until the condition holds; fails after a generous while.
    static bool DrainUntil(const std::function<bool()>& condition) {
        const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (std::chrono::steady_clock::now() < giveUp) {
            Fnd::GetDefaultQueue().Drain();
            if (condition())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return false;
    }
    bool Shows(int frame, char tag = 'A') const {
        const auto& picture = Picture().GetPicture();
        return !picture.IsEmpty() && (*picture.bytes)[0] == frame && (*picture.bytes)[1] == tag;
    }
    void Load(const char* path = "A001.mov", std::string startTimecode = {}) {
        player_->SetProjectItem({Fnd::FromASCII(path), u"A001", std::move(startTimecode)});
        ASSERT_TRUE(DrainUntil([&] { return player_->GetFrameRate() != 0 && !Picture().GetPicture().IsEmpty(); }));
    }

    PaneCommander pane_;
    boost::intrusive_ptr<fluxui::ui::UI_SubView> parent_;
    Mid::PlayerOwnerRef player_;
    Marks marks_;
};

TEST_F(PlayerOwnerTest, ShowsTheStartThenTheFramesStepsAndScrubsAskFor) {
    player_->SetProjectItem({u"A001.mov", u"A001"});
    player_->SetStartPosition(7 * kFrame);
    ASSERT_TRUE(DrainUntil([&] { return !Picture().GetPicture().IsEmpty(); }));
    EXPECT_TRUE(Shows(7)) << "the start position, not frame 0 first";
    EXPECT_EQ(player_->GetFrameRate(), kFrame);

    player_->Step(+1);
    player_->Step(+1);
    player_->Step(-1);
    EXPECT_TRUE(DrainUntil([&] { return Shows(8); }));
    EXPECT_EQ(player_->GetPosition(), 8 * kFrame);
    player_->Scrub(30 * kFrame + kFrame / 2);
    EXPECT_TRUE(DrainUntil([&] { return Shows(30); }));
    player_->Step(-100);
    EXPECT_TRUE(DrainUntil([&] { return Shows(0); }));
    player_->Scrub(1000 * kFrame);
    EXPECT_TRUE(DrainUntil([&] { return Shows(49); }));

    // A new item: frames of the old one still in flight are never shown.
    player_->SetProjectItem({u"B002.mov", u"B002"});
    EXPECT_TRUE(DrainUntil([&] { return Shows(0, 'B'); }));
    EXPECT_EQ(player_->GetPosition(), 0);
}

TEST_F(PlayerOwnerTest, InAndOutCommandsReachThePlayerOnTheChainAndItsParentKeepsItsOwn) {
    AppFrame::Commander::SetTarget(player_.get());
    AppFrame::CommandStatus status;
    ASSERT_TRUE(AppFrame::Commander::QueryFromTarget(AppFrame::Command(12065), status));
    EXPECT_FALSE(status.enabled) << "no clip, no marks";

    // The texts count from the camera's timecode of the first frame.
    Load("A001.mov", "10:00:00:00");
    for (int id : {12065, 12066, 12071}) {
        status = {};
        EXPECT_TRUE(AppFrame::Commander::QueryFromTarget(AppFrame::Command(id), status));
        EXPECT_TRUE(status.enabled) << id;
    }
    player_->Scrub(5 * kFrame);
    EXPECT_TRUE(AppFrame::Commander::ExecuteFromTarget(AppFrame::Command(12065)));
    player_->Scrub(12 * kFrame);
    EXPECT_TRUE(AppFrame::Commander::ExecuteFromTarget(AppFrame::Command(12066)));
    EXPECT_EQ(marks_.in, 5 * kFrame);
    EXPECT_EQ(marks_.out, 12 * kFrame);
    EXPECT_EQ(marks_.rate, kFrame);
    EXPECT_EQ(marks_.heard, 2);
    const auto text = [&](const char* id) {
        return dynamic_cast<fluxui::controls::UI_StaticText&>(*player_->GetView()->UI_FindNodeByID(id)).GetValue();
    };
    EXPECT_EQ(text("player.marks"), u"In 10:00:00:05  Out 10:00:00:12");
    EXPECT_EQ(text("player.timecode"), u"10:00:00:12");

    // The pane above still answers its own command while the player is the target.
    EXPECT_TRUE(AppFrame::Commander::ExecuteFromTarget(AppFrame::Command(30205)));
    EXPECT_EQ(pane_.executed, 1);
    EXPECT_FALSE(AppFrame::Commander::ExecuteFromTarget(AppFrame::Command(12067)));

    // An in point after the out point drops the out point; an out before the in drops the in.
    player_->Scrub(20 * kFrame);
    player_->SetInPoint();
    EXPECT_EQ(marks_.in, 20 * kFrame);
    EXPECT_EQ(marks_.out, kTime_Invalid);
    player_->Scrub(3 * kFrame);
    player_->SetOutPoint();
    EXPECT_EQ(marks_.in, kTime_Invalid);
    EXPECT_EQ(marks_.out, 3 * kFrame);
    EXPECT_TRUE(AppFrame::Commander::ExecuteFromTarget(AppFrame::Command(12071)));
    EXPECT_EQ(marks_.out, kTime_Invalid);
    const int heard = marks_.heard;
    player_->ClearInOut();
    EXPECT_EQ(marks_.heard, heard) << "clearing nothing is no change";
}

TEST_F(PlayerOwnerTest, TouchingTheControlsTakesTheTargetAndLeavingGivesItBack) {
    Load();
    AppFrame::Commander::SetTarget(&pane_);
    Button("player.stepForward").Press();
    EXPECT_EQ(AppFrame::Commander::GetTarget(), player_.get());
    EXPECT_TRUE(DrainUntil([&] { return Shows(1); }));
    Button("player.setIn").Press();
    EXPECT_EQ(marks_.in, kFrame);

    player_.reset();
    EXPECT_EQ(AppFrame::Commander::GetTarget(), &pane_);
    EXPECT_EQ(parent_->ChildCount(), 0u) << "the player's views leave with it";
}

TEST_F(PlayerOwnerTest, AClipThatCannotPlayShowsItsNameWithTheControlsOff) {
    player_->SetProjectItem({u"bad.mov", u"Damaged clip"});
    EXPECT_TRUE(DrainUntil([&] { return !Picture().UI_GetToolTip().empty(); }));
    EXPECT_EQ(Picture().GetText(), u"Damaged clip");
    EXPECT_TRUE(Picture().GetPicture().IsEmpty());
    EXPECT_FALSE(Button("player.play").UI_IsEnabled());

    Mid::ClipPlaybackFactory::Install(nullptr);
    player_->SetProjectItem({u"A001.mov", u"A001"});
    Fnd::GetDefaultQueue().Drain();
    EXPECT_EQ(Picture().GetText(), u"A001");
    EXPECT_EQ(player_->GetFrameRate(), 0);
    AppFrame::CommandStatus status;
    AppFrame::Commander::SetTarget(player_.get());
    AppFrame::Commander::QueryFromTarget(AppFrame::Command(12066), status);
    EXPECT_FALSE(status.enabled);
}

TEST_F(PlayerOwnerTest, PlayRunsToTheOutPointAndEveryPlayerStopsOnRequest) {
    Load();
    player_->Scrub(6 * kFrame);
    player_->SetOutPoint();
    player_->Scrub(0);
    player_->Play();
    EXPECT_TRUE(player_->IsPlaying());
    EXPECT_EQ(Button("player.play").GetText(), u"Pause");
    EXPECT_TRUE(DrainUntil([&] { return !player_->IsPlaying(); }));
    EXPECT_TRUE(Shows(6));
    EXPECT_EQ(player_->GetPosition(), 6 * kFrame);

    // At the out point, play starts over from the start; a dialog can stop it.
    player_->Play();
    EXPECT_TRUE(DrainUntil([&] { return Shows(1) || Shows(2); }));
    AppFrame::PlayerControl::StopAllPlayers();
    EXPECT_FALSE(player_->IsPlaying());
    EXPECT_EQ(Button("player.play").GetText(), u"Play");
    // A frame of play still in flight moves the position with the picture: marks set now are
    // at the frame the person sees.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    Fnd::GetDefaultQueue().Drain();
    EXPECT_EQ(player_->GetPosition(), (*Picture().GetPicture().bytes)[0] * kFrame);
}

} // namespace
} // namespace igd::test
