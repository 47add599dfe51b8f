#pragma once
// The views of a preview player: the picture and, under it, the transport bar.
#include <vector>

#include <boost/intrusive_ptr.hpp>

#include "fluxcore/geom/Geometry.h"
#include "fluxui/controls/UI_FrameView.h"
#include "fluxui/controls/UI_Slider.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/ui/UI_SubView.h"

namespace Mid {

struct PlayerViews {
    static constexpr float kBarHeight = 56.0f;

    // Built at playerRect of the parent's space; the picture takes what the bar leaves.
    static PlayerViews Build(const fluxcore::geom::RectF& playerRect, bool showsControls);

    // Where the picture goes, in the player's space.
    void SetClipRect(const fluxcore::geom::RectF& clipRect);
    // The transport works only with a clip that plays.
    void EnableControls(bool enabled);
    // After this the views call nobody: they may outlive their player in the parent's tree.
    void Disconnect();
    bool HasControls() const { return scrub != nullptr; }
    // The buttons and the scrub bar; none without controls.
    std::vector<fluxui::controls::UI_InteractiveControlView*> Controls() const;

    boost::intrusive_ptr<fluxui::ui::UI_SubView> root;
    boost::intrusive_ptr<fluxui::controls::UI_FrameView> picture;
    // Null without controls.
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> play;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> stepBack;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> stepForward;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> setIn;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> setOut;
    boost::intrusive_ptr<fluxui::controls::UI_Slider> scrub;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> timecode;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> marks;
};

} // namespace Mid
