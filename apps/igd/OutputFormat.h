#pragma once
// Text for people and for machines: sizes, rates, durations, and JSON string literals.
#include <cstdint>
#include <string>
#include <string_view>

namespace igd {

// "0 B", "512 KiB", "1.5 GiB": powers of 1024, three significant figures.
std::string HumanBytes(std::uint64_t bytes);
// "0:07", "12:30", "1:02:03".
std::string HumanDuration(double seconds);
// A UTF-8 text as a JSON string literal, quotes included.
std::string JsonString(std::string_view utf8);

} // namespace igd
