#include "fluxui/controls/UI_SectionView.h"

namespace fluxui::controls {

using fluxcore::geom::RectF;

namespace {

const sketcher::ColorRGBA kHeaderColor{0.22f, 0.22f, 0.22f, 1.0f};
const sketcher::ColorRGBA kBorderColor{0.12f, 0.12f, 0.12f, 1.0f};

} // namespace

UI_SectionView::UI_SectionView(Fnd::WString title, bool opened)
    : title_(std::move(title)), opened_(opened), content_(new ui::UI_SubView),
      customLabel_(new ui::UI_SubView) {
    UI_SetLayoutsChildren(false);
    ChildPushBack(customLabel_);
    ChildPushBack(content_);
    customLabel_->UI_Show(false);
    content_->UI_Show(opened_);
}

void UI_SectionView::SetTitle(const Fnd::WString& title) {
    if (title == title_)
        return;
    title_ = title;
    NotifyObserver(ui::NodeChange::Value);
}

void UI_SectionView::SetHeaderHeight(float height) {
    headerHeight_ = height < 0.0f ? 0.0f : height;
    PlaceParts();
}

void UI_SectionView::SetDrawPolicy(SectionDrawPolicy policy) {
    drawPolicy_ = policy;
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_SectionView::SetOpened(bool opened) {
    if (opened == opened_)
        return;
    opened_ = opened;
    content_->UI_Show(opened_);
    NotifyObserver(ui::NodeChange::Appearance);
    // Copied: a callback may add another.
    const auto callbacks = callbacks_;
    for (const OpenedStateChangedFunctionPtr& callback : callbacks)
        if (callback && *callback)
            (*callback)(opened_);
}

void UI_SectionView::ToggleByUser() {
    if (userOpenable_ && UI_IsEnabled())
        SetOpened(!opened_);
}

void UI_SectionView::SetShowBorder(bool show) {
    showBorder_ = show;
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_SectionView::AddOpenedStateChangedCallback(OpenedStateChangedFunctionPtr function) {
    callbacks_.push_back(std::move(function));
}

void UI_SectionView::UpdateSize(const RectF& rect) {
    RectF sized = rect;
    sized.height = headerHeight_ + (opened_ ? content_->UI_GetLocalRectF().height : 0.0f);
    UI_SetLocalRectF(sized);
    PlaceParts();
}

void UI_SectionView::UI_Draw(sketcher::Sketcher& sketcher) {
    const RectF global = UI_GetLocalRectF().Offset(UI_LocalToGlobal({}));
    if (drawPolicy_ != SectionDrawPolicy::Nothing)
        sketcher.FillRect({global.left, global.top, global.width, headerHeight_}, kHeaderColor);
    if (drawPolicy_ == SectionDrawPolicy::HeaderAndBorder && showBorder_)
        sketcher.DrawOutline(global, kBorderColor);
    UI_SubView::UI_Draw(sketcher);
}

void UI_SectionView::UI_SizeChanged(const RectF& localRect) {
    UI_SubView::UI_SizeChanged(localRect);
    PlaceParts();
}

void UI_SectionView::PlaceParts() {
    const float width = UI_GetLocalRectF().width;
    // The label view takes the right half of the header, beside the title.
    customLabel_->UI_SetLocalRectF({width / 2, 0.0f, width / 2, headerHeight_});
    RectF content = content_->UI_GetLocalRectF(true);
    content_->UI_SetLocalRectF({0.0f, headerHeight_, width, content.height});
}

} // namespace fluxui::controls
