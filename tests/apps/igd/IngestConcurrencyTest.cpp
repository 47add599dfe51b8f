// Several igd processes at once on one destination or one home: no item lost or doubled in the
// project, no copy overwriting another's, and a word where one waits for another.
#include <gtest/gtest.h>
#include <signal.h>

#include <filesystem>
#include <future>
#include <utility>
#include <string>
#include <vector>

#include "apps/igd/IgdCommand.h"
#include "Proj/Project.h"
#include "QL/Engine/FileCopier.h"

namespace igd::test {
namespace {

constexpr int kFiles = 300;

// Both read at once: the one that waits for the other must not wait for a reader as well.
std::pair<Ran, Ran> FinishBoth(IgdProcess& first, IgdProcess& second) {
    std::future<Ran> one = std::async(std::launch::async, [&first] { return Finish(first); });
    Ran two = Finish(second);
    return {one.get(), std::move(two)};
}

class IgdConcurrencyTest : public IgdCommandTest {
protected:
    void MakeShoot(const std::string& folder) {
        for (int i = 0; i < kFiles; ++i)
            tree.MakeFileOfSize(folder + "/C" + std::to_string(1000 + i) + ".MOV", 2000 + 37 * i);
    }
    // Every file of the shoot whole in the copy, and nothing else there but the folder.
    void ExpectWholeCopy(const std::string& shoot, const std::string& copy) {
        int files = 0;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Native(copy))) {
            const std::string name = entry.path().filename().string();
            EXPECT_FALSE(QL::Engine::FileCopier::IsTemporaryName(name)) << entry.path();
            if (entry.is_regular_file() && !InHistory(entry.path().string())) {
                ++files;
                EXPECT_EQ(ReadFileBytes(entry.path().string()), ReadFileBytes(Native(shoot + "/" + name))) << name;
            }
        }
        EXPECT_EQ(files, kFiles) << copy;
    }
    std::size_t ProjectItems() const { return Proj::Project::Open(home.ProjectPath())->Items().size(); }
};

TEST_F(IgdConcurrencyTest, TwoIngestsIntoOneDestinationTakeTurns) {
    MakeShoot("shoot");
    tree.MakeFolder("main");
    const std::vector<std::string> ingest{"ingest", Native("shoot"), "--to", Native("main"), "--on-conflict",
                                          "skip", "--json"};
    IgdProcess first(ingest);
    IgdProcess second(ingest);
    const auto [one, two] = FinishBoth(first, second);
    EXPECT_EQ(one.exitCode, 0) << one.err;
    EXPECT_EQ(two.exitCode, 0) << two.err;
    // One wrote everything, the other found it written: nothing failed for meeting the other.
    EXPECT_EQ(std::stoi(SummaryNumber(one.out, "filesCopied")) + std::stoi(SummaryNumber(two.out, "filesCopied")), kFiles);
    EXPECT_EQ(std::stoi(SummaryNumber(one.out, "filesSkipped")) + std::stoi(SummaryNumber(two.out, "filesSkipped")), kFiles);
    for (const std::string& err : {one.err, two.err}) {
        if (!err.empty()) {
            EXPECT_EQ(err, "igd: another igd is writing to " + Native("main") + "; waiting for it to finish\n");
        }
    }
    ExpectWholeCopy("shoot", "main");
    EXPECT_EQ(ProjectItems(), static_cast<std::size_t>(kFiles));
}

TEST_F(IgdConcurrencyTest, AnIngestStartedWhileAResumeRunsWaitsForIt) {
    MakeShoot("shoot");
    IgdProcess killed({"ingest", Native("shoot"), "--to", Native("main"), "--json"});
    std::string line;
    for (int copied = 0; copied < 40 && killed.ReadLine(line);)
        copied += line.find("\"status\":\"copied\"") != std::string::npos ? 1 : 0;
    killed.Signal(SIGKILL);
    killed.Wait();

    IgdProcess resume({"resume", "--json"});
    IgdProcess ingest({"ingest", Native("shoot"), "--to", Native("main"), "--on-conflict", "skip", "--json"});
    const auto [resumed, ingested] = FinishBoth(resume, ingest);
    EXPECT_EQ(resumed.exitCode, 0) << resumed.err;
    EXPECT_EQ(ingested.exitCode, 0) << ingested.err;
    EXPECT_EQ(SummaryNumber(ingested.out, "filesFailed"), "0");
    ExpectWholeCopy("shoot", "main");
    EXPECT_EQ(ProjectItems(), static_cast<std::size_t>(kFiles));
    EXPECT_EQ(RunIgd({"resume"}).out, "Nothing to resume.\n");
}

TEST_F(IgdConcurrencyTest, TwoIngestsSharingOneHomeEachImportAllTheirItems) {
    MakeShoot("day1");
    MakeShoot("day2");
    tree.MakeFolder("main");
    tree.MakeFolder("backup");
    IgdProcess first({"ingest", Native("day1"), "--to", Native("main"), "--json"});
    IgdProcess second({"ingest", Native("day2"), "--to", Native("backup"), "--json"});
    const auto [one, two] = FinishBoth(first, second);
    EXPECT_EQ(one.exitCode, 0) << one.err;
    EXPECT_EQ(two.exitCode, 0) << two.err;
    EXPECT_TRUE(one.err.empty() && two.err.empty()) << "folders side by side wait for nobody";
    ExpectWholeCopy("day1", "main");
    ExpectWholeCopy("day2", "backup");
    EXPECT_EQ(SummaryNumber(one.out, "itemsImported"), std::to_string(kFiles));
    EXPECT_EQ(SummaryNumber(two.out, "itemsImported"), std::to_string(kFiles));
    EXPECT_EQ(ProjectItems(), 2u * kFiles);
}

} // namespace
} // namespace igd::test
