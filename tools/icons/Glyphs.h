#pragma once
#include <string_view>

#include "Shape.h"

namespace icons {

// The drawing of a family, whatever its state or scale. Unknown families are a fault of the
// icon table and throw.
Glyph GlyphForFamily(std::string_view family);

} // namespace icons
