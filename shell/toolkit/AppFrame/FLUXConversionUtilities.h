#pragma once
// Conversions between the frame's value types and the toolkit's. Float coordinates round to the
// nearest integer, so a rect converted there and back keeps its place.
#include <cmath>

#include "Fnd/ParamTypes.h"
#include "fluxcore/geom/Geometry.h"

namespace AppFrame::FLUXConversionUtilities {

inline fluxcore::geom::PointF PointToFLUXPoint32(const Fnd::ParamPoint<int>& point) {
    return {static_cast<float>(point.x), static_cast<float>(point.y)};
}

inline Fnd::ParamPoint<int> FLUXPoint32ToPoint(const fluxcore::geom::PointF& point) {
    return {static_cast<int>(std::lround(point.x)), static_cast<int>(std::lround(point.y))};
}

inline Fnd::ParamRect<int> FLUXRectF32ToRect(const fluxcore::geom::RectF& rect) {
    const int left = static_cast<int>(std::lround(rect.left));
    const int top = static_cast<int>(std::lround(rect.top));
    // The far sides are rounded themselves, not left plus a rounded width, so adjacent rects
    // stay adjacent.
    return {left, top, static_cast<int>(std::lround(rect.left + rect.width)),
            static_cast<int>(std::lround(rect.top + rect.height))};
}

inline fluxcore::geom::RectF RectToFLUXRectF32(const Fnd::ParamRect<int>& rect) {
    return {static_cast<float>(rect.left), static_cast<float>(rect.top), static_cast<float>(rect.Width()),
            static_cast<float>(rect.Height())};
}

} // namespace AppFrame::FLUXConversionUtilities
