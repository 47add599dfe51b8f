#include "shell/mediapane/IngestControlView.h"

#include <algorithm>

#include "AppFrame/ColorManager.h"
#include "AppFrame/DC.h"
#include "Fnd/Exception.h"
#include "Fnd/StationUtils.h"
#include "fluxcore/ZString.h"
#include "fluxui/ui/OS_Window.h"
#include "shell/mediapane/ImportMedia.h"

namespace IGD {
namespace {

constexpr float kButtonWidth = 80.0f;
constexpr float kButtonHeight = 20.0f;
constexpr float kButtonTop = 20.0f;
constexpr float kRightMargin = 20.0f;
constexpr float kButtonGap = 10.0f;

boost::intrusive_ptr<fluxui::controls::UI_TextButton> MakeButton(const char* captionString, const char* id) {
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> button(new fluxui::controls::UI_TextButton);
    button->SetText(fluxcore::Localize(captionString));
    button->UI_SetNodeID(id);
    button->UI_Show(true);
    button->SetWantsKeyboardFocus(true);
    return button;
}

float ViewScale(const fluxui::ui::UI_Node& view) {
    const auto* window = dynamic_cast<const fluxui::ui::OS_Window*>(view.UI_GetRootNode());
    return window ? window->GetViewScaleFactor() : 1.0f;
}

} // namespace

ControlButtonRects LayOutControlButtons(float width) {
    const float x = width - kRightMargin - kButtonWidth - kButtonWidth;
    if (x >= 0.0f)
        return {{x, kButtonTop, kButtonWidth, kButtonHeight},
                {x + kButtonWidth + kButtonGap, kButtonTop, kButtonWidth, kButtonHeight}};
    // Too narrow for both at their width: they share it, half each, less the gap.
    const float shared = std::max(0.0f, 0.5f * width - kButtonGap);
    return {{0.0f, kButtonTop, shared, kButtonHeight}, {0.5f * width, kButtonTop, shared, kButtonHeight}};
}

IngestControlView::IngestControlView(fluxui::sketcher::SupplierInterface* supplier, fluxui::ui::UI_Dialog* dialog,
                                     Fnd::StationID station)
    : dialog_(dialog), station_(std::move(station)), supplier_(supplier) {}

void IngestControlView::InitUI() {
    struct DialogNotFound : Fnd::Exception {
        DialogNotFound() : Fnd::Exception("IngestControlView has no dialog for its Cancel button") {}
    };
    cancelButton_ = MakeButton("$$$/Quillon/Library/IngestDialog/CancelButtonCaption=Cancel", kCancelButtonID);
    ChildPushBack(cancelButton_);
    ingestButton_ = MakeButton("$$$/Quillon/Library/IngestDialog/IngestButtonCaption=Ingest", kIngestButtonID);
    ingestButton_->SetDefaultAppearance(true);
    ChildPushBack(ingestButton_);
    ingestButton_->SetDisabled(true);
    if (!dialog_)
        throw DialogNotFound();
    ingestButton_->NotifyWhenChanged([station = station_](const fluxui::controls::UI_ControlMessage&) {
        Fnd::StationUtils::BroadcastMessage(station, ImportMedia());
    });
    dialog_->SetCancelButton(cancelButton_.get());
    LayOutButtons();
}

void IngestControlView::SetIngestEnabled(bool enabled) {
    if (ingestButton_)
        ingestButton_->SetDisabled(!enabled);
}

void IngestControlView::UI_SizeChanged(const fluxcore::geom::RectF& localRect) {
    fluxui::ui::UI_SubView::UI_SizeChanged(localRect);
    LayOutButtons();
}

void IngestControlView::LayOutButtons() {
    if (!ingestButton_ || !cancelButton_)
        return;
    const ControlButtonRects rects = LayOutControlButtons(UI_GetLocalRectF().width);
    cancelButton_->UI_SetLocalRectF(rects.cancel);
    ingestButton_->UI_SetLocalRectF(rects.ingest);
}

void IngestControlView::UI_Draw(fluxui::sketcher::Sketcher& sketcher) {
    const fluxcore::geom::RectF local = UI_GetLocalRectF();
    AppFrame::DC dc(sketcher, ViewScale(*this), UI_LocalToGlobal({}));
    // The line starts under the splitter's divider, so the two meet without a gap.
    dc.DrawLine({local.left - 6.0f, local.top + 1.0f}, {local.Right(), local.top + 1.0f},
                AppFrame::ColorManager::GetColor(AppFrame::kColor_PanelDivider), 1.0f, 1.0f);
    fluxui::ui::UI_SubView::UI_Draw(sketcher);
}

} // namespace IGD
