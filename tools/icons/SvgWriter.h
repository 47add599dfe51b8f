#pragma once
#include <string>

#include "Shape.h"

namespace icons {

// The SVG text of a glyph: a viewBox of the base size, drawn at twice that size.
std::string WriteSvg(const Glyph& glyph, int baseWidth, int baseHeight, double strokeWidth,
                     const std::string& colour);

} // namespace icons
