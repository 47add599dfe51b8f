#include "PlayerTimecode.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "fluxcore/ZString.h"

namespace Mid {

Fnd::WString FrameTimecode(std::int64_t index, double rate) {
    const std::int64_t perSecond = std::max<std::int64_t>(1, std::llround(rate));
    const std::int64_t seconds = std::max<std::int64_t>(0, index) / perSecond;
    char text[96];
    std::snprintf(text, sizeof text, "%02lld:%02lld:%02lld:%02lld", static_cast<long long>(seconds / 3600),
                  static_cast<long long>(seconds / 60 % 60), static_cast<long long>(seconds % 60),
                  static_cast<long long>(std::max<std::int64_t>(0, index) % perSecond));
    return Fnd::FromASCII(text);
}

std::int64_t TimecodeFrames(std::string_view timecode, double rate) {
    std::int64_t fields[4] = {};
    std::size_t field = 0;
    std::size_t digits = 0;
    for (const char c : timecode) {
        if (c >= '0' && c <= '9' && digits < 2) {
            fields[field] = fields[field] * 10 + (c - '0');
            ++digits;
        } else if ((c == ':' || c == ';' || c == '.') && digits == 2 && field < 3) {
            ++field;
            digits = 0;
        } else {
            return 0;
        }
    }
    if (field != 3 || digits != 2)
        return 0;
    const std::int64_t perSecond = std::max<std::int64_t>(1, std::llround(rate));
    return ((fields[0] * 60 + fields[1]) * 60 + fields[2]) * perSecond + fields[3];
}

Fnd::WString MarksText(fluxmediatypes::Time in, fluxmediatypes::Time out, fluxmediatypes::FrameRate frameTicks,
                       double rate, std::int64_t startFrame) {
    const auto mark = [&](fluxmediatypes::Time time) {
        return time == fluxmediatypes::kTime_Invalid || frameTicks <= 0
                   ? Fnd::FromASCII("--")
                   : FrameTimecode(startFrame + time / frameTicks, rate);
    };
    return fluxcore::Localize("$$$/IGD/Player/Marks=In @0  Out @1", {mark(in), mark(out)});
}

} // namespace Mid
