#include "Assignment.h"

namespace igd {

std::optional<std::pair<std::string, std::string>> SplitAssignment(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        return std::nullopt;
    return std::make_pair(text.substr(0, equals), text.substr(equals + 1));
}

} // namespace igd
