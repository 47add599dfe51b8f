// The question about disk space before a transfer: Retry measures again, Cancel stops, Continue
// goes on at the user's risk, and an unset destination is told as such.
#include <gtest/gtest.h>

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/checks/DiskSpaceCheck.h"

namespace igd::test {
namespace {

enum Button { kRetry, kCancel, kContinue };

// A disk whose answers are scripted: each measure takes the next, and enough space is the answer
// once the script runs out.
class ScriptedDisk {
public:
    struct Shortage {
        Fnd::WString destination;
        std::uint64_t missingBytes;
    };

    void QueueShortage(Fnd::WString destination, std::uint64_t missingBytes) {
        shortages_.push_back({std::move(destination), missingBytes});
    }

    IGD::SpaceTest Measure() {
        return [this](const std::vector<Fnd::WString>& sources, const std::vector<Fnd::WString>& bases,
                      Fnd::WString& failing, std::uint64_t& missing) {
            ++measures;
            seenSources = sources;
            seenBases = bases;
            if (shortages_.empty())
                return true;
            failing = shortages_.front().destination;
            missing = shortages_.front().missingBytes;
            shortages_.pop_front();
            return false;
        };
    }

    int measures = 0;
    std::vector<Fnd::WString> seenSources;
    std::vector<Fnd::WString> seenBases;

private:
    std::deque<Shortage> shortages_;
};

class DiskSpaceTest : public PlanTest {
protected:
    bool Check() { return IGD::CheckDiskSpace(sources_, bases_, disk.Measure()); }

    static std::string ShortOf(const std::string& path, const std::string& amount) {
        return "Clip Copy: There is not enough space to transfer to " + path +
               ". Please change the destination or release about " + amount + " space.";
    }

    ScriptedDisk disk;
    const std::vector<Fnd::WString> sources_{u"/media/card/A001.MOV", u"/media/card/A002.MOV"};
    const std::vector<Fnd::WString> bases_{u"/mnt/raid", u"/mnt/shuttle"};
};

TEST_F(DiskSpaceTest, TheQuestionOffersRetryCancelContinueWithCancelTheDefaultAndContinueGoesOn) {
    // Enough space asks nothing, and the given paths are measured once.
    EXPECT_TRUE(Check());
    EXPECT_TRUE(ui->Boxes().empty());
    EXPECT_EQ(disk.seenSources, sources_);
    EXPECT_EQ(disk.seenBases, bases_);

    disk.QueueShortage(u"/mnt/shuttle//day1/..", 3ull << 30);
    ui->QueueBoxAnswer(kCancel);

    EXPECT_FALSE(Check());
    ASSERT_EQ(ui->Boxes().size(), 1u);
    const Fnd::MessageBoxRequest& box = ui->Boxes()[0];
    EXPECT_EQ(box.buttons, (std::vector<Fnd::WString>{u"Retry", u"Cancel", u"Continue"}));
    EXPECT_EQ(box.defaultButton, kCancel);
    // The path as the user knows it, the amount as a person reads it.
    EXPECT_EQ(BoxTexts(), std::vector<std::string>{ShortOf("/mnt/shuttle", "3.0 GB")});
    EXPECT_EQ(disk.measures, 2);

    // Continue goes on without the space.
    disk.QueueShortage(u"/mnt/raid", 1536);
    ui->QueueBoxAnswer(kContinue);
    EXPECT_TRUE(Check());
    EXPECT_EQ(BoxTexts().back(), ShortOf("/mnt/raid", "1.5 KB"));
    EXPECT_EQ(disk.measures, 3);
}

// Retry measures again and asks again about whatever is still short, for as long as the user
// retries; the first measure that fits ends the check without another box.
TEST_F(DiskSpaceTest, RetryMeasuresAgainUntilItFitsOrTheUserDecides) {
    disk.QueueShortage(u"/mnt/raid", 5ull << 20);
    disk.QueueShortage(u"/mnt/shuttle", 512);
    disk.QueueShortage(u"/mnt/shuttle", 100);
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(kRetry);

    EXPECT_TRUE(Check());
    EXPECT_EQ(disk.measures, 4);
    EXPECT_EQ(BoxTexts(),
              (std::vector<std::string>{ShortOf("/mnt/raid", "5.0 MB"), ShortOf("/mnt/shuttle", "512 bytes"),
                                        ShortOf("/mnt/shuttle", "100 bytes")}));

    disk.QueueShortage(u"/mnt/raid", 10);
    disk.QueueShortage(u"/mnt/raid", 10);
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(kCancel);
    EXPECT_FALSE(Check());
    EXPECT_EQ(disk.measures, 6);
}

TEST_F(DiskSpaceTest, AnUnsetDestinationIsToldAndNotRetried) {
    disk.QueueShortage(u"", 0);
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Check());
    EXPECT_EQ(BoxTexts(),
              std::vector<std::string>{"Destination path is not set: Please specify the destination path."});
    EXPECT_EQ(ui->Boxes()[0].buttons.size(), 1u);

    // The same after a retry found the destination gone.
    disk.QueueShortage(u"/mnt/raid", 10);
    disk.QueueShortage(u"", 0);
    ui->QueueBoxAnswer(kRetry);
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(Check());
    EXPECT_EQ(ui->Boxes().size(), 3u);
    EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().title), "Destination path is not set");
}

} // namespace
} // namespace igd::test
