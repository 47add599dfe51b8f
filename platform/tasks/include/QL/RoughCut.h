#pragma once
#include "Fnd/WString.h"

namespace QL {

// Extension of the old rough-cut format, which the dialog offers to convert.
inline constexpr Fnd::WStringView kFcpFormatRoughCutExtension = u".rcut";
// Extension of the current rough-cut format.
inline constexpr Fnd::WStringView kRoughCutExtension = u".roughcut";

// The file is a rough cut of either version (extension compared without regard to A-Z case).
bool IsRoughCutFileExtension(const Fnd::WString& path);

} // namespace QL
