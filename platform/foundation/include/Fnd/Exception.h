#pragma once
#include <stdexcept>

namespace Fnd {

// Base of the platform's own programming faults that carry nothing beyond their type.
class Exception : public std::runtime_error {
public:
    Exception() : std::runtime_error("Fnd::Exception") {}
    using std::runtime_error::runtime_error;
};

} // namespace Fnd
