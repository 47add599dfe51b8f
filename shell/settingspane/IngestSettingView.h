#pragma once
// The right side of the Ingest dialog, and the whole of the view a host embeds: the scrolling
// stack of option sections over the bar with Cancel and Ingest (the dialog's form only).
#include "Fnd/Listener.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/ui/UI_Dialog.h"
#include "fluxui/ui/UI_SubView.h"
#include "shell/mediapane/IngestControlView.h"
#include "shell/settingspane/IngestSettingsContainerView.h"

namespace IGD {

class IngestSettingView : public fluxui::ui::UI_SubView {
public:
    // dialog: the main dialog, or null for the embedded form. A station of its own is registered.
    IngestSettingView(fluxui::sketcher::SupplierInterface* supplier, fluxui::ui::UI_Dialog* dialog);
    const char* UI_GetClassName() const override { return "IngestSettingView"; }

    // Builds the stack, and with withBar the Cancel and Ingest bar under it.
    void Build(bool withBar);
    // Where ImportMedia is broadcast.
    Fnd::StationID GetStation() const { return station_; }
    void SetIngestEnabled(bool enabled);

    IngestSettingsContainerView* GetContainerView() const { return containerView_.get(); }
    // Null in the embedded form.
    IngestControlView* GetControlView() const { return controlView_.get(); }

    void UI_Draw(fluxui::sketcher::Sketcher& sketcher) override;
    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;
    fluxui::sketcher::SupplierInterface* UI_GetDrawSupplier() const override { return supplier_; }

private:
    fluxui::sketcher::SupplierInterface* supplier_;
    fluxui::ui::UI_Dialog* dialog_;
    Fnd::StationID station_;
    boost::intrusive_ptr<IngestSettingsContainerView> containerView_;
    boost::intrusive_ptr<IngestControlView> controlView_;
};

} // namespace IGD
