#pragma once
#include <string>

namespace Av {

// Seconds of media as messages print them: "12.00 s".
std::string SecondsText(double seconds);

} // namespace Av
