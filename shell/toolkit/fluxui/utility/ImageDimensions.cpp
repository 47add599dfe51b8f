#include "fluxui/utility/ImageDimensions.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string_view>

namespace fluxui::utility {
namespace {

constexpr std::array<unsigned char, 8> kPngSignature = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

std::uint32_t BigEndian32(std::span<const std::byte> bytes, std::size_t offset) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = (value << 8) | std::to_integer<std::uint32_t>(bytes[offset + i]);
    return value;
}

// The viewBox sits in the first lines; a root element never reaches this far.
constexpr std::size_t kSvgHeaderLimit = 4096;

bool SkipSeparators(std::string_view text, std::size_t& at) {
    while (at < text.size() && (text[at] == ' ' || text[at] == ',' || text[at] == '\t' || text[at] == '\n'))
        ++at;
    return at < text.size();
}

} // namespace

std::optional<PixelSize> ReadPngPixelSize(std::span<const std::byte> bytes) {
    if (bytes.size() < 24)
        return std::nullopt;
    for (std::size_t i = 0; i < kPngSignature.size(); ++i) {
        if (std::to_integer<unsigned char>(bytes[i]) != kPngSignature[i])
            return std::nullopt;
    }
    const std::string_view chunk(reinterpret_cast<const char*>(bytes.data()) + 12, 4);
    if (chunk != "IHDR")
        return std::nullopt;
    const std::uint32_t width = BigEndian32(bytes, 16);
    const std::uint32_t height = BigEndian32(bytes, 20);
    if (width == 0 || height == 0 || width > 0x7FFFFFFF || height > 0x7FFFFFFF)
        return std::nullopt;
    return PixelSize{static_cast<int>(width), static_cast<int>(height)};
}

std::optional<PixelSize> ReadSvgViewBoxSize(std::span<const std::byte> bytes) {
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()),
                                std::min(bytes.size(), kSvgHeaderLimit));
    const std::string_view attribute = "viewBox=\"";
    std::size_t at = text.find(attribute);
    if (at == std::string_view::npos)
        return std::nullopt;
    at += attribute.size();
    std::array<double, 4> numbers{};
    for (double& number : numbers) {
        if (!SkipSeparators(text, at))
            return std::nullopt;
        const auto [end, error] = std::from_chars(text.data() + at, text.data() + text.size(), number);
        if (error != std::errc())
            return std::nullopt;
        at = static_cast<std::size_t>(end - text.data());
    }
    if (!(numbers[2] > 0) || !(numbers[3] > 0))
        return std::nullopt;
    return PixelSize{static_cast<int>(std::lround(numbers[2])), static_cast<int>(std::lround(numbers[3]))};
}

} // namespace fluxui::utility
