#include "shell/settingspane/IngestSettingView.h"

#include "AppFrame/ColorManager.h"
#include "Fnd/StationRegistry.h"
#include "host/HostKind.h"

namespace IGD {

using fluxcore::geom::RectF;

namespace {

// The strip under the splitter's divider, painted so that no seam shows between the panes.
constexpr float kDividerOverlap = 6.0f;
constexpr float kTopMargin = 6.0f;
constexpr float kBarReserve = 60.0f;
constexpr float kBarHeight = 40.0f;

} // namespace

IngestSettingView::IngestSettingView(fluxui::sketcher::SupplierInterface* supplier, fluxui::ui::UI_Dialog* dialog)
    : supplier_(supplier), dialog_(dialog), station_(Fnd::StationRegistry::RegisterUniqueStation("IngestSettingView")) {}

void IngestSettingView::Build(bool withBar) {
    containerView_ = new IngestSettingsContainerView(supplier_);
    containerView_->Build();
    containerView_->UI_Show(true);
    ChildPushBack(containerView_);
    if (!withBar)
        return;
    controlView_ = new IngestControlView(supplier_, dialog_, station_);
    controlView_->InitUI();
    controlView_->UI_Show(true);
    ChildPushBack(controlView_);
}

void IngestSettingView::SetIngestEnabled(bool enabled) {
    if (controlView_)
        controlView_->SetIngestEnabled(enabled);
}

void IngestSettingView::UI_Draw(fluxui::sketcher::Sketcher& sketcher) {
    RectF area = UI_GetLocalRectF().Offset(UI_LocalToGlobal({}));
    area.left -= kDividerOverlap;
    area.width += kDividerOverlap;
    sketcher.FillRect(area, fluxui::ui::GetColor(AppFrame::kColor_SettingsPaneBackground));
    fluxui::ui::UI_SubView::UI_Draw(sketcher);
}

void IngestSettingView::UI_SizeChanged(const RectF& localRect) {
    fluxui::ui::UI_SubView::UI_SizeChanged(localRect);
    // A hosted application puts its own buttons under the pane, so no room is kept for the bar.
    const float reserve = IsKilnHosted() ? 0.0f : kBarReserve;
    const float width = localRect.width;
    const float height = localRect.height;
    if (containerView_)
        containerView_->UI_SetLocalRectF({0.0f, kTopMargin, width - kDividerOverlap, height - kTopMargin - reserve});
    // The bar is 40 high in a reserve of 60: the rest is the margin under the buttons.
    if (controlView_)
        controlView_->UI_SetLocalRectF({0.0f, localRect.top + height - reserve, width, kBarHeight});
}

} // namespace IGD
