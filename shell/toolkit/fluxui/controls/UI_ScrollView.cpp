#include "fluxui/controls/UI_ScrollView.h"

#include <algorithm>
#include <stdexcept>

namespace fluxui::controls {

using fluxcore::geom::RectF;

UI_ScrollView::UI_ScrollView(unsigned flags, const ui::UI_NodeRef& content)
    : content_(content), bar_(new UI_ScrollBar) {
    if (!content_)
        throw std::invalid_argument("UI_ScrollView: a scroll view needs a content view");
    UI_SetLayoutsChildren(false);
    ChildPushBack(content_);
    ChildPushBack(bar_);
    bar_->UI_Show(false);
}

void UI_ScrollView::SetContentRectF(const RectF& rect) {
    content_->UI_SetLocalRectF(rect);
    // Update takes the position from the content and tells the bar's observer when it moved.
    Update();
}

void UI_ScrollView::ScrollTo(float y) {
    RectF rect = GetContentRectF();
    rect.top = -y;
    SetContentRectF(rect);
}

void UI_ScrollView::ScrollIntoView(const RectF& rect, bool animate) {
    const float viewHeight = UI_GetLocalRectF().height;
    float y = GetScrollY();
    if (rect.top < y || rect.height > viewHeight)
        y = rect.top;
    else if (rect.Bottom() > y + viewHeight)
        y = rect.Bottom() - viewHeight;
    ScrollTo(y);
}

void UI_ScrollView::Update() {
    const RectF view = UI_GetLocalRectF();
    RectF content = GetContentRectF();
    const float maximum = std::max(0.0f, content.height - view.height);
    const float value = std::clamp(-content.top, 0.0f, maximum);
    if (content.top != -value) {
        content.top = -value;
        content_->UI_SetLocalRectF(content);
    }
    if (bar_->value_ != value || bar_->maximum_ != maximum) {
        bar_->value_ = value;
        bar_->maximum_ = maximum;
        bar_->NotifyObserver(ui::NodeChange::Value);
    }
    bar_->UI_SetLocalRectF({view.width - kScrollBarSize, 0.0f, kScrollBarSize, view.height});
    bar_->UI_Show(maximum > 0.0f);
}

void UI_ScrollView::UI_SizeChanged(const RectF& localRect) {
    UI_SubView::UI_SizeChanged(localRect);
    Update();
}

} // namespace fluxui::controls
