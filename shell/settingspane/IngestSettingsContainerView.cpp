#include "shell/settingspane/IngestSettingsContainerView.h"

#include <algorithm>

#include "shell/resources/IngestResources.h"
#include "transfer/SectionTree.h"

namespace IGD {

using fluxcore::geom::RectF;

IngestSettingsContainerView::IngestSettingsContainerView(fluxui::sketcher::SupplierInterface* supplier)
    : supplier_(supplier) {}

void IngestSettingsContainerView::Build() {
    sectionContainer_ = new IngestSettingsSectionContainer;
    wrangler::ui::BuildSectionTree(*sectionContainer_, *IngestResources::GetResourceManager(), supplier_);
    wrangler::ui::ApplySettingsToTree(*sectionContainer_);

    scrollView_ = new fluxui::controls::UI_ScrollView(0, sectionContainer_);
    scrollView_->UI_Show(false);
    ChildPushBack(scrollView_);
    const RectF built = sectionContainer_->UI_GetLocalRectF();
    scrollView_->SetContentRectF({0.0f, 0.0f, built.width, built.height});
    // A section that opens, closes or grows resizes the container; the scroll range follows. Raw:
    // the function lives in the container, which this view owns.
    sectionContainer_->UI_InstallSizeChangedNotifyFunction(
        [this](const RectF&) { UI_SizeChanged(UI_GetLocalRectF()); });
    scrollView_->UI_Show(true);
}

void IngestSettingsContainerView::UI_SizeChanged(const RectF& localRect) {
    fluxui::ui::UI_SubView::UI_SizeChanged(localRect);
    if (!scrollView_)
        return;
    RectF content = scrollView_->GetContentRectF();
    // A host may build the view before it gives it a size.
    content.width = std::max(0.0f, localRect.width - scrollView_->GetScrollBarSize());
    // One unit more than measured, so that the outline of the last section stays in sight.
    content.height = sectionContainer_->GetSectionSize().y + 1.0f;
    scrollView_->SetContentRectF(content);
    scrollView_->UI_SetLocalRectF({0.0f, 0.0f, localRect.width, localRect.height});
    scrollView_->Update();
}

void IngestSettingsContainerView::UI_Draw(fluxui::sketcher::Sketcher& sketcher) {
    if (sectionContainer_) {
        const bool barShown = scrollView_->GetScrollBarY().UI_IsShown();
        for (const wrangler::ui::SectionViewExRef& section : sectionContainer_->GetChildSections())
            section->SetScrollBarShown(barShown);
    }
    fluxui::ui::UI_SubView::UI_Draw(sketcher);
}

} // namespace IGD
