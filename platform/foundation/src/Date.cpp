#include "Fnd/Date.h"

#include <chrono>

namespace Fnd {

Date Date::Now() {
    // The system clock counts from the Unix epoch (guaranteed since C++20).
    const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
    return Date::FromSeconds(std::chrono::duration_cast<std::chrono::seconds>(sinceEpoch).count());
}

} // namespace Fnd
