#include "Md5State.h"

#include <algorithm>
#include <cstring>

namespace QL::Engine {
namespace {

constexpr std::uint32_t kSine[64] = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391};

inline std::uint32_t RotateLeft(std::uint32_t x, unsigned s) {
    return (x << s) | (x >> (32 - s));
}

inline std::uint32_t LoadLittle(const unsigned char* p) {
    std::uint32_t v;
    std::memcpy(&v, p, 4); // x86 and the other targets we build for are little-endian
    return v;
}

} // namespace

void Md5CompressBlocks(std::array<std::uint32_t, 4>& words, const unsigned char* blocks, std::size_t count) {
    for (std::size_t n = 0; n < count; ++n, blocks += Md5State::kBlockBytes) {
        std::uint32_t m[16];
        for (int i = 0; i < 16; ++i)
            m[i] = LoadLittle(blocks + 4 * i);
        std::uint32_t a = words[0], b = words[1], c = words[2], d = words[3];
        // Written out step by step: with the message index and shift known at compile time the
        // chain of rounds is all that is left.
        a = b + RotateLeft(a + m[0] + kSine[0] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[1] + kSine[1] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[2] + kSine[2] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[3] + kSine[3] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[4] + kSine[4] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[5] + kSine[5] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[6] + kSine[6] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[7] + kSine[7] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[8] + kSine[8] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[9] + kSine[9] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[10] + kSine[10] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[11] + kSine[11] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[12] + kSine[12] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[13] + kSine[13] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[14] + kSine[14] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[15] + kSine[15] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[1] + kSine[16] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[6] + kSine[17] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[11] + kSine[18] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[0] + kSine[19] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[5] + kSine[20] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[10] + kSine[21] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[15] + kSine[22] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[4] + kSine[23] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[9] + kSine[24] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[14] + kSine[25] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[3] + kSine[26] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[8] + kSine[27] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[13] + kSine[28] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[2] + kSine[29] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[7] + kSine[30] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[12] + kSine[31] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[5] + kSine[32] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[8] + kSine[33] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[11] + kSine[34] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[14] + kSine[35] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[1] + kSine[36] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[4] + kSine[37] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[7] + kSine[38] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[10] + kSine[39] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[13] + kSine[40] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[0] + kSine[41] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[3] + kSine[42] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[6] + kSine[43] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[9] + kSine[44] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[12] + kSine[45] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[15] + kSine[46] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[2] + kSine[47] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[0] + kSine[48] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[7] + kSine[49] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[14] + kSine[50] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[5] + kSine[51] + (d ^ (c | ~a)), 21);
        a = b + RotateLeft(a + m[12] + kSine[52] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[3] + kSine[53] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[10] + kSine[54] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[1] + kSine[55] + (d ^ (c | ~a)), 21);
        a = b + RotateLeft(a + m[8] + kSine[56] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[15] + kSine[57] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[6] + kSine[58] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[13] + kSine[59] + (d ^ (c | ~a)), 21);
        a = b + RotateLeft(a + m[4] + kSine[60] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[11] + kSine[61] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[2] + kSine[62] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[9] + kSine[63] + (d ^ (c | ~a)), 21);
        words[0] += a;
        words[1] += b;
        words[2] += c;
        words[3] += d;
    }
}

void Md5Update(Md5State& state, const void* data, std::size_t size) {
    auto bytes = static_cast<const unsigned char*>(data);
    state.length += size;
    if (state.tailBytes != 0) {
        const std::size_t take = std::min(size, Md5State::kBlockBytes - state.tailBytes);
        std::memcpy(state.tail.data() + state.tailBytes, bytes, take);
        state.tailBytes += take;
        bytes += take;
        size -= take;
        if (state.tailBytes < Md5State::kBlockBytes)
            return;
        Md5CompressBlocks(state.words, state.tail.data(), 1);
        state.tailBytes = 0;
    }
    const std::size_t whole = size / Md5State::kBlockBytes;
    Md5CompressBlocks(state.words, bytes, whole);
    bytes += whole * Md5State::kBlockBytes;
    size -= whole * Md5State::kBlockBytes;
    std::memcpy(state.tail.data(), bytes, size);
    state.tailBytes = size;
}

std::string Md5FinishHex(Md5State& state) {
    const std::uint64_t bits = state.length * 8;
    unsigned char padding[2 * Md5State::kBlockBytes] = {0x80};
    const std::size_t used = state.tailBytes;
    const std::size_t padBytes = (used < 56 ? 56 : 120) - used;
    unsigned char lengthBytes[8];
    for (int i = 0; i < 8; ++i)
        lengthBytes[i] = static_cast<unsigned char>(bits >> (8 * i));
    const std::uint64_t length = state.length;
    Md5Update(state, padding, padBytes);
    Md5Update(state, lengthBytes, sizeof lengthBytes);
    state.length = length;

    static const char kHex[] = "0123456789abcdef";
    std::string hex;
    hex.reserve(32);
    for (const std::uint32_t word : state.words) {
        for (int i = 0; i < 4; ++i) {
            const auto byte = static_cast<unsigned char>(word >> (8 * i));
            hex += kHex[byte >> 4];
            hex += kHex[byte & 0x0F];
        }
    }
    return hex;
}

} // namespace QL::Engine
