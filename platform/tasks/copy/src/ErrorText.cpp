#include "ErrorText.h"

#include <cstring>

namespace QL::Engine {

std::string ErrorText(int error) {
    char buffer[256];
    // The GNU strerror_r answers a pointer that may or may not be the buffer.
    return ::strerror_r(error, buffer, sizeof buffer);
}

std::string Because(std::string_view what, int error) {
    std::string reason(what);
    reason += ": ";
    reason += ErrorText(error);
    return reason;
}

} // namespace QL::Engine
