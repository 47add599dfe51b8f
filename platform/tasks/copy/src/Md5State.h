#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace QL::Engine {

// The round constants, the integer parts of |sin(i + 1)| * 2^32, shared by both ways of hashing.
inline constexpr std::uint32_t kMd5Sine[64] = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};

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
