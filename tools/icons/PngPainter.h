#pragma once
#include <QImage>
#include <string>

#include "Shape.h"

namespace icons {

// The glyph drawn antialiased on a transparent image of pixelWidth x pixelHeight. The base grid
// is scaled by `scale` and centred, so a size rounded up to whole pixels stays balanced.
QImage PaintPng(const Glyph& glyph, int baseWidth, int baseHeight, double scale, int pixelWidth,
                int pixelHeight, double strokeWidth, const std::string& colour);

} // namespace icons
