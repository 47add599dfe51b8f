#pragma once
// Value types of the toolkit's geometry: rectangles are left, top, width, height.
#include <algorithm>

namespace fluxcore::geom {

template <typename T> struct PointT {
    T x{};
    T y{};
    friend bool operator==(const PointT&, const PointT&) = default;
    PointT operator+(const PointT& o) const { return {x + o.x, y + o.y}; }
    PointT operator-(const PointT& o) const { return {x - o.x, y - o.y}; }
};

template <typename T> struct RectT {
    T left{};
    T top{};
    T width{};
    T height{};
    friend bool operator==(const RectT&, const RectT&) = default;

    T Right() const { return left + width; }
    T Bottom() const { return top + height; }
    bool IsEmpty() const { return width <= T{} || height <= T{}; }
    bool Contains(PointT<T> p) const { return p.x >= left && p.y >= top && p.x < Right() && p.y < Bottom(); }
    RectT Offset(PointT<T> by) const { return {left + by.x, top + by.y, width, height}; }
    PointT<T> Origin() const { return {left, top}; }
    PointT<T> Size() const { return {width, height}; }
};

using PointF = PointT<float>;
using PointI = PointT<int>;
using RectF = RectT<float>;
using RectI = RectT<int>;

} // namespace fluxcore::geom
