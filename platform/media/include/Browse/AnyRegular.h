#pragma once
// The value of one field of a provider's content: nothing, a string, or an array of values.
#include <variant>
#include <vector>

#include "Fnd/WString.h"

namespace Browse {

class any_regular_t {
public:
    any_regular_t() = default;
    any_regular_t(Fnd::WString text) : value_(std::move(text)) {}
    any_regular_t(std::vector<any_regular_t> array) : value_(std::move(array)) {}

    bool IsEmpty() const { return std::holds_alternative<std::monostate>(value_); }
    // Null when the value is of another kind.
    const Fnd::WString* AsString() const { return std::get_if<Fnd::WString>(&value_); }
    const std::vector<any_regular_t>* AsArray() const {
        return std::get_if<std::vector<any_regular_t>>(&value_);
    }

private:
    std::variant<std::monostate, Fnd::WString, std::vector<any_regular_t>> value_;
};

} // namespace Browse
