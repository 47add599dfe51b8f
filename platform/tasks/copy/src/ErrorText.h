#pragma once
#include <string>
#include <string_view>

namespace QL::Engine {

// The system's text for an errno value: "No space left on device".
std::string ErrorText(int error);

// A one-line reason for an outcome: "could not write the copy: No space left on device".
std::string Because(std::string_view what, int error);

} // namespace QL::Engine
