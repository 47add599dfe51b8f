// `igd plan` as a user runs it: what a direct request of the paths named would submit.
#include <gtest/gtest.h>

#include <string>

#include "apps/igd/IgdCommand.h"
#include "platform/media/CardTrees.h"

namespace igd::test {
namespace {

using PlanCommandTest = IgdCommandTest;

std::size_t Count(const std::string& text, const std::string& part) {
    std::size_t count = 0;
    for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

// Every path is named as the shell gives it, and each file is listed once, as it is copied once.
TEST_F(PlanCommandTest, LaterPathsAreTheUsersAndEachFileIsListedOnce) {
    MakeFiles(tree, {"src/A001.MOV", "src/sub/B002.MOV"});
    tree.MakeFolder("out");
    const Ran run = RunIgd({"plan", Native("src/A001.MOV"), Native("src/sub/B002.MOV"), "--to", Native("out")});
    EXPECT_EQ(run.exitCode, 0) << run.Said();
    EXPECT_EQ(Count(run.out, "  copy " + Native("src/A001.MOV") + " -> " + Native("out/A001.MOV") + " [new]"), 1u)
        << run.out;
    EXPECT_EQ(Count(run.out, "  copy " + Native("src/sub/B002.MOV") + " -> " + Native("out/sub/B002.MOV")), 1u)
        << run.out;
    EXPECT_NE(run.out.find("  import " + Native("out/A001.MOV") + " as \"A001.MOV\"\n"), std::string::npos);
}

// A later chapter of a recording names the recording: one item, by its first chapter's file.
TEST_F(PlanCommandTest, AChapterOfARecordingGivesTheWholeClip) {
    MakeFiles(tree, {"CARD/DCIM/100GOPRO/GH010042.MP4", "CARD/DCIM/100GOPRO/GH020042.MP4"});
    const Ran run = RunIgd({"plan", Native("CARD/DCIM/100GOPRO/GH020042.MP4")});
    EXPECT_EQ(run.exitCode, 0) << run.Said();
    EXPECT_NE(run.out.find("  import " + Native("CARD/DCIM/100GOPRO/GH010042.MP4") +
                           " as \"GH010042.MP4\" with 1 side file(s)\n"),
              std::string::npos)
        << run.out;
    EXPECT_EQ(Count(run.out, "  import "), 1u) << run.out;
}

} // namespace
} // namespace igd::test
