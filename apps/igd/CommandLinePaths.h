#pragma once
#include <string>

#include "Fnd/WString.h"

namespace igd {

// A path the user typed, made absolute against the working folder and normalised.
Fnd::WString AbsolutePath(const std::string& path);

} // namespace igd
