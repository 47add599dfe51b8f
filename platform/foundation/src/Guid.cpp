#include "fluxcore/Guid.h"

#include <cerrno>
#include <random>
#include <sys/random.h>

namespace fluxcore::utility {

namespace {

// Fills the buffer from the kernel's entropy pool. getrandom keeps no state in the process, so
// threads and forked children can never produce the same sequence.
void FillRandom(std::uint8_t* data, std::size_t size) {
    std::size_t filled = 0;
    while (filled < size) {
        const auto got = ::getrandom(data + filled, size - filled, 0);
        if (got > 0) {
            filled += static_cast<std::size_t>(got);
        } else if (got < 0 && errno != EINTR) {
            break;
        }
    }
    if (filled == size)
        return;
    // Only a kernel without getrandom gets here; random_device reads /dev/urandom then.
    std::random_device device;
    for (; filled < size; ++filled)
        data[filled] = static_cast<std::uint8_t>(device());
}

int HexValue(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool IsHyphenPosition(std::size_t i) {
    return i == 8 || i == 13 || i == 18 || i == 23;
}

constexpr std::size_t kTextLength = 36;

} // namespace

Guid Guid::CreateUnique() {
    std::array<std::uint8_t, 16> bytes{};
    FillRandom(bytes.data(), bytes.size());
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40); // version 4
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80); // RFC 4122 variant
    return Guid(bytes);
}

std::optional<Guid> Guid::FromString(std::string_view text) {
    if (text.size() == kTextLength + 2) {
        if (text.front() != '{' || text.back() != '}')
            return std::nullopt;
        text = text.substr(1, kTextLength);
    }
    if (text.size() != kTextLength)
        return std::nullopt;

    std::array<std::uint8_t, 16> bytes{};
    std::size_t byteIndex = 0;
    for (std::size_t i = 0; i < kTextLength;) {
        if (IsHyphenPosition(i)) {
            if (text[i] != '-')
                return std::nullopt;
            ++i;
            continue;
        }
        const int high = HexValue(text[i]);
        const int low = HexValue(text[i + 1]);
        if (high < 0 || low < 0)
            return std::nullopt;
        bytes[byteIndex++] = static_cast<std::uint8_t>(high << 4 | low);
        i += 2;
    }
    return Guid(bytes);
}

bool Guid::IsZero() const {
    for (auto byte : bytes_) {
        if (byte != 0)
            return false;
    }
    return true;
}

std::string Guid::ToString() const {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(kTextLength + 2);
    out.push_back('{');
    for (std::size_t i = 0; i < bytes_.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10)
            out.push_back('-');
        out.push_back(kDigits[bytes_[i] >> 4]);
        out.push_back(kDigits[bytes_[i] & 0x0F]);
    }
    out.push_back('}');
    return out;
}

Fnd::WString Guid::ToWString() const {
    return Fnd::FromASCII(ToString());
}

} // namespace fluxcore::utility
