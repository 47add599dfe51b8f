// `igd cards` and an ingest of cards as a user runs them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/igd/IgdCommand.h"
#include "platform/media/CardTrees.h"
#include "support/HostileXml.h"

namespace igd::test {
namespace {

using CardsCommandTest = IgdCommandTest;

TEST_F(CardsCommandTest, ListsEachClipWithItsFamilyAndFilesOrSaysThereIsNone) {
    MakeFiles(tree, {"CARD/DCIM/100GOPRO/GH010042.MP4", "CARD/DCIM/100GOPRO/GH020042.MP4",
                     "CARD/PRIVATE/M4ROOT/MEDIAPRO.XML", "CARD/PRIVATE/M4ROOT/CLIP/C0001.MP4"});
    const Ran run = RunIgd({"cards", Native("CARD")});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("GH010042  (GoPro, 2 files)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("C0001  (XAVCS, 1 file)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find(Native("CARD/DCIM/100GOPRO/GH020042.MP4")), std::string::npos);

    tree.MakeFile("plain/A001.MOV");
    const Ran empty = RunIgd({"cards", Native("plain")});
    EXPECT_EQ(empty.exitCode, 0);
    EXPECT_NE(empty.out.find("No camera card structure"), std::string::npos) << empty.out;
}

TEST_F(CardsCommandTest, PrintsJsonForScripts) {
    MakeFiles(tree, {"CARD/DCIM/100MEDIA/DJI_0001.MP4", "CARD/DCIM/100MEDIA/DJI_0001.SRT"});
    const Ran run = RunIgd({"cards", "--json", Native("CARD")});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    const std::string media = Native("CARD/DCIM/100MEDIA/DJI_0001.MP4");
    const std::string srt = Native("CARD/DCIM/100MEDIA/DJI_0001.SRT");
    EXPECT_NE(run.out.find("{\"name\": \"DJI_0001\", \"family\": \"DJI\", \"provider\": "
                           "\"com.veltrix.Kestrel.ProviderDJI\", \"media\": \"" +
                           media + "\", \"files\": [\"" + media + "\", \"" + srt + "\"]}"),
              std::string::npos)
        << run.out;
}

TEST_F(CardsCommandTest, CardsNamedTogetherListARecordingOverBothOnce) {
    MakeSpannedP2Cards(tree, "SHOOT/CARD1", "SHOOT/CARD2");
    const Ran run = RunIgd({"cards", Native("SHOOT/CARD1"), Native("SHOOT/CARD2")});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_NE(run.out.find("000A01  (P2, 6 files)"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("    " + Native("SHOOT/CARD2/CONTENTS/VIDEO/000B01.MXF")), std::string::npos);
    EXPECT_EQ(run.out.find("000B01  ("), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("No clips of its own in " + Native("SHOOT/CARD2")), std::string::npos) << run.out;

    const Ran alone = RunIgd({"cards", Native("SHOOT/CARD2")});
    EXPECT_NE(alone.out.find("000B01  (P2, 3 files)"), std::string::npos) << alone.out;
}

// One ingest of both cards: the recording is one project item, and each card's files land under
// that card's own folder.
TEST_F(CardsCommandTest, IngestOfTwoCardsCopiesTheJoinedRecordingAsOneItem) {
    MakeSpannedP2Cards(tree, "SHOOT/CARD1", "SHOOT/CARD2");
    const Ran run = RunIgd({"ingest", Native("SHOOT/CARD1"), Native("SHOOT/CARD2"), "--to", Native("X")});
    ASSERT_EQ(run.exitCode, 0) << run.out << run.err;
    for (const std::string file : {"CARD1/CONTENTS/VIDEO/000A01.MXF", "CARD1/CONTENTS/AUDIO/000A0100.MXF",
                                   "CARD2/CONTENTS/VIDEO/000B01.MXF", "CARD2/CONTENTS/AUDIO/000B0100.MXF"})
        EXPECT_EQ(ReadFileBytes(Native("X/" + file)), "SHOOT/" + file) << file;

    const std::string project = RunIgd({"project", "ls", "--json"}).out;
    std::size_t items = 0;
    for (std::size_t at = project.find("\"clipGuid\":"); at != std::string::npos;
         at = project.find("\"clipGuid\":", at + 1))
        ++items;
    EXPECT_EQ(items, 1u) << project;
    EXPECT_NE(project.find("{\"name\":\"000A01"), std::string::npos) << project;
    EXPECT_NE(project.find("\"path\":\"" + Native("X/CARD1/CONTENTS/VIDEO/000A01.MXF")), std::string::npos)
        << project;
    EXPECT_NE(project.find(Native("X/CARD2/CONTENTS/AUDIO/000B0100.MXF")), std::string::npos)
        << "the second card's files are the item's own";
}

// The clip files a hostile user planted beside a good one: neither command crashes, hangs, reads the
// secret file or fetches anything; both name each refused clip file and still list the good clip.
TEST_F(CardsCommandTest, HostileClipFilesAreNamedAndTheCardsOtherClipsListed) {
    const HostileXmlWorld world;
    const std::vector<HostileXml> hostile = world.Documents([](const std::string& doctype, const std::string& text) {
        return doctype + "<P2Main><ClipContent><ClipMetadata><UserClipName>" + text +
               "</UserClipName></ClipMetadata></ClipContent></P2Main>";
    });
    const auto clipFile = [](std::size_t i) { return "C/CONTENTS/CLIP/00000" + std::to_string(i) + ".XML"; };
    for (std::size_t i = 0; i <= hostile.size(); ++i) {
        tree.MakeFile(clipFile(i), i < hostile.size() ? hostile[i].xml : P2ClipXml("G", {}, {}, {}, 0, "Good"));
        tree.MakeFile("C/CONTENTS/VIDEO/00000" + std::to_string(i) + ".MXF", std::to_string(i));
    }

    const Ran cards = RunIgd({"cards", Native("C")});
    const Ran ingest = RunIgd({"ingest", Native("C"), "--to", Native("X")});
    const Ran project = RunIgd({"project", "ls", "--json"});
    for (const Ran& run : {cards, ingest}) {
        EXPECT_EQ(run.exitCode, 1) << run.Said();
        for (std::size_t i = 0; i < hostile.size(); ++i) {
            SCOPED_TRACE(hostile[i].what);
            const std::size_t named = run.err.find(Native(clipFile(i)) + " was refused: line 1");
            ASSERT_NE(named, std::string::npos) << run.err;
            const std::string line = run.err.substr(named, run.err.find('\n', named) - named);
            EXPECT_NE(line.find(hostile[i].reason), std::string::npos) << line;
        }
        EXPECT_EQ((run.Said() + project.out).find(HostileXmlWorld::kSecret), std::string::npos);
    }
    EXPECT_FALSE(world.WasFetched());
    EXPECT_NE(cards.out.find("Good  (P2, 2 files)"), std::string::npos) << cards.out;
    EXPECT_EQ(cards.out.find("000000"), std::string::npos) << cards.out;
    EXPECT_NE(project.out.find("\"extraPaths\":[\"" + Native("X/" + clipFile(hostile.size()))), std::string::npos)
        << project.out;
    // The media of a refused clip is no clip's, and is copied as any other file of the card.
    for (std::size_t i : {std::size_t{0}, hostile.size()})
        EXPECT_EQ(ReadFileBytes(Native("X/C/CONTENTS/VIDEO/00000" + std::to_string(i) + ".MXF")), std::to_string(i));
}

} // namespace
} // namespace igd::test
