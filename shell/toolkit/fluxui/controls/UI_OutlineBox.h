#pragma once
#include "fluxui/controls/UI_ControlView.h"

namespace fluxui::controls {

// A frame around a group of children.
class UI_OutlineBox : public UI_ControlView {
public:
    const char* UI_GetClassName() const override { return "UI_OutlineBox"; }

    void SetCornerRadius(float radius) { cornerRadius_ = radius; }
    float GetCornerRadius() const { return cornerRadius_; }
    void SetOutlineColor(const sketcher::ColorRGBA& color) {
        color_ = color;
        NotifyObserver(ui::NodeChange::Appearance);
    }
    void UI_Draw(sketcher::Sketcher& sketcher) override {
        const fluxcore::geom::RectF local = UI_GetLocalRectF();
        sketcher.DrawOutline(local.Offset(UI_LocalToGlobal({})), color_);
        UI_ControlView::UI_Draw(sketcher);
    }

private:
    float cornerRadius_ = 0.0f;
    sketcher::ColorRGBA color_{0.3f, 0.3f, 0.3f, 1.0f};
};

} // namespace fluxui::controls
