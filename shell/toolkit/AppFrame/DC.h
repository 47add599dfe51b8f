#pragma once
#include "fluxui/sketcher/Sketcher.h"

namespace AppFrame {

// A line drawing context placed at a view's global origin: it takes points in the view's own
// space. The sketcher works in logical units; the scale is kept for presenters that draw
// hairlines at device resolution.
class DC {
public:
    DC(fluxui::sketcher::Sketcher& sketcher, float scale, fluxcore::geom::PointF origin)
        : sketcher_(sketcher), scale_(scale), origin_(origin) {}

    // alpha multiplies the colour's own alpha.
    void DrawLine(fluxcore::geom::PointF from, fluxcore::geom::PointF to, fluxui::sketcher::ColorRGBA color,
                  float width, float alpha) {
        color.alpha *= alpha;
        sketcher_.DrawLine(from + origin_, to + origin_, color, width);
    }
    float GetScale() const { return scale_; }

private:
    fluxui::sketcher::Sketcher& sketcher_;
    float scale_;
    fluxcore::geom::PointF origin_;
};

} // namespace AppFrame
