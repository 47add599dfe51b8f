#include "SecondsText.h"

#include <cstdio>

namespace Av {

std::string SecondsText(double seconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f s", seconds);
    return text;
}

} // namespace Av
