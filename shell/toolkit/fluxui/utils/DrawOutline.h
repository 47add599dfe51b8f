#pragma once
#include "fluxui/sketcher/Sketcher.h"

namespace fluxui::utils {

// An outline of the given thickness drawn inside rect; a thickness of one is a plain outline.
inline void DrawOutline(sketcher::Sketcher& sketcher, const fluxcore::geom::RectF& rect,
                        const sketcher::ColorRGBA& color, float thickness = 1.0f) {
    for (float inset = 0.0f; inset < thickness && inset * 2 < rect.width && inset * 2 < rect.height;
         inset += 1.0f)
        sketcher.DrawOutline(
            {rect.left + inset, rect.top + inset, rect.width - 2 * inset, rect.height - 2 * inset}, color);
}

} // namespace fluxui::utils
