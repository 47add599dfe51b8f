#include "Fnd/DiskUtils.h"

#include <array>
#include <charconv>
#include <string>

namespace Fnd::DiskUtils {

WString MakeDiskSpaceString(std::uint64_t bytes) {
    if (bytes < 1024)
        return FromUTF8(std::to_string(bytes) + (bytes == 1 ? " byte" : " bytes"));
    static constexpr std::array<const char*, 6> kUnits{"KB", "MB", "GB", "TB", "PB", "EB"};
    double amount = static_cast<double>(bytes) / 1024.0;
    std::size_t unit = 0;
    // 1023.96 KB would print as "1024.0 KB": step up before rounding reaches the next unit.
    while (amount >= 1023.95 && unit + 1 < kUnits.size()) {
        amount /= 1024.0;
        ++unit;
    }
    // to_chars, unlike printf, writes a point whatever the process's numeric locale.
    std::array<char, 32> number{};
    const auto end =
        std::to_chars(number.data(), number.data() + number.size(), amount, std::chars_format::fixed, 1).ptr;
    return FromUTF8(std::string(number.data(), end) + " " + kUnits[unit]);
}

} // namespace Fnd::DiskUtils
