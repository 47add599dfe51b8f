#pragma once
#include <optional>
#include <string>

#include "Mid/FrameService.h"

namespace Av {

// Facts as the frame cache keeps them: one "name=value" line each.
std::string ClipFactsText(const Mid::ClipFacts& facts);
// Nothing when a line is missing or malformed.
std::optional<Mid::ClipFacts> ClipFactsFromText(const std::string& text);

} // namespace Av
