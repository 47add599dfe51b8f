#pragma once
#include <cstdint>

#include "Fnd/WString.h"

namespace Fnd::DiskUtils {

// An amount of disk space as a person reads it: "512 bytes", "1.5 KB", "2.0 GB". Units step by
// 1024, as file managers count free space, with one decimal above bytes.
WString MakeDiskSpaceString(std::uint64_t bytes);

} // namespace Fnd::DiskUtils
