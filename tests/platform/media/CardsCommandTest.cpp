#include <gtest/gtest.h>

#include "CardTrees.h"
#include "support/IgdCommand.h"

namespace igd::test {
namespace {

TEST(CardsCommandTest, ListsEachClipWithItsFamilyAndFiles) {
    TempTree tree;
    MakeFiles(tree, {"CARD/DCIM/100GOPRO/GH010042.MP4", "CARD/DCIM/100GOPRO/GH020042.MP4",
                     "CARD/PRIVATE/M4ROOT/MEDIAPRO.XML", "CARD/PRIVATE/M4ROOT/CLIP/C0001.MP4"});
    const CommandRun run = RunIgd("cards " + ShellQuote(tree.NativePath("CARD")));
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_NE(run.output.find("GH010042  (GoPro, 2 files)"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("C0001  (XAVCS, 1 file)"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find(tree.NativePath("CARD/DCIM/100GOPRO/GH020042.MP4")), std::string::npos);
}

TEST(CardsCommandTest, PrintsJsonForScripts) {
    TempTree tree;
    MakeFiles(tree, {"CARD/DCIM/100MEDIA/DJI_0001.MP4", "CARD/DCIM/100MEDIA/DJI_0001.SRT"});
    const CommandRun run = RunIgd("cards --json " + ShellQuote(tree.NativePath("CARD")));
    EXPECT_EQ(run.exitCode, 0) << run.output;
    const std::string media = tree.NativePath("CARD/DCIM/100MEDIA/DJI_0001.MP4");
    const std::string srt = tree.NativePath("CARD/DCIM/100MEDIA/DJI_0001.SRT");
    EXPECT_NE(run.output.find("{\"name\": \"DJI_0001\", \"family\": \"DJI\", \"provider\": "
                              "\"com.veltrix.Kestrel.ProviderDJI\", \"media\": \"" +
                              media + "\", \"files\": [\"" + media + "\", \"" + srt + "\"]}"),
              std::string::npos)
        << run.output;
}

TEST(CardsCommandTest, SaysSoWhenThereIsNoCardOrNoFolder) {
    TempTree tree;
    tree.MakeFile("plain/A001.MOV");
    const CommandRun empty = RunIgd("cards " + ShellQuote(tree.NativePath("plain")));
    EXPECT_EQ(empty.exitCode, 0);
    EXPECT_NE(empty.output.find("No camera card structure"), std::string::npos) << empty.output;
    const CommandRun missing = RunIgd("cards " + ShellQuote(tree.NativePath("nowhere")));
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_NE(missing.output.find("is not a folder"), std::string::npos) << missing.output;
}

} // namespace
} // namespace igd::test
