#pragma once
#include <string_view>

#include "Fnd/Listener.h"

namespace Fnd::StationRegistry {

// A station no other caller has been given in this process: the prefix, a dash and a number.
// Safe from any thread.
StationID RegisterUniqueStation(std::string_view prefix);

} // namespace Fnd::StationRegistry
