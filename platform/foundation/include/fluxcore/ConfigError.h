#pragma once
#include <stdexcept>
#include <string>
#include <string_view>

#include "Fnd/WString.h"

namespace fluxcore::config {

// A programming fault reported with a localised text; it passes through to the host.
class Error : public std::runtime_error {
public:
    Error(std::string key, Fnd::WString text);
    const std::string& Key() const { return key_; }
    const Fnd::WString& Text() const { return text_; }

private:
    std::string key_;
    Fnd::WString text_;
};

// Throws Error with the localised form of keyAndDefault.
[[noreturn]] void ThrowError(std::string_view keyAndDefault);

} // namespace fluxcore::config
