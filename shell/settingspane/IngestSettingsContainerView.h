#pragma once
// The scroll view around the stack of sections; a section that opens, closes or grows refits the
// scroll range.
#include "fluxui/controls/UI_ScrollView.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/ui/UI_SubView.h"
#include "shell/settingspane/IngestSettingsSectionContainer.h"

namespace IGD {

class IngestSettingsContainerView : public fluxui::ui::UI_SubView {
public:
    explicit IngestSettingsContainerView(fluxui::sketcher::SupplierInterface* supplier);
    const char* UI_GetClassName() const override { return "IngestSettingsContainerView"; }

    // Builds the section tree over the settings, applies them, and wraps it in the scroll view.
    void Build();

    fluxui::controls::UI_ScrollView* GetScrollView() const { return scrollView_.get(); }
    IngestSettingsSectionContainer* GetSectionContainer() const { return sectionContainer_.get(); }

    void UI_Draw(fluxui::sketcher::Sketcher& sketcher) override;
    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;
    fluxui::sketcher::SupplierInterface* UI_GetDrawSupplier() const override { return supplier_; }

private:
    boost::intrusive_ptr<fluxui::controls::UI_ScrollView> scrollView_;
    boost::intrusive_ptr<IngestSettingsSectionContainer> sectionContainer_;
    fluxui::sketcher::SupplierInterface* supplier_;
};

} // namespace IGD
