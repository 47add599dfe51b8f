#include "PreviewPlayer.h"

#include "fluxmediabrowser/MediaBrowserView.h"
#include "fluxmediabrowser/PlayerFactory.h"

namespace fluxmediabrowser {

PreviewPlayer::PreviewPlayer(fluxui::ui::UI_SubView& parent, MediaBrowserModel& model)
    : model_(model), area_(new fluxui::ui::UI_SubView) {
    area_->UI_SetNodeID(kPlayerAreaID);
    parent.ChildPushBack(area_);
}

PreviewPlayer::~PreviewPlayer() {
    // The player may outlive the browser in its host's hands; it must not call back into it.
    if (player_)
        player_->NotifyWhenMarksChanged({});
}

fluxcore::geom::RectF PreviewPlayer::PlayerRect() const {
    const fluxcore::geom::RectF area = area_->UI_GetLocalRectF();
    return {0.0f, 0.0f, area.width, area.height};
}

void PreviewPlayer::Layout(const fluxcore::geom::RectF& rect) {
    area_->UI_SetLocalRectF(rect);
    if (player_ && player_->GetView()) {
        player_->GetView()->UI_SetLocalRectF(PlayerRect());
        player_->SetClipRect(PlayerRect());
    }
}

void PreviewPlayer::FollowSelection() {
    const std::vector<std::size_t>& selection = model_.GetSelection();
    const MediaEntry* clip = nullptr;
    if (selection.size() == 1 && selection.front() < model_.Entries().size() &&
        !model_.Entries()[selection.front()].folder)
        clip = &model_.Entries()[selection.front()];
    if (!clip) {
        if (player_ && player_->GetView())
            player_->GetView()->UI_Show(false);
        return;
    }
    if (player_ && clip->path == clipPath_) {
        if (player_->GetView())
            player_->GetView()->UI_Show(true);
        return;
    }
    const Mid::PlayerItem item{clip->path, clip->displayName, clip->facts ? clip->facts->startTimecode : std::string(),
                               clip->marks.inPoint, clip->marks.outPoint};
    if (!player_) {
        const RequestMBPlayerOwnerFxn& factory = GetRequestMBPlayerOwnerSharedFxn();
        if (!factory)
            return;
        // The player draws its transport under the picture itself; the picture has the whole area.
        player_ = factory(*area_, item, false, PlayerRect(), PlayerRect());
        if (!player_)
            return;
        player_->NotifyWhenMarksChanged(
            [this](fluxmediatypes::Time in, fluxmediatypes::Time out, fluxmediatypes::FrameRate rate) {
                MarksChanged(in, out, rate);
            });
    } else {
        player_->SetProjectItem(item);
        if (item.inPoint != fluxmediatypes::kTime_Invalid)
            player_->SetStartPosition(item.inPoint);
    }
    clipPath_ = clip->path;
    if (player_->GetView())
        player_->GetView()->UI_Show(true);
}

// The clip is found by its path: the directory may have changed since it was selected.
void PreviewPlayer::MarksChanged(fluxmediatypes::Time in, fluxmediatypes::Time out, fluxmediatypes::FrameRate rate) {
    const std::vector<MediaEntry>& entries = model_.Entries();
    for (std::size_t i = 0; i < entries.size(); ++i)
        if (entries[i].path == clipPath_) {
            model_.SetMarks(i, TranscodeClipSetting{rate, in, out});
            return;
        }
}

} // namespace fluxmediabrowser
