// Measuring progress: the rate a host shows must follow the medium, not the whole run's average.
// Comparing a copy that resume finds with its source, in each verify mode.
#include <gtest/gtest.h>

#include <string>

#include "Checksum/Checksum.h"
#include "QL/CopySetting.h"
#include "platform/tasks/engine/src/FileComparison.h"
#include "platform/tasks/engine/src/ProgressMeter.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using QL::Engine::ProgressMeter;

TEST(ProgressMeterTest, ThrottlesMessagesAndMeasuresTheRecentRate) {
    using namespace std::chrono_literals;
    ProgressMeter meter(250ms, 2000ms);
    const auto start = ProgressMeter::Clock::time_point{} + 1h;
    EXPECT_TRUE(meter.Sample(0, start)) << "the first sample is always due";
    EXPECT_FALSE(meter.Sample(10, start + 100ms));
    EXPECT_EQ(meter.BytesPerSecond(), 0) << "too short to measure";
    EXPECT_TRUE(meter.Sample(25'000'000, start + 250ms));
    EXPECT_FALSE(meter.Sample(50'000'000, start + 400ms));
    EXPECT_TRUE(meter.Sample(100'000'000, start + 1000ms));
    EXPECT_DOUBLE_EQ(meter.BytesPerSecond(), 100e6);

    // The medium slows down: after the window only the recent pace counts.
    for (int i = 1; i <= 12; ++i)
        meter.Sample(100'000'000 + static_cast<std::uint64_t>(i) * 2'500'000, start + 1000ms + i * 250ms);
    EXPECT_NEAR(meter.BytesPerSecond(), 10e6, 1.5e6);

    meter.Restart();
    EXPECT_EQ(meter.BytesPerSecond(), 0);
}

// A copy of the same size with one byte changed is never adopted by a mode that reads the copy;
// whatever the mode, an adopted copy comes with the source's digest for the record.
TEST(FileComparisonTest, EachModeReadsAsFarAsItPromisesAndNamesItsDigest) {
    using namespace QL::IngestTask;
    TempTree tree;
    const std::string bytes = std::string(3u << 20, 'f') + "frames";
    tree.MakeFile("card/A001.MOV", bytes);
    tree.MakeFile("main/A001.MOV", bytes);
    std::string altered = bytes;
    altered[2u << 20] ^= 1;
    tree.MakeFile("main/altered.MOV", altered);
    const std::string source = tree.NativePath("card/A001.MOV");
    const struct {
        std::uint32_t mode;
        const char* algorithm;
        bool alteredPasses;
    } cases[] = {{kVerifyMD5, "md5", false},           {kVerifyXXH128, "xxh128", false},
                 {kVerifyXXH3, "xxh3", false},         {kVerifyXXH64, "xxh64", false},
                 {kVerifyBitByBit, "xxh128", false},   {kVerifyFileSize, "xxh128", true},
                 {kVerifyNone, "xxh128", true}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mode);
        std::string checksum;
        std::string algorithm;
        ASSERT_TRUE(QL::Engine::CopyMatchesSource(source, tree.NativePath("main/A001.MOV"), c.mode, checksum,
                                                  algorithm));
        EXPECT_EQ(algorithm, c.algorithm);
        EXPECT_EQ(checksum, Checksum::DigestHex(*Checksum::AlgorithmNamed(algorithm), bytes.data(), bytes.size()));
        EXPECT_EQ(QL::Engine::CopyMatchesSource(source, tree.NativePath("main/altered.MOV"), c.mode, checksum,
                                                algorithm),
                  c.alteredPasses);
        if (!c.alteredPasses) {
            EXPECT_FALSE(QL::Engine::CopyMatchesSource(source, tree.NativePath("main/gone.MOV"), c.mode, checksum,
                                                       algorithm))
                << "a copy that cannot be read is no copy";
        }
    }
}

} // namespace
} // namespace igd::test
