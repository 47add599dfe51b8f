#include "Fnd/StationRegistry.h"

#include <atomic>
#include <string>

namespace Fnd::StationRegistry {

StationID RegisterUniqueStation(std::string_view prefix) {
    static std::atomic<unsigned long long> next{0};
    return StationID(std::string(prefix) + "-" + std::to_string(++next));
}

} // namespace Fnd::StationRegistry
