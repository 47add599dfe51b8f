#pragma once
#include "fluxui/ui/UI_SubView.h"

namespace fluxui::ui {

enum class LayoutDirection { Vertical, Horizontal };

// Stacks its shown children in one direction, each keeping its own extent along the stack and
// filling the view across it. Hidden children take no room.
class UI_LayoutView : public UI_SubView {
public:
    explicit UI_LayoutView(LayoutDirection direction = LayoutDirection::Vertical, float spacing = 0.0f,
                           float margin = 0.0f);
    const char* UI_GetClassName() const override { return "UI_LayoutView"; }

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;
    // Places the children again; call after adding, removing, showing or resizing them.
    void Relayout();
    // The extent along the stack that the shown children need, margins included.
    float GetNeededExtent() const;

private:
    LayoutDirection direction_;
    float spacing_;
    float margin_;
};

} // namespace fluxui::ui
