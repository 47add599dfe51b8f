// Files of one `igd ingest` that meet at one target, and what the summary then says: every clash is
// settled by --on-conflict before anything is written, and the counts are what the disk and the
// project hold.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "apps/igd/IgdCommand.h"
#include "Proj/Project.h"

namespace igd::test {
namespace {

std::set<std::string> NamesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (!InHistory(entry.path().string()))
            names.insert(entry.path().filename().string());
    return names;
}

class IgdIngestClashTest : public IgdCommandTest {
protected:
    std::set<std::string> ItemPaths() const {
        std::set<std::string> paths;
        for (const Proj::ProjectItem& item : Proj::Project::Open(home.ProjectPath())->Items())
            paths.insert(Fnd::ToUTF8(item.path));
        return paths;
    }
    void InstallRenamePresetGivingOneName() {
        tree.MakeFile("Take.igdrename",
                      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<preset category=\"rename\" schema=\"igd.preset\" version=\"1\"><name>Take</name>"
                      "<field type=\"customText\" required=\"false\"><key></key><format>take</format></field>"
                      "</preset>");
        const Ran installed = RunIgd({"presets", "import", Native("Take.igdrename")});
        ASSERT_EQ(installed.exitCode, 0) << installed.Said();
    }
};

TEST_F(IgdIngestClashTest, TwoSourcesOfOneNameAreSettledByTheConflictChoice) {
    tree.MakeFile("a/clip.mov", "from a");
    tree.MakeFile("b/clip.mov", "from b, longer");
    struct Case {
        std::string choice;
        std::set<std::string> names;
        std::string bContent; // where b's copy went, if anywhere
        std::string copied, skipped;
    };
    for (const Case& c : {Case{"keep-both", {"clip.mov", "clip (1).mov"}, "clip (1).mov", "2", "0"},
                          Case{"skip", {"clip.mov"}, "", "1", "1"},
                          // Replacing a file of the same ingest would lose it: both are kept.
                          Case{"replace", {"clip.mov", "clip (1).mov"}, "clip (1).mov", "2", "0"}}) {
        SCOPED_TRACE(c.choice);
        const std::string out = Native("out-" + c.choice);
        const Ran ran = RunIgd({"ingest", Native("a/clip.mov"), Native("b/clip.mov"), "--to", out,
                                "--on-conflict", c.choice, "--json", "--project", out + ".igdproj"});
        EXPECT_EQ(ran.exitCode, 0) << ran.Said();
        EXPECT_EQ(NamesIn(out), c.names);
        EXPECT_EQ(ReadFileBytes(out + "/clip.mov"), "from a");
        if (!c.bContent.empty()) {
            EXPECT_EQ(ReadFileBytes(out + "/" + c.bContent), "from b, longer");
        }
        EXPECT_EQ(SummaryNumber(ran.out, "filesCopied"), c.copied);
        EXPECT_EQ(SummaryNumber(ran.out, "filesSkipped"), c.skipped);
        EXPECT_EQ(SummaryNumber(ran.out, "itemsImported"), std::to_string(c.names.size()));
        EXPECT_EQ(Proj::Project::Open(out + ".igdproj")->Items().size(), c.names.size());
    }
}

TEST_F(IgdIngestClashTest, ARenameGivingManyFilesOneNameLosesNoneAndCountsWhatTheProjectHolds) {
    InstallRenamePresetGivingOneName();
    std::vector<std::string> sources;
    for (int i = 1; i <= 6; ++i) {
        tree.MakeFileOfSize("card/f" + std::to_string(i) + ".mov", 64u << 10);
        sources.push_back(Native("card/f" + std::to_string(i) + ".mov"));
    }
    // Run a few times: copies of several sources are in flight together.
    for (int run = 0; run < 3; ++run) {
        SCOPED_TRACE(run);
        const std::string out = Native("out" + std::to_string(run));
        std::vector<std::string> arguments{"ingest"};
        arguments.insert(arguments.end(), sources.begin(), sources.end());
        arguments.insert(arguments.end(), {"--to", out, "--rename-preset", "Take", "--on-conflict", "keep-both",
                                           "--json", "--project", out + ".igdproj"});
        const Ran ran = RunIgd(arguments);
        ASSERT_EQ(ran.exitCode, 0) << ran.Said();
        EXPECT_EQ(NamesIn(out), (std::set<std::string>{"take.mov", "take (1).mov", "take (2).mov",
                                                       "take (3).mov", "take (4).mov", "take (5).mov"}));
        // Each source's copy is whole and under the name in plan order.
        EXPECT_EQ(ReadFileBytes(out + "/take.mov"), ReadFileBytes(sources[0]));
        EXPECT_EQ(ReadFileBytes(out + "/take (5).mov"), ReadFileBytes(sources[5]));
        EXPECT_EQ(SummaryNumber(ran.out, "itemsImported"), "6");
        EXPECT_EQ(Proj::Project::Open(out + ".igdproj")->Items().size(), 6u);
    }

    const Ran skipped = RunIgd({"ingest", sources[0], sources[1], sources[2], "--to", Native("skip"),
                                "--rename-preset", "Take", "--on-conflict", "skip", "--json"});
    ASSERT_EQ(skipped.exitCode, 0) << skipped.Said();
    EXPECT_EQ(NamesIn(Native("skip")), std::set<std::string>{"take.mov"});
    EXPECT_EQ(SummaryNumber(skipped.out, "filesSkipped"), "2");
    EXPECT_EQ(SummaryNumber(skipped.out, "itemsImported"), "1");
    EXPECT_EQ(ItemPaths(), std::set<std::string>{Native("skip/take.mov")});
}

} // namespace
} // namespace igd::test
