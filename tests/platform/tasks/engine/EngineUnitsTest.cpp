// Measuring progress: the rate a host shows must follow the medium, not the whole run's average.
#include <gtest/gtest.h>

#include "platform/tasks/engine/src/ProgressMeter.h"

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

} // namespace
} // namespace igd::test
