#pragma once
#include "fluxui/controls/UI_SplitterView.h"

namespace IGD {

// The splitter between the media pane and the settings pane; it draws the divider line the two
// panes do not.
class IngestSplitter : public fluxui::controls::UI_SplitterView {
public:
    using UI_SplitterView::UI_SplitterView;
    const char* UI_GetClassName() const override { return "IngestSplitter"; }
    void UI_Draw(fluxui::sketcher::Sketcher& sketcher) override;

private:
    // The application has one skin.
    static constexpr int kCurrentSkin = 0;
};

} // namespace IGD
