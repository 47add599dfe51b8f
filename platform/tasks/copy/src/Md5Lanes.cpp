#include "Md5Lanes.h"

#include <immintrin.h>

#include "Md5State.h"

namespace QL::Engine {
namespace {

#define IGD_AVX2 __attribute__((target("avx2")))

// Words w..w+7 of each lane's block, turned so that vector j holds word w+j of lanes 0 to 7.
IGD_AVX2 inline void LoadTransposed(const unsigned char* const rows[Md5Lanes::kLanes], std::size_t offset,
                                    __m256i out[8]) {
    __m256i r[8];
    for (std::size_t lane = 0; lane < Md5Lanes::kLanes; ++lane)
        r[lane] = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(rows[lane] + offset));
    const __m256i t0 = _mm256_unpacklo_epi32(r[0], r[1]), t1 = _mm256_unpackhi_epi32(r[0], r[1]);
    const __m256i t2 = _mm256_unpacklo_epi32(r[2], r[3]), t3 = _mm256_unpackhi_epi32(r[2], r[3]);
    const __m256i t4 = _mm256_unpacklo_epi32(r[4], r[5]), t5 = _mm256_unpackhi_epi32(r[4], r[5]);
    const __m256i t6 = _mm256_unpacklo_epi32(r[6], r[7]), t7 = _mm256_unpackhi_epi32(r[6], r[7]);
    const __m256i u0 = _mm256_unpacklo_epi64(t0, t2), u1 = _mm256_unpackhi_epi64(t0, t2);
    const __m256i u2 = _mm256_unpacklo_epi64(t1, t3), u3 = _mm256_unpackhi_epi64(t1, t3);
    const __m256i u4 = _mm256_unpacklo_epi64(t4, t6), u5 = _mm256_unpackhi_epi64(t4, t6);
    const __m256i u6 = _mm256_unpacklo_epi64(t5, t7), u7 = _mm256_unpackhi_epi64(t5, t7);
    out[0] = _mm256_permute2x128_si256(u0, u4, 0x20);
    out[1] = _mm256_permute2x128_si256(u1, u5, 0x20);
    out[2] = _mm256_permute2x128_si256(u2, u6, 0x20);
    out[3] = _mm256_permute2x128_si256(u3, u7, 0x20);
    out[4] = _mm256_permute2x128_si256(u0, u4, 0x31);
    out[5] = _mm256_permute2x128_si256(u1, u5, 0x31);
    out[6] = _mm256_permute2x128_si256(u2, u6, 0x31);
    out[7] = _mm256_permute2x128_si256(u3, u7, 0x31);
}

template <int S> IGD_AVX2 inline __m256i RotateLeft(__m256i x) {
    return _mm256_or_si256(_mm256_slli_epi32(x, S), _mm256_srli_epi32(x, 32 - S));
}

// One step: a = b + rotl(a + f + k + m, s), with f from the round's function.
#define IGD_MD5_STEP(F, a, b, c, d, i, g, s)                                                                 \
    a = _mm256_add_epi32(                                                                                    \
        b,                                                                                                   \
        RotateLeft<s>(_mm256_add_epi32(                                                                      \
            _mm256_add_epi32(a, _mm256_add_epi32(m[g], _mm256_set1_epi32(static_cast<int>(kMd5Sine[i])))),   \
            F(b, c, d))))

IGD_AVX2 inline __m256i FunF(__m256i b, __m256i c, __m256i d) {
    return _mm256_xor_si256(d, _mm256_and_si256(b, _mm256_xor_si256(c, d)));
}
IGD_AVX2 inline __m256i FunG(__m256i b, __m256i c, __m256i d) {
    return _mm256_xor_si256(c, _mm256_and_si256(d, _mm256_xor_si256(b, c)));
}
IGD_AVX2 inline __m256i FunH(__m256i b, __m256i c, __m256i d) {
    return _mm256_xor_si256(_mm256_xor_si256(b, c), d);
}
IGD_AVX2 inline __m256i FunI(__m256i b, __m256i c, __m256i d) {
    return _mm256_xor_si256(c, _mm256_or_si256(b, _mm256_xor_si256(d, _mm256_set1_epi32(-1))));
}

IGD_AVX2 void CompressVector(std::array<std::uint32_t, 4>* const words[Md5Lanes::kLanes],
                             const unsigned char* const blocks[Md5Lanes::kLanes], std::size_t count) {
    // Idle lanes hash a block of zeros into a scratch state, so the loop has no branches.
    alignas(32) static const unsigned char kIdleBlock[Md5State::kBlockBytes] = {};
    std::array<std::uint32_t, 4> idleWords{};
    const unsigned char* rows[Md5Lanes::kLanes];
    alignas(32) std::uint32_t lanes[4][Md5Lanes::kLanes];
    for (std::size_t lane = 0; lane < Md5Lanes::kLanes; ++lane) {
        rows[lane] = blocks[lane] ? blocks[lane] : kIdleBlock;
        const std::array<std::uint32_t, 4>& w = blocks[lane] ? *words[lane] : idleWords;
        for (int k = 0; k < 4; ++k)
            lanes[k][lane] = w[k];
    }
    __m256i a = _mm256_load_si256(reinterpret_cast<const __m256i*>(lanes[0]));
    __m256i b = _mm256_load_si256(reinterpret_cast<const __m256i*>(lanes[1]));
    __m256i c = _mm256_load_si256(reinterpret_cast<const __m256i*>(lanes[2]));
    __m256i d = _mm256_load_si256(reinterpret_cast<const __m256i*>(lanes[3]));

    for (std::size_t n = 0; n < count; ++n) {
        __m256i m[16];
        LoadTransposed(rows, 0, m);
        LoadTransposed(rows, 32, m + 8);
        const __m256i a0 = a, b0 = b, c0 = c, d0 = d;

        IGD_MD5_STEP(FunF, a, b, c, d, 0, 0, 7);
        IGD_MD5_STEP(FunF, d, a, b, c, 1, 1, 12);
        IGD_MD5_STEP(FunF, c, d, a, b, 2, 2, 17);
        IGD_MD5_STEP(FunF, b, c, d, a, 3, 3, 22);
        IGD_MD5_STEP(FunF, a, b, c, d, 4, 4, 7);
        IGD_MD5_STEP(FunF, d, a, b, c, 5, 5, 12);
        IGD_MD5_STEP(FunF, c, d, a, b, 6, 6, 17);
        IGD_MD5_STEP(FunF, b, c, d, a, 7, 7, 22);
        IGD_MD5_STEP(FunF, a, b, c, d, 8, 8, 7);
        IGD_MD5_STEP(FunF, d, a, b, c, 9, 9, 12);
        IGD_MD5_STEP(FunF, c, d, a, b, 10, 10, 17);
        IGD_MD5_STEP(FunF, b, c, d, a, 11, 11, 22);
        IGD_MD5_STEP(FunF, a, b, c, d, 12, 12, 7);
        IGD_MD5_STEP(FunF, d, a, b, c, 13, 13, 12);
        IGD_MD5_STEP(FunF, c, d, a, b, 14, 14, 17);
        IGD_MD5_STEP(FunF, b, c, d, a, 15, 15, 22);

        IGD_MD5_STEP(FunG, a, b, c, d, 16, 1, 5);
        IGD_MD5_STEP(FunG, d, a, b, c, 17, 6, 9);
        IGD_MD5_STEP(FunG, c, d, a, b, 18, 11, 14);
        IGD_MD5_STEP(FunG, b, c, d, a, 19, 0, 20);
        IGD_MD5_STEP(FunG, a, b, c, d, 20, 5, 5);
        IGD_MD5_STEP(FunG, d, a, b, c, 21, 10, 9);
        IGD_MD5_STEP(FunG, c, d, a, b, 22, 15, 14);
        IGD_MD5_STEP(FunG, b, c, d, a, 23, 4, 20);
        IGD_MD5_STEP(FunG, a, b, c, d, 24, 9, 5);
        IGD_MD5_STEP(FunG, d, a, b, c, 25, 14, 9);
        IGD_MD5_STEP(FunG, c, d, a, b, 26, 3, 14);
        IGD_MD5_STEP(FunG, b, c, d, a, 27, 8, 20);
        IGD_MD5_STEP(FunG, a, b, c, d, 28, 13, 5);
        IGD_MD5_STEP(FunG, d, a, b, c, 29, 2, 9);
        IGD_MD5_STEP(FunG, c, d, a, b, 30, 7, 14);
        IGD_MD5_STEP(FunG, b, c, d, a, 31, 12, 20);

        IGD_MD5_STEP(FunH, a, b, c, d, 32, 5, 4);
        IGD_MD5_STEP(FunH, d, a, b, c, 33, 8, 11);
        IGD_MD5_STEP(FunH, c, d, a, b, 34, 11, 16);
        IGD_MD5_STEP(FunH, b, c, d, a, 35, 14, 23);
        IGD_MD5_STEP(FunH, a, b, c, d, 36, 1, 4);
        IGD_MD5_STEP(FunH, d, a, b, c, 37, 4, 11);
        IGD_MD5_STEP(FunH, c, d, a, b, 38, 7, 16);
        IGD_MD5_STEP(FunH, b, c, d, a, 39, 10, 23);
        IGD_MD5_STEP(FunH, a, b, c, d, 40, 13, 4);
        IGD_MD5_STEP(FunH, d, a, b, c, 41, 0, 11);
        IGD_MD5_STEP(FunH, c, d, a, b, 42, 3, 16);
        IGD_MD5_STEP(FunH, b, c, d, a, 43, 6, 23);
        IGD_MD5_STEP(FunH, a, b, c, d, 44, 9, 4);
        IGD_MD5_STEP(FunH, d, a, b, c, 45, 12, 11);
        IGD_MD5_STEP(FunH, c, d, a, b, 46, 15, 16);
        IGD_MD5_STEP(FunH, b, c, d, a, 47, 2, 23);

        IGD_MD5_STEP(FunI, a, b, c, d, 48, 0, 6);
        IGD_MD5_STEP(FunI, d, a, b, c, 49, 7, 10);
        IGD_MD5_STEP(FunI, c, d, a, b, 50, 14, 15);
        IGD_MD5_STEP(FunI, b, c, d, a, 51, 5, 21);
        IGD_MD5_STEP(FunI, a, b, c, d, 52, 12, 6);
        IGD_MD5_STEP(FunI, d, a, b, c, 53, 3, 10);
        IGD_MD5_STEP(FunI, c, d, a, b, 54, 10, 15);
        IGD_MD5_STEP(FunI, b, c, d, a, 55, 1, 21);
        IGD_MD5_STEP(FunI, a, b, c, d, 56, 8, 6);
        IGD_MD5_STEP(FunI, d, a, b, c, 57, 15, 10);
        IGD_MD5_STEP(FunI, c, d, a, b, 58, 6, 15);
        IGD_MD5_STEP(FunI, b, c, d, a, 59, 13, 21);
        IGD_MD5_STEP(FunI, a, b, c, d, 60, 4, 6);
        IGD_MD5_STEP(FunI, d, a, b, c, 61, 11, 10);
        IGD_MD5_STEP(FunI, c, d, a, b, 62, 2, 15);
        IGD_MD5_STEP(FunI, b, c, d, a, 63, 9, 21);

        a = _mm256_add_epi32(a, a0);
        b = _mm256_add_epi32(b, b0);
        c = _mm256_add_epi32(c, c0);
        d = _mm256_add_epi32(d, d0);
        // Idle lanes stay on their one block of zeros.
        for (std::size_t lane = 0; lane < Md5Lanes::kLanes; ++lane) {
            if (blocks[lane])
                rows[lane] += Md5State::kBlockBytes;
        }
    }

    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes[0]), a);
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes[1]), b);
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes[2]), c);
    _mm256_store_si256(reinterpret_cast<__m256i*>(lanes[3]), d);
    for (std::size_t lane = 0; lane < Md5Lanes::kLanes; ++lane) {
        if (!blocks[lane])
            continue;
        for (int k = 0; k < 4; ++k)
            (*words[lane])[k] = lanes[k][lane];
    }
}

#undef IGD_MD5_STEP

} // namespace

bool Md5Lanes::Vectorised() {
    static const bool avx2 = __builtin_cpu_supports("avx2");
    return avx2;
}

void Md5Lanes::CompressBlocks(std::array<std::uint32_t, 4>* const words[kLanes],
                              const unsigned char* const blocks[kLanes], std::size_t count) {
    if (Vectorised()) {
        CompressVector(words, blocks, count);
        return;
    }
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
        if (blocks[lane])
            Md5CompressBlocks(*words[lane], blocks[lane], count);
    }
}

} // namespace QL::Engine
