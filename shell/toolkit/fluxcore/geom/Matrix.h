#pragma once
// The scale-and-offset matrix that places a view's content in the view: a point p maps to
// p * scale + offset, axis by axis.
#include "fluxcore/geom/Geometry.h"

namespace fluxcore::geom {

struct MatrixF {
    PointF scale{1.0f, 1.0f};
    PointF offset{0.0f, 0.0f};

    PointF Map(PointF point) const;
    // A negative scale turns the rectangle over; the result is its normal form again.
    RectF Map(const RectF& rect) const;
    // Throws fluxcore::config::Error ("Matrix cannot be inverted.") when a scale is zero.
    MatrixF Inverted() const;
    friend bool operator==(const MatrixF&, const MatrixF&) = default;
};

} // namespace fluxcore::geom
