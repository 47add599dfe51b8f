#pragma once
#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "Fnd/WString.h"

namespace fluxcore::utility {

// 128-bit identity. All zero means "not assigned".
class Guid {
public:
    Guid() = default;
    explicit Guid(const std::array<std::uint8_t, 16>& bytes) : bytes_(bytes) {}

    // Random (version 4) identity from the system's entropy source.
    static Guid CreateUnique();
    // Accepts "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx", with or without braces, either case.
    static std::optional<Guid> FromString(std::string_view text);

    bool IsZero() const;
    const std::array<std::uint8_t, 16>& Bytes() const { return bytes_; }
    // Upper-case, braced: "{38645337-A23D-4652-9C78-542163697F95}".
    std::string ToString() const;
    Fnd::WString ToWString() const;

    friend bool operator==(const Guid&, const Guid&) = default;
    friend auto operator<=>(const Guid&, const Guid&) = default;

private:
    std::array<std::uint8_t, 16> bytes_{};
};

} // namespace fluxcore::utility
