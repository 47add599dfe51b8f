#include "Md5State.h"

#include <algorithm>
#include <cstring>

namespace QL::Engine {
namespace {

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
        a = b + RotateLeft(a + m[0] + kMd5Sine[0] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[1] + kMd5Sine[1] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[2] + kMd5Sine[2] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[3] + kMd5Sine[3] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[4] + kMd5Sine[4] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[5] + kMd5Sine[5] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[6] + kMd5Sine[6] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[7] + kMd5Sine[7] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[8] + kMd5Sine[8] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[9] + kMd5Sine[9] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[10] + kMd5Sine[10] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[11] + kMd5Sine[11] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[12] + kMd5Sine[12] + (d ^ (b & (c ^ d))), 7);
        d = a + RotateLeft(d + m[13] + kMd5Sine[13] + (c ^ (a & (b ^ c))), 12);
        c = d + RotateLeft(c + m[14] + kMd5Sine[14] + (b ^ (d & (a ^ b))), 17);
        b = c + RotateLeft(b + m[15] + kMd5Sine[15] + (a ^ (c & (d ^ a))), 22);
        a = b + RotateLeft(a + m[1] + kMd5Sine[16] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[6] + kMd5Sine[17] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[11] + kMd5Sine[18] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[0] + kMd5Sine[19] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[5] + kMd5Sine[20] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[10] + kMd5Sine[21] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[15] + kMd5Sine[22] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[4] + kMd5Sine[23] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[9] + kMd5Sine[24] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[14] + kMd5Sine[25] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[3] + kMd5Sine[26] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[8] + kMd5Sine[27] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[13] + kMd5Sine[28] + (c ^ (d & (b ^ c))), 5);
        d = a + RotateLeft(d + m[2] + kMd5Sine[29] + (b ^ (c & (a ^ b))), 9);
        c = d + RotateLeft(c + m[7] + kMd5Sine[30] + (a ^ (b & (d ^ a))), 14);
        b = c + RotateLeft(b + m[12] + kMd5Sine[31] + (d ^ (a & (c ^ d))), 20);
        a = b + RotateLeft(a + m[5] + kMd5Sine[32] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[8] + kMd5Sine[33] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[11] + kMd5Sine[34] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[14] + kMd5Sine[35] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[1] + kMd5Sine[36] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[4] + kMd5Sine[37] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[7] + kMd5Sine[38] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[10] + kMd5Sine[39] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[13] + kMd5Sine[40] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[0] + kMd5Sine[41] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[3] + kMd5Sine[42] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[6] + kMd5Sine[43] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[9] + kMd5Sine[44] + (b ^ c ^ d), 4);
        d = a + RotateLeft(d + m[12] + kMd5Sine[45] + (a ^ b ^ c), 11);
        c = d + RotateLeft(c + m[15] + kMd5Sine[46] + (d ^ a ^ b), 16);
        b = c + RotateLeft(b + m[2] + kMd5Sine[47] + (c ^ d ^ a), 23);
        a = b + RotateLeft(a + m[0] + kMd5Sine[48] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[7] + kMd5Sine[49] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[14] + kMd5Sine[50] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[5] + kMd5Sine[51] + (d ^ (c | ~a)), 21);
        a = b + RotateLeft(a + m[12] + kMd5Sine[52] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[3] + kMd5Sine[53] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[10] + kMd5Sine[54] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[1] + kMd5Sine[55] + (d ^ (c | ~a)), 21);
        a = b + RotateLeft(a + m[8] + kMd5Sine[56] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[15] + kMd5Sine[57] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[6] + kMd5Sine[58] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[13] + kMd5Sine[59] + (d ^ (c | ~a)), 21);
        a = b + RotateLeft(a + m[4] + kMd5Sine[60] + (c ^ (b | ~d)), 6);
        d = a + RotateLeft(d + m[11] + kMd5Sine[61] + (b ^ (a | ~c)), 10);
        c = d + RotateLeft(c + m[2] + kMd5Sine[62] + (a ^ (d | ~b)), 15);
        b = c + RotateLeft(b + m[9] + kMd5Sine[63] + (d ^ (c | ~a)), 21);
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
