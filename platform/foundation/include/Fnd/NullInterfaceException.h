#pragma once
#include <stdexcept>
#include <string>

namespace Fnd {

// A programming fault: an interface that must be there was null.
class NullInterfaceException : public std::logic_error {
public:
    NullInterfaceException() : std::logic_error("null interface") {}
    explicit NullInterfaceException(const std::string& what) : std::logic_error(what) {}
};

} // namespace Fnd
