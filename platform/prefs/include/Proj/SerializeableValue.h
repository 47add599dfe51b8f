#pragma once
// A preference value with its kind tag. The kind travels with the value so that a store can keep
// it beside the data and refuse to answer a read of another kind.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace Proj {

// Kind tags. Their numbers are part of what lies in a store, so they never change.
enum class ValueKind : std::uint32_t {
    kInt32 = 5,
    kUInt32 = 6,
    kFloat = 9,
    kString = 11,
    kBool = 12,
};

// The data of any value; strings are UTF-8.
using PreferenceData = std::variant<bool, std::int32_t, std::uint32_t, float, std::string>;

ValueKind KindOf(const PreferenceData& data);

// "bool", "uint32", ... as tools show them.
std::string_view KindName(ValueKind kind);

// Text a user reads and types: true/false, decimal numbers, the string itself.
std::string FormatPreferenceData(const PreferenceData& data);

// The data of that kind written in text, or nothing when the text is not one: numbers must be
// whole, in range and without stray characters; a string must be valid UTF-8.
std::optional<PreferenceData> ParsePreferenceData(ValueKind kind, std::string_view text);

class SerializeableValueBase {
public:
    virtual ~SerializeableValueBase() = default;
    virtual ValueKind GetKind() const = 0;
    virtual PreferenceData GetData() const = 0;
    // False, and the value unchanged, when the data is of another kind.
    virtual bool SetData(const PreferenceData& data) = 0;
};

template <class T> struct ValueKindOf;
template <> struct ValueKindOf<bool> { static constexpr ValueKind value = ValueKind::kBool; };
template <> struct ValueKindOf<std::int32_t> { static constexpr ValueKind value = ValueKind::kInt32; };
template <> struct ValueKindOf<std::uint32_t> { static constexpr ValueKind value = ValueKind::kUInt32; };
template <> struct ValueKindOf<float> { static constexpr ValueKind value = ValueKind::kFloat; };
template <> struct ValueKindOf<std::string> { static constexpr ValueKind value = ValueKind::kString; };

// A value of one kind. Handed to a read holding the default, it keeps the default when the key
// is missing.
template <class T> class SerializeableValue final : public SerializeableValueBase {
public:
    static constexpr ValueKind kKind = ValueKindOf<T>::value;

    SerializeableValue() = default;
    explicit SerializeableValue(T value) : value_(std::move(value)) {}

    const T& Get() const { return value_; }
    void Set(T value) { value_ = std::move(value); }

    ValueKind GetKind() const override { return kKind; }
    PreferenceData GetData() const override { return value_; }
    bool SetData(const PreferenceData& data) override {
        const T* value = std::get_if<T>(&data);
        if (value == nullptr)
            return false;
        value_ = *value;
        return true;
    }

private:
    T value_{};
};

} // namespace Proj
