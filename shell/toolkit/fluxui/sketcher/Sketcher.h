#pragma once
// The toolkit draws nothing itself: a node describes its look to a sketcher, which a front end
// turns into pixels and a test records.
#include "fluxcore/geom/Geometry.h"

namespace fluxui::sketcher {

struct ColorRGBA {
    float red = 0.0f;
    float green = 0.0f;
    float blue = 0.0f;
    float alpha = 1.0f;
    friend bool operator==(const ColorRGBA&, const ColorRGBA&) = default;
};

// Source of drawing resources, handed down from a window and passed on without being read.
class SupplierInterface {
public:
    virtual ~SupplierInterface() = default;
};

// Coordinates are global (the top-level window's client space).
class Sketcher {
public:
    virtual ~Sketcher() = default;
    virtual void FillRect(const fluxcore::geom::RectF& rect, const ColorRGBA& color) = 0;
    virtual void DrawLine(fluxcore::geom::PointF from, fluxcore::geom::PointF to, const ColorRGBA& color,
                          float width) = 0;
    virtual void DrawOutline(const fluxcore::geom::RectF& rect, const ColorRGBA& color) = 0;
};

} // namespace fluxui::sketcher
