#pragma once
#include "fluxui/controls/UI_ControlView.h"

namespace fluxui::controls {

// A thin line between groups; drawn along its longer side.
class UI_Divider : public UI_ControlView {
public:
    const char* UI_GetClassName() const override { return "UI_Divider"; }

    void UI_Draw(sketcher::Sketcher& sketcher) override {
        const fluxcore::geom::RectF rect = UI_GetLocalRectF().Offset(UI_LocalToGlobal({}));
        sketcher.FillRect(rect, {0.2f, 0.2f, 0.2f, 1.0f});
    }
};

} // namespace fluxui::controls
