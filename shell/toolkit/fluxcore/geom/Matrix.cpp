#include "fluxcore/geom/Matrix.h"

#include <cmath>

#include "fluxcore/ConfigError.h"

namespace fluxcore::geom {

PointF MatrixF::Map(PointF point) const {
    return {point.x * scale.x + offset.x, point.y * scale.y + offset.y};
}

RectF MatrixF::Map(const RectF& rect) const {
    const PointF a = Map(rect.Origin());
    const PointF b = Map(PointF{rect.Right(), rect.Bottom()});
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::abs(b.x - a.x), std::abs(b.y - a.y)};
}

MatrixF MatrixF::Inverted() const {
    if (scale.x == 0.0f || scale.y == 0.0f)
        fluxcore::config::ThrowError("$$$/fluxcore/geom/matrix/Error/NonInvertableMatrix=Matrix cannot be inverted.");
    return {{1.0f / scale.x, 1.0f / scale.y}, {-offset.x / scale.x, -offset.y / scale.y}};
}

} // namespace fluxcore::geom
