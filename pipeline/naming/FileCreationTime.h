#pragma once
#include <optional>

#include "Fnd/Date.h"
#include "Fnd/WString.h"

namespace IGD {

// When the file was made: its birth time where the filesystem keeps one, else its last
// modification, which is what a camera card's FAT or exFAT gives back through most drivers.
// Nothing when the path cannot be read.
std::optional<Fnd::Date> ReadFileCreationTime(Fnd::WStringView path);

} // namespace IGD
