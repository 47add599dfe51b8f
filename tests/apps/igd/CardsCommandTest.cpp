#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "platform/media/CardTrees.h"
#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

std::string ReadWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

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

TEST(CardsCommandTest, CardsNamedTogetherListARecordingOverBothOnce) {
    TempTree tree;
    MakeSpannedP2Cards(tree, "SHOOT/CARD1", "SHOOT/CARD2");
    const CommandRun run = RunIgd("cards " + ShellQuote(tree.NativePath("SHOOT/CARD1")) + " " +
                                  ShellQuote(tree.NativePath("SHOOT/CARD2")));
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_NE(run.output.find("000A01  (P2, 6 files)"), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("    " + tree.NativePath("SHOOT/CARD2/CONTENTS/VIDEO/000B01.MXF")),
              std::string::npos);
    EXPECT_EQ(run.output.find("000B01  ("), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("No clips of its own in " + tree.NativePath("SHOOT/CARD2")), std::string::npos)
        << run.output;

    const CommandRun alone = RunIgd("cards " + ShellQuote(tree.NativePath("SHOOT/CARD2")));
    EXPECT_NE(alone.output.find("000B01  (P2, 3 files)"), std::string::npos) << alone.output;
}

// One ingest of both cards: the recording is one project item, and each card's files land under
// that card's own folder.
TEST(CardsCommandTest, IngestOfTwoCardsCopiesTheJoinedRecordingAsOneItem) {
    TempTree tree;
    MakeSpannedP2Cards(tree, "SHOOT/CARD1", "SHOOT/CARD2");
    const std::string home = tree.NativePath("home");
    const CommandRun run =
        RunIgd("ingest " + ShellQuote(tree.NativePath("SHOOT/CARD1")) + " " +
                   ShellQuote(tree.NativePath("SHOOT/CARD2")) + " --to " + ShellQuote(tree.NativePath("X")),
               home);
    ASSERT_EQ(run.exitCode, 0) << run.output;
    for (const std::string file : {"CARD1/CONTENTS/VIDEO/000A01.MXF", "CARD1/CONTENTS/AUDIO/000A0100.MXF",
                                   "CARD2/CONTENTS/VIDEO/000B01.MXF", "CARD2/CONTENTS/AUDIO/000B0100.MXF"})
        EXPECT_EQ(ReadWholeFile(tree.NativePath("X/" + file)), "SHOOT/" + file) << file;

    const CommandRun project = RunIgd("project ls --json", home);
    EXPECT_EQ(project.exitCode, 0) << project.output;
    std::size_t items = 0;
    for (std::size_t at = project.output.find("\"clipGuid\":"); at != std::string::npos;
         at = project.output.find("\"clipGuid\":", at + 1))
        ++items;
    EXPECT_EQ(items, 1u) << project.output;
    EXPECT_NE(project.output.find("{\"name\":\"000A01"), std::string::npos) << project.output;
    EXPECT_NE(project.output.find("\"path\":\"" + tree.NativePath("X/CARD1/CONTENTS/VIDEO/000A01.MXF")),
              std::string::npos)
        << project.output;
    EXPECT_NE(project.output.find(tree.NativePath("X/CARD2/CONTENTS/AUDIO/000B0100.MXF")), std::string::npos)
        << "the second card's files are the item's own";
}

} // namespace
} // namespace igd::test
