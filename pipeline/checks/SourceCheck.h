#pragma once
#include <vector>

#include "Fnd/WString.h"

namespace IGD {

// True when every source exists; else one error box about the first missing one.
bool CheckSourcesExist(const std::vector<Fnd::WString>& sourcePaths);

} // namespace IGD
