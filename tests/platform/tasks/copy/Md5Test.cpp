#include <openssl/evp.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/tasks/copy/src/LaneHasher.h"
#include "platform/tasks/copy/src/Md5Lanes.h"
#include "platform/tasks/copy/src/Md5State.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

// OpenSSL is the reference the copier's own MD5 must agree with, digest for digest.
std::string ReferenceMd5(const unsigned char* data, std::size_t size) {
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    EVP_Digest(data, size, digest, &length, EVP_md5(), nullptr);
    static const char kHex[] = "0123456789abcdef";
    std::string hex;
    for (unsigned int i = 0; i < length; ++i) {
        hex += kHex[digest[i] >> 4];
        hex += kHex[digest[i] & 0x0F];
    }
    return hex;
}

std::vector<unsigned char> RandomBytes(std::size_t size, unsigned seed) {
    std::mt19937 random(seed);
    std::vector<unsigned char> bytes(size);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random());
    return bytes;
}

TEST(Md5StateTest, EveryLengthAroundThePaddingAndAnySplitAgreeWithOpenSsl) {
    const std::vector<unsigned char> bytes = RandomBytes(300, 7);
    for (std::size_t size = 0; size <= 200; ++size) {
        for (const std::size_t split : {std::size_t{0}, size / 3, size}) {
            Md5State state;
            Md5Update(state, bytes.data(), split);
            Md5Update(state, bytes.data() + split, size - split);
            ASSERT_EQ(Md5FinishHex(state), ReferenceMd5(bytes.data(), size)) << size << " split " << split;
        }
    }
}

TEST(Md5LanesTest, EachLaneMatchesTheSingleStreamRoundsAndIdleLanesAreLeftAlone) {
    constexpr std::size_t kBlocks = 37;
    const std::vector<unsigned char> bytes = RandomBytes(Md5Lanes::kLanes * kBlocks * 64 + 5, 11);
    for (std::size_t active = 1; active <= Md5Lanes::kLanes; ++active) {
        std::array<std::uint32_t, 4> words[Md5Lanes::kLanes];
        std::array<std::uint32_t, 4>* wordPointers[Md5Lanes::kLanes];
        const unsigned char* blocks[Md5Lanes::kLanes];
        for (std::size_t lane = 0; lane < Md5Lanes::kLanes; ++lane) {
            words[lane] = {static_cast<std::uint32_t>(lane), 2, 3, 4};
            wordPointers[lane] = &words[lane];
            // Active lanes at odd offsets: the vector loads must not need alignment. Every other
            // lane idles so that idle lanes sit between active ones.
            const bool isActive =
                lane % 2 == 0 ? lane / 2 < active : (Md5Lanes::kLanes / 2 + lane / 2) < active;
            blocks[lane] = isActive ? bytes.data() + lane * kBlocks * 64 + (lane % 3) : nullptr;
        }
        Md5Lanes::CompressBlocks(wordPointers, blocks, kBlocks);
        for (std::size_t lane = 0; lane < Md5Lanes::kLanes; ++lane) {
            std::array<std::uint32_t, 4> expected{static_cast<std::uint32_t>(lane), 2, 3, 4};
            if (blocks[lane])
                Md5CompressBlocks(expected, blocks[lane], kBlocks);
            EXPECT_EQ(words[lane], expected) << active << " active, lane " << lane;
        }
    }
}

TEST(LaneHasherTest, StreamsFedAtOnceFromManyThreadsEachGetTheirOwnDigest) {
    // Sizes that end inside a block, pieces that split blocks, and more streams than lanes.
    constexpr int kStreams = 11;
    std::vector<std::vector<unsigned char>> data;
    for (int i = 0; i < kStreams; ++i)
        data.push_back(RandomBytes(1'000'000 + 4099 * i, 100 + i));
    auto hasher = LaneHasher::Create();
    std::vector<std::string> digests(kStreams);
    std::vector<std::thread> threads;
    for (int i = 0; i < kStreams; ++i) {
        threads.emplace_back([&, i] {
            auto stream = hasher->OpenStream();
            const std::size_t piece = 1000 + 777 * static_cast<std::size_t>(i);
            for (std::size_t at = 0; at < data[i].size(); at += piece)
                stream->Update(data[i].data() + at, std::min(piece, data[i].size() - at));
            digests[i] = stream->FinishHex();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (int i = 0; i < kStreams; ++i)
        EXPECT_EQ(digests[i], ReferenceMd5(data[i].data(), data[i].size())) << "stream " << i;
}

TEST(LaneHasherTest, AStreamAloneBesideIdleOpenStreamsStillFinishes) {
    auto hasher = LaneHasher::Create();
    auto idle = hasher->OpenStream(); // open, never fed: the busy one must not wait on it forever
    auto busy = hasher->OpenStream();
    const std::vector<unsigned char> bytes = RandomBytes(3 << 20, 5);
    busy->Update(bytes.data(), bytes.size());
    EXPECT_EQ(busy->FinishHex(), ReferenceMd5(bytes.data(), bytes.size()));
    EXPECT_EQ(idle->FinishHex(), "d41d8cd98f00b204e9800998ecf8427e");
}

} // namespace
} // namespace igd::test
