#pragma once
#include <optional>
#include <string>
#include <utility>

namespace igd {

// The key and value of a KEY=VALUE text of the command line; nothing when it has no "=" or an
// empty key.
std::optional<std::pair<std::string, std::string>> SplitAssignment(const std::string& text);

} // namespace igd
