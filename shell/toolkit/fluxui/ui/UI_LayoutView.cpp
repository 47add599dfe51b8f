#include "fluxui/ui/UI_LayoutView.h"

namespace fluxui::ui {

using fluxcore::geom::RectF;

UI_LayoutView::UI_LayoutView(LayoutDirection direction, float spacing, float margin)
    : direction_(direction), spacing_(spacing), margin_(margin) {
    UI_SetLayoutsChildren(false);
}

void UI_LayoutView::UI_SizeChanged(const RectF& localRect) {
    UI_SubView::UI_SizeChanged(localRect);
    Relayout();
}

void UI_LayoutView::Relayout() {
    const RectF bounds = UI_GetLocalRectF();
    const bool vertical = direction_ == LayoutDirection::Vertical;
    float along = margin_;
    for (auto child = ChildBegin(); child != ChildEnd(); ++child) {
        UI_Node& node = **child;
        if (!node.UI_IsShown())
            continue;
        RectF rect = node.UI_GetLocalRectF(true);
        if (vertical)
            rect = {margin_, along, bounds.width - 2 * margin_, rect.height};
        else
            rect = {along, margin_, rect.width, bounds.height - 2 * margin_};
        if (rect.width < 0.0f)
            rect.width = 0.0f;
        if (rect.height < 0.0f)
            rect.height = 0.0f;
        node.UI_SetLocalRectF(rect);
        along += (vertical ? rect.height : rect.width) + spacing_;
    }
}

float UI_LayoutView::GetNeededExtent() const {
    const bool vertical = direction_ == LayoutDirection::Vertical;
    float extent = 0.0f;
    int shown = 0;
    for (auto child = ChildBegin(); child != ChildEnd(); ++child) {
        if (!(*child)->UI_IsShown())
            continue;
        const RectF rect = (*child)->UI_GetLocalRectF();
        extent += vertical ? rect.height : rect.width;
        ++shown;
    }
    if (shown > 1)
        extent += spacing_ * static_cast<float>(shown - 1);
    return extent + 2 * margin_;
}

} // namespace fluxui::ui
