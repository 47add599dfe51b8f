#include "fluxui/ui/UI_SubView.h"

namespace fluxui::ui {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;

void UI_SubView::UI_SizeChanged(const RectF& localRect) {
    const PointF delta = localRect.Size() - lastSize_;
    lastSize_ = localRect.Size();
    if (!layoutsChildren_)
        return;
    for (auto child = ChildBegin(); child != ChildEnd(); ++child)
        if (auto* subView = dynamic_cast<UI_SubView*>(child->get()))
            subView->FollowParent(delta);
}

void UI_SubView::FollowParent(PointF delta) {
    RectF rect = UI_GetLocalRectF(true);
    const auto follow = [](float& start, float& extent, float by, bool nearSide, bool farSide) {
        if (farSide && nearSide)
            extent += by;
        else if (farSide)
            start += by;
    };
    follow(rect.left, rect.width, delta.x, binding_ & kBindLeft, binding_ & kBindRight);
    follow(rect.top, rect.height, delta.y, binding_ & kBindTop, binding_ & kBindBottom);
    rect.width = rect.width < 0.0f ? 0.0f : rect.width;
    rect.height = rect.height < 0.0f ? 0.0f : rect.height;
    UI_SetLocalRectF(rect);
}

} // namespace fluxui::ui
