// Where a copy task's history is kept, for each way media lands in a destination.
#include <gtest/gtest.h>

#include "platform/tasks/engine/src/IngestedFolder.h"

namespace igd::test {
namespace {

using QL::Engine::IngestedFolderOf;

TEST(IngestedFolder, IsTheCardsFolderTheSubfolderOrTheDestinationRoot) {
    struct Case {
        const char* what;
        std::vector<std::string> sources, targets;
        std::string target, source;
    } cases[] = {
        {"a card, into a subfolder",
         {"/m/SHOOT/CARD01/CONTENTS/VIDEO/A.MXF", "/m/SHOOT/CARD01/LASTCLIP.TXT"},
         {"/d/Day1/CARD01/CONTENTS/VIDEO/A.MXF", "/d/Day1/CARD01/LASTCLIP.TXT"},
         "/d/Day1/CARD01",
         "/m/SHOOT/CARD01"},
        {"one clip of a card",
         {"/m/CARD01/CONTENTS/VIDEO/A.MXF", "/m/CARD01/CONTENTS/AUDIO/A00.MXF"},
         {"/d/CARD01/CONTENTS/VIDEO/A.MXF", "/d/CARD01/CONTENTS/AUDIO/A00.MXF"},
         "/d/CARD01",
         "/m/CARD01"},
        {"a folder with its own record", {"/m/F/.", "/m/F/a.mov"}, {"/d/F/.", "/d/F/a.mov"}, "/d/F", "/m/F"},
        {"a file, renamed", {"/m/x/clip.mov"}, {"/d/Day1/A001.mov"}, "/d/Day1", ""},
        {"cards side by side",
         {"/r/C1/DCIM/a.MOV", "/r/C2/DCIM/b.MOV"},
         {"/d/C1/DCIM/a.MOV", "/d/C2/DCIM/b.MOV"},
         "/d",
         ""},
    };
    for (const Case& c : cases) {
        const auto found = IngestedFolderOf(c.sources, c.targets);
        EXPECT_EQ(found.target, c.target) << c.what;
        EXPECT_EQ(found.source, c.source) << c.what;
    }
}

} // namespace
} // namespace igd::test
