#pragma once
// The player under the media view: one player, asked of the host's factory for the first clip
// selected and handed each clip selected after it; the marks set in it go back to the model.
#include <boost/intrusive_ptr.hpp>

#include "Mid/PlayerOwner.h"
#include "fluxmediabrowser/MediaBrowserModel.h"
#include "fluxui/ui/UI_SubView.h"

namespace fluxmediabrowser {

class PreviewPlayer {
public:
    PreviewPlayer(fluxui::ui::UI_SubView& parent, MediaBrowserModel& model);
    ~PreviewPlayer();
    PreviewPlayer(const PreviewPlayer&) = delete;
    PreviewPlayer& operator=(const PreviewPlayer&) = delete;

    fluxui::ui::UI_SubView& Area() const { return *area_; }
    // The area in the browser's space; the player fills it.
    void Layout(const fluxcore::geom::RectF& rect);
    // Shows the selected clip when exactly one clip is selected; else the player is hidden.
    void FollowSelection();
    Mid::PlayerOwner* Player() const { return player_.get(); }

private:
    fluxcore::geom::RectF PlayerRect() const;
    void MarksChanged(fluxmediatypes::Time in, fluxmediatypes::Time out, fluxmediatypes::FrameRate rate);

    MediaBrowserModel& model_;
    boost::intrusive_ptr<fluxui::ui::UI_SubView> area_;
    Mid::PlayerOwnerRef player_;
    Fnd::WString clipPath_; // of the clip the player holds
};

} // namespace fluxmediabrowser
