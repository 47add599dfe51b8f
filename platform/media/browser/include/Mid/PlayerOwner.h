#pragma once
// The preview player of the media browser: the picture of one clip, play and pause, a frame step
// either way, scrubbing, and the in and out marks of the clip. It lives in the browser's view
// tree and takes the in and out commands (12065 set in, 12066 set out, 12071 clear both) when it
// is on the commander chain; the browser hears the marks through the marks function.
#include <functional>
#include <memory>
#include <string>

#include "AppFrame/Commander.h"
#include "Fnd/WString.h"
#include "fluxcore/RefCountedObject.h"
#include "fluxcore/geom/Geometry.h"
#include "fluxmediatypes/MediaTypes.h"
#include "fluxui/ui/UI_SubView.h"

namespace Mid {

// What a player shows: a clip of the media browser.
struct PlayerItem {
    Fnd::WString mediaPath; // the file the pictures are read from
    Fnd::WString name;      // the clip's name, shown while nothing is decoded
    // The timecode of the clip's first frame ("HH:MM:SS:FF"); the player counts from it, as the
    // camera did. Empty counts from zero.
    std::string startTimecode = {};
    // Marks already set on the clip; invalid for none.
    fluxmediatypes::Time inPoint = fluxmediatypes::kTime_Invalid;
    fluxmediatypes::Time outPoint = fluxmediatypes::kTime_Invalid;
};

class PlayerOwner : public fluxcore::utility::RefCountedObject, public AppFrame::Commander {
public:
    static constexpr int kCommandSetIn = 12065;
    static constexpr int kCommandSetOut = 12066;
    static constexpr int kCommandClearInOut = 12071;

    // ownerType 1: a player that owns its window; 0: a player inside another view. With
    // showsControls the player draws its transport bar under the picture.
    PlayerOwner(AppFrame::Commander* commander, int ownerType, bool showsControls);
    ~PlayerOwner() override;

    // Builds the player's views in parent at playerRect (parent's space).
    void Create(fluxui::ui::UI_SubView& parent, const fluxcore::geom::RectF& playerRect);
    // Where the picture goes inside the player, in the player's space.
    void SetClipRect(const fluxcore::geom::RectF& clipRect);
    // Stops playing and shows the item's first picture (or its start position).
    void SetProjectItem(const PlayerItem& item);
    void SetStartPosition(fluxmediatypes::Time position);

    void Play();
    void Pause();
    bool IsPlaying() const;
    // One frame forward (positive) or back (negative).
    void Step(int frames);
    // Moves to a time, as the scrub bar does.
    void Scrub(fluxmediatypes::Time position);
    fluxmediatypes::Time GetPosition() const;
    // Marks at the present position, or cleared; the marks function hears each change.
    void SetInPoint();
    void SetOutPoint();
    void ClearInOut();
    fluxmediatypes::Time GetInPoint() const;
    fluxmediatypes::Time GetOutPoint() const;
    // The clip's frame rate as the length of one frame in ticks; zero until known.
    fluxmediatypes::FrameRate GetFrameRate() const;

    using MarksFunction =
        std::function<void(fluxmediatypes::Time in, fluxmediatypes::Time out, fluxmediatypes::FrameRate rate)>;
    void NotifyWhenMarksChanged(MarksFunction function);

    // The view the player built; null before Create.
    fluxui::ui::UI_SubView* GetView() const;

protected:
    bool QueryCommand(const AppFrame::Command& command, AppFrame::CommandStatus& status) override;
    bool ExecuteCommand(const AppFrame::Command& command) override;

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

using PlayerOwnerRef = boost::intrusive_ptr<PlayerOwner>;

} // namespace Mid
