#include "OutputFormat.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace igd {

std::string HumanBytes(std::uint64_t bytes) {
    static const char* const kUnits[] = {"B", "KiB", "MiB", "GiB", "TiB", "PiB"};
    double value = static_cast<double>(bytes);
    std::size_t unit = 0;
    while (value >= 1024 && unit + 1 < std::size(kUnits)) {
        value /= 1024;
        ++unit;
    }
    char text[32];
    if (unit == 0)
        std::snprintf(text, sizeof text, "%llu B", static_cast<unsigned long long>(bytes));
    else
        std::snprintf(text, sizeof text,
                      value < 10    ? "%.2f %s"
                      : value < 100 ? "%.1f %s"
                                    : "%.0f %s",
                      value, kUnits[unit]);
    return text;
}

std::string HumanDuration(double seconds) {
    const auto total = static_cast<long long>(std::llround(std::max(0.0, seconds)));
    char text[32];
    if (total >= 3600)
        std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", total / 3600, total / 60 % 60, total % 60);
    else
        std::snprintf(text, sizeof text, "%lld:%02lld", total / 60, total % 60);
    return text;
}

std::string JsonString(std::string_view utf8) {
    std::string json = "\"";
    for (const char c : utf8) {
        switch (c) {
        case '"':
            json += "\\\"";
            break;
        case '\\':
            json += "\\\\";
            break;
        case '\n':
            json += "\\n";
            break;
        case '\r':
            json += "\\r";
            break;
        case '\t':
            json += "\\t";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                char escape[8];
                std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
                json += escape;
            } else {
                json += c;
            }
        }
    }
    return json + "\"";
}

} // namespace igd
