// `igd cards` and an ingest of cards as a user runs them.
#include <gtest/gtest.h>

#include <fstream>
#include <string>

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
    const Ran missing = RunIgd({"cards", Native("nowhere")});
    EXPECT_EQ(missing.exitCode, 2);
    EXPECT_EQ(missing.err, "igd cards: " + Native("nowhere") + " is not a folder\n");
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

// The clip files a hostile user planted: nested 50,000 deep, an entity bomb and an entity of a
// local file. Neither command crashes, hangs or reads the file; both name each refused clip file
// and still list the good clip.
TEST_F(CardsCommandTest, HostileClipFilesAreNamedAndTheCardsOtherClipsListed) {
    const std::string clips = "C/CONTENTS/CLIP/";
    tree.MakeFile(clips + "000001.XML", "<P2Main><ClipContent>" + DeeplyNestedElements() + "</ClipContent></P2Main>");
    const std::string named = "<P2Main><ClipContent><ClipMetadata><UserClipName>";
    const std::string end = "</UserClipName></ClipMetadata></ClipContent></P2Main>";
    tree.MakeFile(clips + "000002.XML", EntityBombDoctype("P2Main") + named + "&a10;" + end);
    tree.MakeFile(clips + "000003.XML",
                  "<!DOCTYPE P2Main [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>" + named + "&x;" + end);
    tree.MakeFile(clips + "000004.XML", P2ClipXml("G4", {}, {}, {}, 0, "Good"));
    for (const char* id : {"000001", "000002", "000003", "000004"})
        tree.MakeFile("C/CONTENTS/VIDEO/" + std::string(id) + ".MXF", id);
    std::string hostname;
    std::getline(std::ifstream("/etc/hostname"), hostname);

    const Ran cards = RunIgd({"cards", Native("C")});
    const Ran ingest = RunIgd({"ingest", Native("C"), "--to", Native("X")});
    const Ran project = RunIgd({"project", "ls", "--json"});
    for (const Ran& run : {cards, ingest}) {
        EXPECT_EQ(run.exitCode, 1) << run.Said();
        for (const char* id : {"000001", "000002", "000003"})
            EXPECT_NE(run.err.find(Native(clips + id + ".XML") + " was refused: line 1"),
                      std::string::npos)
                << run.err;
        if (hostname.size() > 3) {
            EXPECT_EQ((run.Said() + project.out).find(hostname), std::string::npos);
        }
    }
    EXPECT_NE(cards.out.find("Good  (P2, 2 files)"), std::string::npos) << cards.out;
    EXPECT_EQ(cards.out.find("000001"), std::string::npos) << cards.out;
    EXPECT_NE(cards.err.find("nest deeper than 256 levels"), std::string::npos) << cards.err;
    EXPECT_NE(project.out.find("\"extraPaths\":[\"" + Native("X/C/CONTENTS/CLIP/000004.XML")), std::string::npos)
        << project.out;
    // The media of a refused clip is no clip's, and is copied as any other file of the card.
    for (const char* id : {"000001", "000004"})
        EXPECT_EQ(ReadFileBytes(Native("X/C/CONTENTS/VIDEO/" + std::string(id) + ".MXF")), id);
}

} // namespace
} // namespace igd::test
