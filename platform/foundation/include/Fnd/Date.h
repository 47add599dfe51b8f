#pragma once
#include <compare>
#include <cstdint>

namespace Fnd {

// A moment in seconds since 1970-01-01 UTC.
struct Date {
    std::int64_t seconds = 0;

    static Date Now();
    static Date FromSeconds(std::int64_t s) { return Date{s}; }

    friend bool operator==(const Date&, const Date&) = default;
    friend auto operator<=>(const Date&, const Date&) = default;
};

} // namespace Fnd
