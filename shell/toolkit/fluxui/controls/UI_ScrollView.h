#pragma once
#include "fluxui/ui/UI_SubView.h"

namespace fluxui::controls {

// The vertical bar of a scroll view; shown only while the content is taller than the view.
class UI_ScrollBar : public ui::UI_SubView {
public:
    const char* UI_GetClassName() const override { return "UI_ScrollBar"; }
    float GetValue() const { return value_; }
    float GetMaximum() const { return maximum_; }

private:
    friend class UI_ScrollView;
    float value_ = 0.0f;
    float maximum_ = 0.0f;
};

// Shows a part of a content view that may be larger than itself. The content's rect is in the
// scroll view's space: a content top of -40 means 40 units are scrolled out of sight.
class UI_ScrollView : public ui::UI_SubView {
public:
    UI_ScrollView(unsigned flags, const ui::UI_NodeRef& content);
    const char* UI_GetClassName() const override { return "UI_ScrollView"; }

    ui::UI_Node& GetContentView() const { return *content_; }
    fluxcore::geom::RectF GetContentRectF() const { return content_->UI_GetLocalRectF(true); }
    // Places the content, then keeps the scroll position within range.
    void SetContentRectF(const fluxcore::geom::RectF& rect);
    float GetScrollBarSize() const { return kScrollBarSize; }
    UI_ScrollBar& GetScrollBarY() const { return *bar_; }
    // How far the content is scrolled, from 0 to the bar's maximum.
    float GetScrollY() const { return bar_->value_; }
    // The person scrolled; clamped to the range.
    void ScrollTo(float y);
    // Scrolls the least distance that brings rect (in the content's own space) into sight; a
    // rect taller than the view shows its top.
    void ScrollIntoView(const fluxcore::geom::RectF& rect, bool animate);
    // Recomputes the range and whether the bar shows.
    void Update();

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;

    static constexpr float kScrollBarSize = 14.0f;

private:
    ui::UI_NodeRef content_;
    boost::intrusive_ptr<UI_ScrollBar> bar_;
};

} // namespace fluxui::controls
