#include "fluxui/controls/UI_SplitterView.h"

#include <algorithm>

namespace fluxui::controls {

using fluxcore::geom::RectF;

UI_SplitterView::UI_SplitterView(SplitDirection direction, float defaultSplit, float dividerWidth)
    : direction_(direction), split_(std::clamp(defaultSplit, 0.0f, 100.0f)),
      dividerWidth_(std::max(0.0f, dividerWidth)) {
    UI_SetLayoutsChildren(false);
}

void UI_SplitterView::SetSplitPercentage(float percent) {
    const SplitValidationFunctionPtr validate = validate_;
    if (validate && *validate)
        percent = (*validate)(percent);
    percent = std::clamp(percent, 0.0f, 100.0f);
    if (percent == split_)
        return;
    split_ = percent;
    PlaceViews();
    NotifyObserver(ui::NodeChange::Value);
}

void UI_SplitterView::SetSplitValidationFunction(SplitValidationFunctionPtr function) {
    validate_ = std::move(function);
}

void UI_SplitterView::DragDividerTo(float position) {
    const float room = Room();
    if (room <= 0.0f || !UI_IsEnabled())
        return;
    SetSplitPercentage(position / room * 100.0f);
}

float UI_SplitterView::Room() const {
    const RectF local = UI_GetLocalRectF();
    const float extent = direction_ == SplitDirection::Horizontal ? local.width : local.height;
    return std::max(0.0f, extent - dividerWidth_);
}

float UI_SplitterView::GetDividerPosition() const {
    return Room() * split_ / 100.0f;
}

void UI_SplitterView::SetTopLeftView(const ui::UI_NodeRef& node) {
    Replace(first_, node);
}

void UI_SplitterView::SetBottomRightView(const ui::UI_NodeRef& node) {
    Replace(second_, node);
}

void UI_SplitterView::Replace(ui::UI_NodeRef& slot, const ui::UI_NodeRef& node) {
    if (slot)
        ChildRemove(slot.get());
    slot = node;
    if (slot)
        ChildPushBack(slot);
    PlaceViews();
}

void UI_SplitterView::UI_SizeChanged(const RectF& localRect) {
    UI_SubView::UI_SizeChanged(localRect);
    PlaceViews();
}

void UI_SplitterView::PlaceViews() {
    const RectF local = UI_GetLocalRectF();
    const float divider = GetDividerPosition();
    const float second = divider + dividerWidth_;
    if (direction_ == SplitDirection::Horizontal) {
        if (first_)
            first_->UI_SetLocalRectF({0.0f, 0.0f, divider, local.height});
        if (second_)
            second_->UI_SetLocalRectF({second, 0.0f, std::max(0.0f, local.width - second), local.height});
    } else {
        if (first_)
            first_->UI_SetLocalRectF({0.0f, 0.0f, local.width, divider});
        if (second_)
            second_->UI_SetLocalRectF({0.0f, second, local.width, std::max(0.0f, local.height - second)});
    }
}

} // namespace fluxui::controls
