#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

namespace QL::Engine {

// MD5 is a chain: one stream cannot be hashed faster than its rounds follow each other. Eight
// independent streams can go side by side in the eight 32-bit lanes of a vector register, which
// costs little more than one stream alone. A copy with two targets hashes three streams at once
// (the source and both read-backs), so this is where most of an MD5-verified ingest's CPU goes.
class Md5Lanes {
public:
    static constexpr std::size_t kLanes = 8;

    // Whether the processor runs the vector form; without it CompressBlocks goes lane by lane.
    static bool Vectorised();

    // Compresses count whole 64-byte blocks of each lane: lane i takes its blocks from blocks[i]
    // into words[i]. A null blocks[i] leaves that lane untouched.
    static void CompressBlocks(std::array<std::uint32_t, 4>* const words[kLanes],
                               const unsigned char* const blocks[kLanes], std::size_t count);
};

} // namespace QL::Engine
