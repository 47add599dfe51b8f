#include "Proj/SerializeableValue.h"

#include <charconv>
#include <cmath>
#include <stdexcept>

#include "Fnd/WString.h"

namespace Proj {
namespace {

template <class Number> std::optional<Number> ParseWhole(std::string_view text) {
    Number value{};
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end)
        return std::nullopt;
    return value;
}

std::optional<float> ParseFloat(std::string_view text) {
    float value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    // A preference is something a user reads back; infinities and NaN are never meant.
    if (text.empty() || error != std::errc() || stop != end || !std::isfinite(value))
        return std::nullopt;
    return value;
}

// FromUTF8 replaces what is not UTF-8, so a text that survives the round trip unchanged is
// valid.
bool IsValidUTF8(std::string_view text) {
    return Fnd::ToUTF8(Fnd::FromUTF8(text)) == text;
}

} // namespace

ValueKind KindOf(const PreferenceData& data) {
    static constexpr ValueKind kinds[] = {ValueKind::kBool, ValueKind::kInt32, ValueKind::kUInt32,
                                          ValueKind::kFloat, ValueKind::kString};
    return kinds[data.index()];
}

std::string_view KindName(ValueKind kind) {
    switch (kind) {
    case ValueKind::kBool:
        return "bool";
    case ValueKind::kInt32:
        return "int32";
    case ValueKind::kUInt32:
        return "uint32";
    case ValueKind::kFloat:
        return "float";
    case ValueKind::kString:
        return "string";
    }
    throw std::invalid_argument("unknown preference kind " +
                                std::to_string(static_cast<std::uint32_t>(kind)));
}

std::string FormatPreferenceData(const PreferenceData& data) {
    struct Formatter {
        std::string operator()(bool value) const { return value ? "true" : "false"; }
        std::string operator()(std::int32_t value) const { return std::to_string(value); }
        std::string operator()(std::uint32_t value) const { return std::to_string(value); }
        std::string operator()(float value) const {
            // The shortest text that reads back as the same float.
            char buffer[32];
            const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
            return std::string(buffer, result.ptr);
        }
        std::string operator()(const std::string& value) const { return value; }
    };
    return std::visit(Formatter{}, data);
}

std::optional<PreferenceData> ParsePreferenceData(ValueKind kind, std::string_view text) {
    switch (kind) {
    case ValueKind::kBool:
        if (text == "true")
            return PreferenceData(true);
        if (text == "false")
            return PreferenceData(false);
        return std::nullopt;
    case ValueKind::kInt32:
        if (auto value = ParseWhole<std::int32_t>(text))
            return PreferenceData(*value);
        return std::nullopt;
    case ValueKind::kUInt32:
        if (auto value = ParseWhole<std::uint32_t>(text))
            return PreferenceData(*value);
        return std::nullopt;
    case ValueKind::kFloat:
        if (auto value = ParseFloat(text))
            return PreferenceData(*value);
        return std::nullopt;
    case ValueKind::kString:
        if (!IsValidUTF8(text))
            return std::nullopt;
        return PreferenceData(std::string(text));
    }
    return std::nullopt;
}

} // namespace Proj
