#include "NumberOption.h"

#include <limits>
#include <string>

namespace igd {

CLI::Validator WholeNumberIn(std::uint64_t low, std::uint64_t high) {
    const std::string range = std::to_string(low) + " to " + std::to_string(high);
    return CLI::Validator(
        [low, high, range](std::string& text) -> std::string {
            const std::string refused = "\"" + text + "\" is not a whole number from " + range;
            if (text.empty() || text.find_first_not_of("0123456789") != std::string::npos)
                return refused;
            std::uint64_t value = 0;
            for (const char digit : text) {
                const auto next = static_cast<std::uint64_t>(digit - '0');
                if (value > (std::numeric_limits<std::uint64_t>::max() - next) / 10)
                    return refused;
                value = value * 10 + next;
            }
            return value < low || value > high ? refused : std::string();
        },
        "INT " + range);
}

} // namespace igd
