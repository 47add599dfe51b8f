#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace QL::Engine {

// The running state of one MD5 stream, kept apart from whoever compresses its blocks, so that the
// blocks of several streams can be compressed together (see Md5Lanes).
struct Md5State {
    static constexpr std::size_t kBlockBytes = 64;

    std::array<std::uint32_t, 4> words{0x67452301u, 0xefcdab89u, 0x98badcfeu, 0x10325476u};
    std::uint64_t length = 0; // bytes taken so far, whole blocks and tail
    std::array<unsigned char, kBlockBytes> tail{};
    std::size_t tailBytes = 0;
};

// Compresses count whole blocks into the state's words (the length is the caller's).
void Md5CompressBlocks(std::array<std::uint32_t, 4>& words, const unsigned char* blocks, std::size_t count);

// Takes data of any size: completes a waiting tail, compresses the whole blocks, keeps the rest
// as the new tail.
void Md5Update(Md5State& state, const void* data, std::size_t size);

// Pads and answers the lower-case hex digest; the state is spent.
std::string Md5FinishHex(Md5State& state);

} // namespace QL::Engine
