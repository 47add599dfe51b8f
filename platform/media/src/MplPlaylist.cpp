#include "MplPlaylist.h"

#include <algorithm>
#include <cstdint>
#include <fstream>

namespace Browse {
namespace {

// Playlists are small, but a damaged card may hold anything under that name.
constexpr std::size_t kLargestPlaylist = 1 << 20;

std::uint32_t BigEndian(const std::string& bytes, std::size_t at, int width) {
    std::uint32_t value = 0;
    for (int i = 0; i < width; ++i)
        value = (value << 8) | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

} // namespace

std::vector<MplPlayItem> ReadMplPlayItems(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary | std::ios::ate);
    // Sized by the file, not the limit: a card holds a playlist per recording, each a few
    // hundred bytes.
    const std::streamoff end = in.tellg();
    if (end < 0)
        return {};
    std::string bytes(std::min(static_cast<std::size_t>(end), kLargestPlaylist), '\0');
    in.seekg(0);
    in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(in.gcount()));
    if (bytes.size() < 20 || bytes.compare(0, 4, "MPLS") != 0)
        return {};

    // Header: type, version, then the offset of the play list.
    std::size_t at = BigEndian(bytes, 8, 4);
    // Play list: length (4), reserved (2), number of play items (2), number of sub-paths (2).
    if (at + 10 > bytes.size())
        return {};
    const std::uint32_t count = BigEndian(bytes, at + 6, 2);
    at += 10;
    std::vector<MplPlayItem> items;
    for (std::uint32_t i = 0; i < count; ++i) {
        // Play item: length (2), stream name (5), codec (4), flags whose low nibble is the
        // connection condition: 5 and 6 join the previous item without a break.
        if (at + 2 + 11 > bytes.size())
            break;
        const std::uint32_t length = BigEndian(bytes, at, 2);
        MplPlayItem item;
        item.stream = bytes.substr(at + 2, 5);
        const std::uint32_t condition = BigEndian(bytes, at + 2 + 9, 2) & 0x0F;
        item.continuesPrevious = !items.empty() && (condition == 5 || condition == 6);
        items.push_back(std::move(item));
        at += 2 + length;
    }
    return items;
}

} // namespace Browse
