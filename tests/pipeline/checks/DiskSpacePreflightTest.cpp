// The question about disk space before a transfer: Retry measures again, Cancel stops, Continue
// goes on at the user's risk, and an unset destination is told as such.
#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/checks/DiskSpaceCheck.h"

namespace igd::test {
namespace {

enum Button { kRetry, kCancel, kContinue };

// Each measure of the disk takes the next scripted shortage (destination, missing bytes); enough
// space is the answer once the script runs out.
class DiskSpaceTest : public PlanTest {
protected:
    bool Check() {
        return IGD::CheckDiskSpace(sources_, bases_,
                                   [this](const std::vector<Fnd::WString>& sources,
                                          const std::vector<Fnd::WString>& bases, Fnd::WString& failing,
                                          std::uint64_t& missing) {
                                       ++measures;
                                       EXPECT_EQ(std::pair(sources, bases), std::pair(sources_, bases_));
                                       if (shortages.empty())
                                           return true;
                                       std::tie(failing, missing) = shortages.front();
                                       shortages.pop_front();
                                       return false;
                                   });
    }

    static std::string ShortOf(const std::string& path, const std::string& amount) {
        return "Clip Copy: There is not enough space to transfer to " + path +
               ". Please change the destination or release about " + amount + " space.";
    }

    std::deque<std::pair<Fnd::WString, std::uint64_t>> shortages;
    int measures = 0;
    const std::vector<Fnd::WString> sources_{u"/media/card/A001.MOV", u"/media/card/A002.MOV"};
    const std::vector<Fnd::WString> bases_{u"/mnt/raid", u"/mnt/shuttle"};
};

// Enough space asks nothing. A shortage asks Retry, Cancel or Continue, Cancel the default; Retry
// measures again and asks about whatever is still short, and the first measure that fits ends it.
TEST_F(DiskSpaceTest, RetryMeasuresAgainCancelStopsAndContinueGoesOn) {
    EXPECT_TRUE(Check());
    EXPECT_TRUE(ui->Boxes().empty());

    shortages = {{u"/mnt/shuttle//day1/..", 3ull << 30}, {u"/mnt/raid", 5ull << 20}, {u"/mnt/raid", 1536}};
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(kCancel);
    EXPECT_FALSE(Check());
    ASSERT_EQ(ui->Boxes().size(), 3u);
    EXPECT_EQ(ui->Boxes()[0].buttons, (std::vector<Fnd::WString>{u"Retry", u"Cancel", u"Continue"}));
    EXPECT_EQ(ui->Boxes()[0].defaultButton, kCancel);
    // The path as the user knows it, the amount as a person reads it.
    EXPECT_EQ(BoxTexts(), (Strings{ShortOf("/mnt/shuttle", "3.0 GB"), ShortOf("/mnt/raid", "5.0 MB"),
                                   ShortOf("/mnt/raid", "1.5 KB")}));
    EXPECT_EQ(measures, 4);

    shortages = {{u"/mnt/shuttle", 512}, {u"/mnt/shuttle", 100}};
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(kContinue);
    EXPECT_TRUE(Check());
    EXPECT_EQ(BoxTexts(3), (Strings{ShortOf("/mnt/shuttle", "512 bytes"), ShortOf("/mnt/shuttle", "100 bytes")}));
    EXPECT_EQ(measures, 6);

    shortages = {{u"/mnt/raid", 10}};
    ui->QueueBoxAnswer(kRetry);
    EXPECT_TRUE(Check());
    EXPECT_EQ(measures, 8);
}

// Told also when a retry found the destination gone.
TEST_F(DiskSpaceTest, AnUnsetDestinationIsToldAndNotRetried) {
    shortages = {{u"/mnt/raid", 10}, {u"", 0}};
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Check());
    EXPECT_EQ(BoxTexts(1), Strings{"Destination path is not set: Please specify the destination path."});
    EXPECT_EQ(ui->Boxes()[1].buttons.size(), 1u);
    EXPECT_EQ(measures, 2);
}

} // namespace
} // namespace igd::test
