#include "shell/maindialog/IngestSplitter.h"

#include "AppFrame/ColorManager.h"

namespace IGD {

void IngestSplitter::UI_Draw(fluxui::sketcher::Sketcher& sketcher) {
    UI_SplitterView::UI_Draw(sketcher);
    const fluxui::ui::UI_Node* topLeft = GetTopLeftView();
    if (!topLeft)
        return;
    // Both panes stop short of the divider, so the line between them is drawn here.
    const fluxcore::geom::RectF placed = topLeft->UI_GetLocalRectF(true);
    const fluxcore::geom::PointF origin = UI_LocalToGlobal({});
    const fluxcore::geom::RectF strip{placed.Right() - 1.0f, 0.0f, 1.0f, UI_GetLocalRectF().height};
    sketcher.FillRect(strip.Offset(origin),
                      fluxui::ui::GetColor(fluxui::skins::core::utilities::GetDividerColorID(kCurrentSkin)));
}

} // namespace IGD
