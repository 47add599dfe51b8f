#pragma once
#include <string>
#include <vector>

namespace Mhl {

// Whether a history's ignore patterns leave out a path (relative, '/' between names): a pattern
// starting with '/' is matched against the path from the history's folder on, any other against
// each name along the path, as shell wildcards. The history folder itself is always left out.
bool IsIgnored(const std::string& relativePath, const std::vector<std::string>& patterns);

} // namespace Mhl
