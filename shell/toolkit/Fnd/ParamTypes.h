#pragma once
// Value types by the application frame's convention: a rect is left, top, right, bottom.

namespace Fnd {

template <typename T> struct ParamPoint {
    T x{};
    T y{};
    friend bool operator==(const ParamPoint&, const ParamPoint&) = default;
};

template <typename T> struct ParamRect {
    T left{};
    T top{};
    T right{};
    T bottom{};
    friend bool operator==(const ParamRect&, const ParamRect&) = default;
    T Width() const { return right - left; }
    T Height() const { return bottom - top; }
};

template <typename T> struct ParamColor {
    T red{};
    T green{};
    T blue{};
    T alpha{};
    friend bool operator==(const ParamColor&, const ParamColor&) = default;
};

} // namespace Fnd
