#include "PlayerViews.h"

#include "fluxcore/ZString.h"

namespace Mid {
namespace {

using fluxcore::geom::RectF;
using namespace fluxui::controls;
using fluxui::ui::kBindBottom;
using fluxui::ui::kBindLeft;
using fluxui::ui::kBindRight;

template <typename T> boost::intrusive_ptr<T> Add(fluxui::ui::UI_SubView& parent, const char* id, const RectF& rect,
                                                  std::uint32_t binding) {
    boost::intrusive_ptr<T> view(new T);
    view->UI_SetNodeID(id);
    view->UI_SetLocalRectF(rect);
    view->UI_SetLayoutBinding(binding);
    parent.ChildPushBack(view);
    return view;
}

boost::intrusive_ptr<UI_TextButton> AddButton(fluxui::ui::UI_SubView& parent, const char* id, const char* caption,
                                              const char* tip, float& left, float top, float width) {
    auto button = Add<UI_TextButton>(parent, id, {left, top, width, 22.0f}, kBindLeft | kBindBottom);
    button->SetText(fluxcore::Localize(caption));
    button->UI_SetToolTip(fluxcore::Localize(tip));
    left += width + 4.0f;
    return button;
}

} // namespace

PlayerViews PlayerViews::Build(const RectF& playerRect, bool showsControls) {
    PlayerViews views;
    views.root = new fluxui::ui::UI_SubView;
    views.root->UI_SetNodeID("player");
    views.root->UI_SetLocalRectF(playerRect);
    const float width = playerRect.width;
    const float bar = showsControls ? kBarHeight : 0.0f;
    views.picture = Add<UI_FrameView>(*views.root, "player.picture",
                                      {0, 0, width, std::max(0.0f, playerRect.height - bar)}, fluxui::ui::kBindAll);
    if (!showsControls)
        return views;

    const float top = playerRect.height - bar;
    views.scrub = Add<UI_Slider>(*views.root, "player.scrub", {4, top + 4, std::max(0.0f, width - 8), 18},
                                 kBindLeft | kBindRight | kBindBottom);
    const float row = top + 28;
    float left = 4;
    views.stepBack = AddButton(*views.root, "player.stepBack", "$$$/IGD/Player/StepBack=<",
                               "$$$/IGD/Player/StepBackTip=One frame back", left, row, 28);
    views.play = AddButton(*views.root, "player.play", "$$$/IGD/Player/Play=Play", "$$$/IGD/Player/PlayTip=Play or pause",
                           left, row, 52);
    views.stepForward = AddButton(*views.root, "player.stepForward", "$$$/IGD/Player/StepForward=>",
                                  "$$$/IGD/Player/StepForwardTip=One frame forward", left, row, 28);
    views.setIn = AddButton(*views.root, "player.setIn", "$$$/IGD/Player/SetIn=In",
                            "$$$/IGD/Player/SetInTip=Set the in point here", left, row, 36);
    views.setOut = AddButton(*views.root, "player.setOut", "$$$/IGD/Player/SetOut=Out",
                             "$$$/IGD/Player/SetOutTip=Set the out point here", left, row, 40);
    views.timecode = Add<UI_StaticText>(*views.root, "player.timecode", {left + 4, row, 84, 22}, kBindLeft | kBindBottom);
    left += 92;
    views.marks = Add<UI_StaticText>(*views.root, "player.marks", {left, row, std::max(0.0f, width - left - 4), 22},
                                     kBindLeft | kBindRight | kBindBottom);
    views.EnableControls(false);
    return views;
}

void PlayerViews::SetClipRect(const RectF& clipRect) {
    // The transport keeps its place under the picture whatever rect the owner asks for.
    const float bottom = std::max(0.0f, root->UI_GetLocalRectF().height - (HasControls() ? kBarHeight : 0.0f));
    RectF rect = clipRect;
    rect.height = std::max(0.0f, std::min(rect.Bottom(), bottom) - rect.top);
    picture->UI_SetLocalRectF(rect);
}

std::vector<UI_InteractiveControlView*> PlayerViews::Controls() const {
    if (!HasControls())
        return {};
    return {play.get(), stepBack.get(), stepForward.get(), setIn.get(), setOut.get(), scrub.get()};
}

void PlayerViews::EnableControls(bool enabled) {
    for (UI_InteractiveControlView* control : Controls())
        control->SetDisabled(!enabled);
}

void PlayerViews::Disconnect() {
    picture->NotifyWhenChangedInteractively(ControlNotifyFunction());
    for (UI_InteractiveControlView* control : Controls())
        control->NotifyWhenChangedInteractively(ControlNotifyFunction());
}

} // namespace Mid
