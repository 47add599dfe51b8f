#pragma once
// Whole-number options: a value out of range is refused with the range in words, never wrapped
// or clamped, and never described by the limits of a floating-point type.
#include <cstdint>

#include <CLI/CLI.hpp>

namespace igd {

// Accepts decimal digits only (no sign, no exponent) naming a number from low to high.
CLI::Validator WholeNumberIn(std::uint64_t low, std::uint64_t high);

} // namespace igd
