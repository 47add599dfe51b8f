// Symbolic links inside a destination, put there by someone else: nothing is created or written
// through them, whatever the conflict choice. The destination the user names may be a link.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

using IgdPlantedLinkTest = IgdCommandTest;

TEST_F(IgdPlantedLinkTest, NothingIsWrittenThroughALinkInsideADestination) {
    tree.MakeFile("shoot/A001.mov", "frames");
    tree.MakeFile("shoot/day2/A002.mov", "more frames");
    tree.MakeFolder("elsewhere");
    // A link where the copied folder goes, and one where a folder inside it goes.
    tree.MakeSymlink("main/shoot", "../elsewhere");
    tree.MakeFolder("backup/shoot");
    tree.MakeSymlink("backup/shoot/day2", "../../elsewhere");
    for (const std::string choice : {"keep-both", "replace", "skip"}) {
        SCOPED_TRACE(choice);
        const Ran ran = RunIgd({"ingest", Native("shoot"), "--to", Native("main"), "--to", Native("backup"),
                                "--on-conflict", choice});
        EXPECT_EQ(ran.exitCode, 1) << ran.Said();
        EXPECT_TRUE(std::filesystem::is_empty(Native("elsewhere")));
        if (choice != "skip") {
            EXPECT_NE(ran.out.find("failed  " + Native("shoot/A001.mov") + " -> " + Native("main/shoot/A001.mov") +
                                   ": destination folder is a symbolic link"),
                      std::string::npos)
                << ran.out;
            // Beside the link the copy goes on.
            EXPECT_EQ(ReadFileBytes(Native("backup/shoot/A001.mov")), "frames");
        }
    }
}

TEST_F(IgdPlantedLinkTest, ADestinationThatIsALinkIsWhereTheUserSentTheCopies) {
    tree.MakeFile("shoot/A001.mov", "frames");
    tree.MakeFolder("disk/ingest");
    tree.MakeSymlink("latest", "disk/ingest");
    const Ran ran = RunIgd({"ingest", Native("shoot"), "--to", Native("latest"), "--subfolder", "day1"});
    ASSERT_EQ(ran.exitCode, 0) << ran.Said();
    EXPECT_EQ(ReadFileBytes(Native("disk/ingest/day1/shoot/A001.mov")), "frames");
}

} // namespace
} // namespace igd::test
