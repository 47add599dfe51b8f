#pragma once
// The checks of the destination folders before anything is transferred. Each shows one error box
// about the first failing path and answers false.
#include <vector>

#include "Fnd/WString.h"

namespace IGD {

// The base folders exist.
bool CheckDestinationsExist(const std::vector<Fnd::WString>& basePaths);

// The base folders can be written to.
bool CheckDestinationsWritable(const std::vector<Fnd::WString>& basePaths);

// No two copy targets are the same folder.
bool CheckNoDuplicateTargets(const std::vector<Fnd::WString>& copyTargets);

} // namespace IGD
