#include "Mid/PlayerOwner.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "AppFrame/PlayerControl.h"
#include "Mid/ClipPlayback.h"
#include "PlaybackWorker.h"
#include "PlayerTimecode.h"
#include "PlayerViews.h"
#include "fluxcore/ZString.h"

namespace Mid {

using fluxmediatypes::kTime_Invalid;
using fluxmediatypes::Time;

class PlayerOwner::Impl : public PlaybackListener {
public:
    Impl(PlayerOwner& owner, int ownerType, bool showsControls)
        : owner_(owner), ownerType_(ownerType), showsControls_(showsControls) {
        playerControlKey_ = AppFrame::PlayerControl::Register([this] { Pause(); });
    }

    ~Impl() override {
        AppFrame::PlayerControl::Unregister(playerControlKey_);
        worker_.reset();
        if (views_.root) {
            views_.Disconnect();
            if (fluxui::ui::UI_Node* parent = views_.root->UI_GetParentNode())
                parent->ChildRemove(views_.root.get());
        }
    }

    void Create(fluxui::ui::UI_SubView& parent, const fluxcore::geom::RectF& playerRect) {
        if (views_.root)
            throw std::logic_error("PlayerOwner::Create called twice");
        views_ = PlayerViews::Build(playerRect, showsControls_);
        // A player in a window of its own fills it as it is resized; one inside a browser stays
        // where the browser put it.
        if (ownerType_ == 1)
            views_.root->UI_SetLayoutBinding(fluxui::ui::kBindAll);
        Wire();
        parent.ChildPushBack(views_.root);
        SetClipRect(views_.picture->UI_GetLocalRectF(true));
        ShowName();
    }

    void SetClipRect(const fluxcore::geom::RectF& clipRect) {
        RequireViews();
        views_.SetClipRect(clipRect);
        if (worker_) {
            const fluxcore::geom::RectF picture = views_.picture->UI_GetLocalRectF(true);
            worker_->SetBox(int(std::lround(picture.width)), int(std::lround(picture.height)));
            if (HasClip() && !playing_)
                worker_->ShowFrame(position_);
        }
    }

    void SetProjectItem(const PlayerItem& item) {
        RequireViews();
        Pause();
        ++generation_;
        item_ = item;
        rate_ = 0;
        frameCount_ = 0;
        position_ = 0;
        followsFrames_ = false;
        start_ = 0;
        in_ = item.inPoint;
        out_ = item.outPoint;
        views_.EnableControls(false);
        views_.picture->ClearPicture();
        ShowName();
        ShowPosition();
        const std::shared_ptr<ClipPlaybackFactory> factory = ClipPlaybackFactory::GetInstance();
        if (!factory)
            return;
        if (!worker_) {
            worker_ = std::make_unique<PlaybackWorker>(relay_);
            const fluxcore::geom::RectF box = views_.picture->UI_GetLocalRectF();
            worker_->SetBox(int(std::lround(box.width)), int(std::lround(box.height)));
        }
        worker_->Open(factory, Fnd::ToUTF8(item.mediaPath), generation_, 0);
    }

    void SetStartPosition(Time position) {
        if (HasClip())
            ShowIndex(IndexOf(position));
        else if (worker_) {
            // The rate is not known yet: the worker finds the frame, and the position follows
            // once the clip has opened.
            start_ = position;
            worker_->ShowTime(position);
        }
    }

    void Play() {
        if (!HasClip() || playing_)
            return;
        const std::int64_t last = LastIndex();
        const std::int64_t outIndex = out_ != kTime_Invalid ? std::min(IndexOf(out_), last) : last;
        // At or past the out point, play starts again from the in point.
        if (position_ >= outIndex)
            ShowIndex(in_ != kTime_Invalid && IndexOf(in_) < outIndex ? IndexOf(in_) : 0);
        playing_ = true;
        followsFrames_ = true;
        worker_->Play(position_ < outIndex ? outIndex : last, ++playSerial_);
        ShowPlaying();
    }

    void Pause() {
        if (!playing_)
            return;
        playing_ = false;
        if (worker_)
            worker_->Pause();
        ShowPlaying();
    }

    bool IsPlaying() const { return playing_; }

    void Step(int frames) {
        if (!HasClip())
            return;
        Pause();
        ShowIndex(position_ + frames);
    }

    void Scrub(Time position) {
        if (HasClip())
            ShowIndex(IndexOf(position));
    }

    Time GetPosition() const { return HasClip() ? position_ * frameTicks_ : 0; }

    void SetInPoint() {
        if (!HasClip())
            return;
        const Time at = GetPosition();
        // A new in point after the out point starts a new range: the old out point goes.
        SetMarks(at, out_ != kTime_Invalid && out_ < at ? kTime_Invalid : out_);
    }

    void SetOutPoint() {
        if (!HasClip())
            return;
        const Time at = GetPosition();
        SetMarks(in_ != kTime_Invalid && in_ > at ? kTime_Invalid : in_, at);
    }

    void ClearInOut() { SetMarks(kTime_Invalid, kTime_Invalid); }

    Time GetInPoint() const { return in_; }
    Time GetOutPoint() const { return out_; }
    fluxmediatypes::FrameRate GetFrameRate() const { return HasClip() ? frameTicks_ : fluxmediatypes::kFrameRate_Zero; }
    void NotifyWhenMarksChanged(MarksFunction function) { marksChanged_ = std::move(function); }
    fluxui::ui::UI_SubView* GetView() const { return views_.root.get(); }
    bool HasClip() const { return rate_ > 0; }

    // PlaybackListener
    void ClipOpened(std::uint64_t generation, double rate, std::int64_t frameCount) override {
        if (generation != generation_)
            return;
        rate_ = rate;
        frameTicks_ = std::llround(double(fluxmediatypes::kTicksPerSecond) / rate);
        frameCount_ = frameCount;
        position_ = IndexOf(start_);
        if (views_.scrub)
            views_.scrub->SetMaximum(LastIndex());
        views_.EnableControls(true);
        ShowPosition();
    }

    void ClipFailed(std::uint64_t generation, const std::string& reason) override {
        if (generation != generation_)
            return;
        rate_ = 0;
        playing_ = false;
        views_.EnableControls(false);
        views_.picture->ClearPicture();
        ShowName();
        views_.picture->UI_SetToolTip(Fnd::FromUTF8(reason));
        ShowPlaying();
        ShowPosition();
    }

    void FrameDecoded(std::uint64_t generation, const PlaybackFrame& frame) override {
        if (generation != generation_)
            return;
        views_.picture->SetPicture({frame.rgba, frame.width, frame.height});
        // Frames of play (also the last, arriving just after a pause) move the position; after a
        // step or a scrub the position is the one asked and the picture catches up with it.
        if (followsFrames_) {
            position_ = frame.index;
            ShowPosition();
        }
    }

    void PlayingStopped(std::uint64_t generation, std::uint64_t playSerial) override {
        // The end of an earlier play must not stop the one started since.
        if (generation != generation_ || playSerial != playSerial_)
            return;
        playing_ = false;
        ShowPlaying();
    }

private:
    // Calls from the worker reach the player only while it lives.
    struct Relay : PlaybackListener {
        explicit Relay(Impl& impl) : impl(impl) {}
        void ClipOpened(std::uint64_t g, double rate, std::int64_t count) override { impl.ClipOpened(g, rate, count); }
        void ClipFailed(std::uint64_t g, const std::string& reason) override { impl.ClipFailed(g, reason); }
        void FrameDecoded(std::uint64_t g, const PlaybackFrame& frame) override { impl.FrameDecoded(g, frame); }
        void PlayingStopped(std::uint64_t g, std::uint64_t serial) override { impl.PlayingStopped(g, serial); }
        Impl& impl;
    };

    void RequireViews() const {
        if (!views_.root)
            throw std::logic_error("PlayerOwner used before Create");
    }

    void Wire() {
        // Whatever the person touches in the player makes it the target of the in and out commands.
        const auto take = [this] { AppFrame::Commander::SetTarget(&owner_); };
        views_.picture->NotifyWhenChangedInteractively([take](const auto&) { take(); });
        if (!views_.HasControls())
            return;
        const auto on = [take](auto& control, auto action) {
            control->NotifyWhenChangedInteractively([take, action](const auto&) {
                take();
                action();
            });
        };
        on(views_.play, [this] { playing_ ? Pause() : Play(); });
        on(views_.stepBack, [this] { Step(-1); });
        on(views_.stepForward, [this] { Step(+1); });
        on(views_.setIn, [this] { SetInPoint(); });
        on(views_.setOut, [this] { SetOutPoint(); });
        on(views_.scrub, [this] { ShowIndex(views_.scrub->GetValue()); });
    }

    std::int64_t LastIndex() const {
        return frameCount_ > 0 ? frameCount_ - 1 : PlaybackWorker::kToTheEnd;
    }
    std::int64_t IndexOf(Time time) const {
        return time <= 0 ? 0 : std::min(time / frameTicks_, LastIndex());
    }

    void ShowIndex(std::int64_t index) {
        index = std::clamp<std::int64_t>(index, 0, LastIndex());
        position_ = index;
        followsFrames_ = false;
        worker_->ShowFrame(index);
        ShowPosition();
    }

    void SetMarks(Time in, Time out) {
        if (in == in_ && out == out_)
            return;
        in_ = in;
        out_ = out;
        ShowPosition();
        if (marksChanged_)
            marksChanged_(in_, out_, GetFrameRate());
    }

    void ShowName() { views_.picture->SetText(item_.name); }

    void ShowPlaying() {
        if (views_.play)
            views_.play->SetText(playing_ ? fluxcore::Localize("$$$/IGD/Player/Pause=Pause")
                                          : fluxcore::Localize("$$$/IGD/Player/Play=Play"));
    }

    void ShowPosition() {
        if (!views_.HasControls())
            return;
        views_.scrub->SetValue(position_);
        // Counted from the camera's timecode of the first frame, as the picture and the clip's
        // column show it.
        const std::int64_t start = TimecodeFrames(item_.startTimecode, rate_);
        views_.timecode->SetValue(HasClip() ? FrameTimecode(start + position_, rate_) : Fnd::WString());
        views_.marks->SetValue(MarksText(in_, out_, frameTicks_, rate_, start));
    }

    PlayerOwner& owner_;
    const int ownerType_;
    const bool showsControls_;
    int playerControlKey_ = 0;
    PlayerViews views_;
    PlayerItem item_;
    std::uint64_t generation_ = 0;
    double rate_ = 0;
    fluxmediatypes::FrameRate frameTicks_ = 0;
    std::int64_t frameCount_ = 0;
    std::int64_t position_ = 0;
    Time start_ = 0; // asked before the clip opened
    bool playing_ = false;
    bool followsFrames_ = false;
    std::uint64_t playSerial_ = 0;
    Time in_ = kTime_Invalid;
    Time out_ = kTime_Invalid;
    MarksFunction marksChanged_;
    std::shared_ptr<Relay> relay_ = std::make_shared<Relay>(*this);
    // Last: it is stopped first, before what its reports reach.
    std::unique_ptr<PlaybackWorker> worker_;
};

PlayerOwner::PlayerOwner(AppFrame::Commander* commander, int ownerType, bool showsControls)
    : AppFrame::Commander(commander), impl_(std::make_unique<Impl>(*this, ownerType, showsControls)) {}

PlayerOwner::~PlayerOwner() = default;

void PlayerOwner::Create(fluxui::ui::UI_SubView& parent, const fluxcore::geom::RectF& playerRect) {
    impl_->Create(parent, playerRect);
}
void PlayerOwner::SetClipRect(const fluxcore::geom::RectF& clipRect) {
    impl_->SetClipRect(clipRect);
}
void PlayerOwner::SetProjectItem(const PlayerItem& item) {
    impl_->SetProjectItem(item);
}
void PlayerOwner::SetStartPosition(Time position) {
    impl_->SetStartPosition(position);
}
void PlayerOwner::Play() {
    impl_->Play();
}
void PlayerOwner::Pause() {
    impl_->Pause();
}
bool PlayerOwner::IsPlaying() const {
    return impl_->IsPlaying();
}
void PlayerOwner::Step(int frames) {
    impl_->Step(frames);
}
void PlayerOwner::Scrub(Time position) {
    impl_->Scrub(position);
}
Time PlayerOwner::GetPosition() const {
    return impl_->GetPosition();
}
void PlayerOwner::SetInPoint() {
    impl_->SetInPoint();
}
void PlayerOwner::SetOutPoint() {
    impl_->SetOutPoint();
}
void PlayerOwner::ClearInOut() {
    impl_->ClearInOut();
}
Time PlayerOwner::GetInPoint() const {
    return impl_->GetInPoint();
}
Time PlayerOwner::GetOutPoint() const {
    return impl_->GetOutPoint();
}
fluxmediatypes::FrameRate PlayerOwner::GetFrameRate() const {
    return impl_->GetFrameRate();
}
void PlayerOwner::NotifyWhenMarksChanged(MarksFunction function) {
    impl_->NotifyWhenMarksChanged(std::move(function));
}
fluxui::ui::UI_SubView* PlayerOwner::GetView() const {
    return impl_->GetView();
}

bool PlayerOwner::QueryCommand(const AppFrame::Command& command, AppFrame::CommandStatus& status) {
    switch (command.GetID()) {
    case kCommandSetIn:
    case kCommandSetOut:
    case kCommandClearInOut:
        status.enabled = impl_->HasClip();
        status.checked = false;
        return true;
    default:
        return false;
    }
}

bool PlayerOwner::ExecuteCommand(const AppFrame::Command& command) {
    switch (command.GetID()) {
    case kCommandSetIn:
        impl_->SetInPoint();
        return true;
    case kCommandSetOut:
        impl_->SetOutPoint();
        return true;
    case kCommandClearInOut:
        impl_->ClearInOut();
        return true;
    default:
        return false;
    }
}

} // namespace Mid
