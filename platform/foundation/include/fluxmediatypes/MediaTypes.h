#pragma once
#include <cstdint>
#include <limits>

namespace fluxmediatypes {

// Media time in ticks; the invalid value marks an unset point.
using Time = std::int64_t;
// Ticks of one second: divisible by every common frame and sample rate.
inline constexpr Time kTicksPerSecond = 254016000000LL;
inline constexpr Time kTime_Invalid = std::numeric_limits<std::int64_t>::min();

// Frame rate as the duration of one frame in ticks; zero means unset.
using FrameRate = std::int64_t;
inline constexpr FrameRate kFrameRate_Zero = 0;

} // namespace fluxmediatypes
