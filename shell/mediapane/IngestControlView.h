#pragma once
// The bar at the foot of the settings pane with Cancel and Ingest. A click on Ingest only tells
// the dialog; the dialog checks and runs the ingest.
#include "Fnd/Listener.h"
#include "fluxcore/geom/Geometry.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/sketcher/Sketcher.h"
#include "fluxui/ui/UI_Dialog.h"
#include "fluxui/ui/UI_SubView.h"

namespace IGD {

// Where the two buttons go in a bar of the given width, in the bar's space.
struct ControlButtonRects {
    fluxcore::geom::RectF cancel;
    fluxcore::geom::RectF ingest;
};
ControlButtonRects LayOutControlButtons(float width);

class IngestControlView : public fluxui::ui::UI_SubView {
public:
    static constexpr const char* kIngestButtonID = "IngestButton";
    static constexpr const char* kCancelButtonID = "CancelButton";

    // station: where ImportMedia is broadcast (the settings view's own station).
    IngestControlView(fluxui::sketcher::SupplierInterface* supplier, fluxui::ui::UI_Dialog* dialog,
                      Fnd::StationID station);
    const char* UI_GetClassName() const override { return "IngestControlView"; }

    // Makes the buttons. Throws when there is no dialog to give the Cancel button to.
    void InitUI();
    void SetIngestEnabled(bool enabled);

    fluxui::controls::UI_TextButton* GetIngestButton() const { return ingestButton_.get(); }
    fluxui::controls::UI_TextButton* GetCancelButton() const { return cancelButton_.get(); }

    void UI_SizeChanged(const fluxcore::geom::RectF& localRect) override;
    void UI_Draw(fluxui::sketcher::Sketcher& sketcher) override;
    fluxui::sketcher::SupplierInterface* UI_GetDrawSupplier() const override { return supplier_; }

private:
    void LayOutButtons();

    fluxui::ui::UI_Dialog* dialog_;
    Fnd::StationID station_;
    fluxui::sketcher::SupplierInterface* supplier_;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> ingestButton_;
    boost::intrusive_ptr<fluxui::controls::UI_TextButton> cancelButton_;
};

} // namespace IGD
