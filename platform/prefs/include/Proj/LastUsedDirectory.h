#pragma once
#include <string_view>

namespace Proj {

// The folder the person last took a file from, shared by every open dialog of the application.
inline constexpr std::string_view kLastUsedDirectoryKey = "Proj.LastUsedDirectory";

} // namespace Proj
