#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace fluxcore::utility {

// Interned narrow string: equal texts share one address, so comparison is a pointer test.
// Used for preference keys, station ids and command ids. Interned texts live until exit.
class ImmutableString {
public:
    ImmutableString();
    ImmutableString(std::string_view text);
    ImmutableString(const char* text) : ImmutableString(std::string_view(text)) {}

    const std::string& str() const { return *text_; }
    const char* c_str() const { return text_->c_str(); }
    bool empty() const { return text_->empty(); }

    friend bool operator==(const ImmutableString& a, const ImmutableString& b) { return a.text_ == b.text_; }
    // Ordered by text so that ordered containers list in a stable, readable order.
    friend bool operator<(const ImmutableString& a, const ImmutableString& b) { return *a.text_ < *b.text_; }

private:
    const std::string* text_;
};

} // namespace fluxcore::utility

template <> struct std::hash<fluxcore::utility::ImmutableString> {
    std::size_t operator()(const fluxcore::utility::ImmutableString& s) const noexcept {
        return std::hash<const void*>()(s.c_str());
    }
};
