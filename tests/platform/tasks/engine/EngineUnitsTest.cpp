// The pure parts of the scheduler: grouping copies by source, and measuring progress.
#include <gtest/gtest.h>

#include "platform/tasks/engine/src/ProgressMeter.h"
#include "platform/tasks/engine/src/SourceGroups.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

FileRecord File(std::int64_t task, const char16_t* source, FileState state = FileState::Pending) {
    FileRecord file;
    file.task = task;
    file.source = source;
    file.state = state;
    return file;
}

TEST(SourceGroupsTest, OneGroupPerSourceAndVerifyModeInTheOrderOfFirstUse) {
    // Task 1 is the primary, task 2 a backup with the same mode, task 3 a backup checked by size.
    const std::vector<FileRecord> files{File(1, u"/card/B"),
                                        File(1, u"/card/A"),
                                        File(1, u"/card/C", FileState::Verified),
                                        File(2, u"/card/B"),
                                        File(2, u"/card/A"),
                                        File(2, u"/card/C"),
                                        File(3, u"/card/A"),
                                        File(2, u"/card/D", FileState::Skipped)};
    const std::unordered_map<std::int64_t, std::uint32_t> modes{{1, 0}, {2, 0}, {3, 1}};
    const std::vector<SourceGroup> groups = GroupBySource(files, modes);
    ASSERT_EQ(groups.size(), 4u);
    EXPECT_EQ(groups[0].source, u"/card/B");
    EXPECT_EQ(groups[0].files, (std::vector<std::size_t>{0, 3}));
    EXPECT_EQ(groups[1].source, u"/card/A");
    EXPECT_EQ(groups[1].files, (std::vector<std::size_t>{1, 4}));
    EXPECT_EQ(groups[2].source, u"/card/C");
    EXPECT_EQ(groups[2].files, (std::vector<std::size_t>{5})) << "what is done is not copied again";
    EXPECT_EQ(groups[3].source, u"/card/A");
    EXPECT_EQ(groups[3].verifyMode, 1u);
    EXPECT_EQ(groups[3].files, (std::vector<std::size_t>{6}));
}

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
