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

Fnd::WString MarksText(fluxmediatypes::Time in, fluxmediatypes::Time out, fluxmediatypes::FrameRate frameTicks,
                       double rate) {
    const auto mark = [&](fluxmediatypes::Time time) {
        return time == fluxmediatypes::kTime_Invalid || frameTicks <= 0 ? Fnd::FromASCII("--")
                                                                         : FrameTimecode(time / frameTicks, rate);
    };
    return fluxcore::Localize("$$$/IGD/Player/Marks=In @0  Out @1", {mark(in), mark(out)});
}

} // namespace Mid
