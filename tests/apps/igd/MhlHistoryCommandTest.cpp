// The chain of custody as a user meets it: an ingest leaves a valid history on every copy, and
// `igd verify` tells a good copy from a damaged one.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "Checksum/Checksum.h"
#include "Mhl/History.h"
#include "apps/igd/IgdCommand.h"
#include "support/MhlSchema.h"

namespace igd::test {
namespace {

namespace fs = std::filesystem;

class IgdMhlHistoryTest : public IgdCommandTest {
protected:
    std::vector<std::string> Generations(const std::string& ingested) {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(Native(ingested + "/ascmhl")))
            if (entry.path().extension() == ".mhl")
                names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(IgdMhlHistoryTest, AnIngestLeavesAValidHistoryThatVerifyChecksAndASecondIngestContinues) {
    MakeP2Card(/*withIcons=*/false);
    // Metadata sidecars are written after the copies: the history lists them as they stand.
    const Ran ingest = RunIgd({"ingest", Native("SHOOT/CARD01"), "--to", Native("main"), "--to", Native("backup"),
                               "--metadata-preset", "Production", "--set", "scene=12", "--set", "take=3"});
    ASSERT_EQ(ingest.exitCode, 0) << ingest.Said();

    for (const std::string destination : {"main/CARD01", "backup/CARD01"}) {
        const std::vector<std::string> names = Generations(destination);
        ASSERT_EQ(names.size(), 1u) << destination;
        EXPECT_TRUE(names[0].starts_with("0001_CARD01_") && names[0].ends_with("Z.mhl")) << names[0];
        EXPECT_EQ(GenerationSchemaErrors(Native(destination + "/ascmhl/" + names[0])), "");
        EXPECT_EQ(ChainSchemaErrors(Native(destination + "/ascmhl/ascmhl_chain.xml")), "");
        std::string error;
        const auto history = Mhl::History::Load(Native(destination), error);
        ASSERT_TRUE(history) << error;
        const Mhl::ListedFile* video = history->Find("CONTENTS/VIDEO/0001AB.MXF");
        ASSERT_NE(video, nullptr) << destination;
        EXPECT_EQ(*video->hash.size, 12u);
        EXPECT_EQ(video->hash.digests[0].action, "original");
        EXPECT_EQ(video->hash.digests[0].value,
                  Checksum::DigestHex(Checksum::Algorithm::Md5, "video 0001AB", 12));
    }

    // One byte of one copy flipped: that copy names the file, the other still matches.
    {
        std::fstream video(Native("backup/CARD01/CONTENTS/AUDIO/0002AB00.MXF"), std::ios::in | std::ios::out);
        video.seekp(3);
        video.put('X');
    }
    const Ran damaged = RunIgd({"verify", Native("backup/CARD01")});
    EXPECT_EQ(damaged.exitCode, 1) << damaged.Said();
    EXPECT_NE(damaged.out.find("altered  CONTENTS/AUDIO/0002AB00.MXF"), std::string::npos) << damaged.out;
    const Ran good = RunIgd({"verify", Native("main/CARD01"), "--json"});
    EXPECT_EQ(good.exitCode, 0) << good.Said();
    // Six clip files and the two clips' sidecars.
    EXPECT_NE(good.out.find("\"matched\":8,\"altered\":[]"), std::string::npos) << good.out;

    // The same card again into the same place, kept as it stands: the history goes on.
    const Ran again =
        RunIgd({"ingest", Native("SHOOT/CARD01"), "--to", Native("main"), "--on-conflict", "skip"});
    ASSERT_EQ(again.exitCode, 0) << again.Said();
    const std::vector<std::string> names = Generations("main/CARD01");
    ASSERT_EQ(names.size(), 2u);
    EXPECT_TRUE(names[1].starts_with("0002_CARD01_")) << names[1];
    EXPECT_EQ(GenerationSchemaErrors(Native("main/CARD01/ascmhl/" + names[1])), "");
    EXPECT_EQ(ChainSchemaErrors(Native("main/CARD01/ascmhl/ascmhl_chain.xml")), "");
    std::string error;
    const auto history = Mhl::History::Load(Native("main/CARD01"), error);
    EXPECT_EQ(history->Find("CONTENTS/CLIP/0001AB.XML")->hash.digests[0].action, "verified");
}

TEST_F(IgdMhlHistoryTest, VerifyRecordsWhatItFoundAndRefusesWhatItCannotCheck) {
    tree.MakeFile("Footage/a.mov", "aaaa");
    ASSERT_EQ(RunIgd({"ingest", Native("Footage"), "--to", Native("main"), "--verify", "size"}).exitCode, 0);
    tree.MakeFile("main/Footage/late.mov", "late");

    const Ran recorded = RunIgd({"verify", Native("main/Footage"), "--record"});
    EXPECT_EQ(recorded.exitCode, 1) << recorded.Said();
    EXPECT_NE(recorded.out.find("new  late.mov"), std::string::npos) << recorded.out;
    const std::vector<std::string> names = Generations("main/Footage");
    ASSERT_EQ(names.size(), 2u);
    EXPECT_EQ(GenerationSchemaErrors(Native("main/Footage/ascmhl/" + names[1])), "");
    // Recorded, the new file is part of the history: the folder matches it now.
    EXPECT_EQ(RunIgd({"verify", Native("main/Footage")}).exitCode, 0);

    const Ran noHistory = RunIgd({"verify", Native("Footage")});
    EXPECT_EQ(noHistory.exitCode, 1);
    EXPECT_NE(noHistory.err.find("no ASC MHL history"), std::string::npos) << noHistory.err;
    EXPECT_EQ(RunIgd({"verify", Native("nothing here")}).exitCode, 2);
    EXPECT_EQ(RunIgd({"verify"}).exitCode, 2);
}

TEST_F(IgdMhlHistoryTest, ASourceThatNoLongerMatchesItsHistoryFailsThatFileAndTheHistoryTravels) {
    tree.MakeFile("Shuttle/a.mov", "aaaa");
    tree.MakeFile("Shuttle/b.mov", "bbbb");
    ASSERT_EQ(RunIgd({"ingest", Native("Shuttle"), "--to", Native("first")}).exitCode, 0);
    // The shuttle drive, with the history its first copy left, is offloaded again after b changed.
    fs::copy(Native("first/Shuttle/ascmhl"), Native("Shuttle/ascmhl"));
    tree.MakeFile("Shuttle/b.mov", "BBBB");

    const Ran ingest = RunIgd({"ingest", Native("Shuttle"), "--to", Native("second")});
    EXPECT_EQ(ingest.exitCode, 1) << ingest.Said();
    EXPECT_NE(ingest.Said().find("b.mov"), std::string::npos);
    EXPECT_NE(ingest.Said().find("ASC MHL"), std::string::npos) << ingest.Said();
    EXPECT_FALSE(fs::exists(Native("second/Shuttle/b.mov")));
    EXPECT_TRUE(fs::exists(Native("second/Shuttle/a.mov")));
    const std::vector<std::string> names = Generations("second/Shuttle");
    ASSERT_EQ(names.size(), 2u) << "the shuttle's generation, then this copy's";
    EXPECT_TRUE(names[1].starts_with("0002_Shuttle_")) << names[1];
}

} // namespace
} // namespace igd::test
