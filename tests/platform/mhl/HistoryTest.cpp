// Histories as written and read back: every file valid by the schemas, chains that name each
// generation by its C4 id, and histories another tool wrote.
#include <gtest/gtest.h>

#include <filesystem>

#include "Fnd/WString.h"
#include "Mhl/C4Id.h"
#include "Mhl/GenerationXml.h"
#include "Mhl/History.h"
#include "support/HostileXml.h"
#include "support/MhlSchema.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

namespace fs = std::filesystem;

// Written as other tools write: a prefix, a root hash, directory hashes, metadata, references,
// two formats on one file, and a chain entry under a name of its own.
constexpr char kOtherToolGeneration[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<a:hashlist version="2.0" xmlns:a="urn:ASC:MHL:v2.0">
  <a:creatorinfo>
    <a:creationdate>2023-02-03T10:00:00+01:00</a:creationdate>
    <a:hostname>cart-2</a:hostname>
    <a:tool version="7.1">offload-station</a:tool>
    <a:author email="dit@example.org" role="DIT">Ada</a:author>
    <a:location>Stage 4</a:location>
  </a:creatorinfo>
  <a:processinfo>
    <a:process>in-place</a:process>
    <a:roothash>
      <a:content><a:xxh64>0000000000000001</a:xxh64></a:content>
      <a:structure><a:xxh64>0000000000000002</a:xxh64></a:structure>
    </a:roothash>
    <a:ignore><a:pattern>*.DS_Store</a:pattern><a:pattern>/cache</a:pattern></a:ignore>
  </a:processinfo>
  <a:hashes>
    <a:hash>
      <a:path size="6" lastmodificationdate="2023-02-03T09:00:00+01:00">Clips/A001 &amp; B.mov</a:path>
      <a:md5 action="original">00112233445566778899aabbccddeeff</a:md5>
      <a:xxh64 action="original">0123456789abcdef</a:xxh64>
      <a:metadata><a:note>first</a:note></a:metadata>
    </a:hash>
    <a:directoryhash>
      <a:path>Clips/</a:path>
      <a:content><a:xxh64>1111111111111111</a:xxh64></a:content>
      <a:structure><a:xxh64>2222222222222222</a:xxh64></a:structure>
    </a:directoryhash>
    <a:hash>
      <a:path>Sound.wav</a:path>
      <a:sha1 action="original">da39a3ee5e6b4b0d3255bfef95601890afd80709</a:sha1>
    </a:hash>
  </a:hashes>
  <a:references>
    <a:hashlistreference><a:path>B/ascmhl/0001_B.mhl</a:path><a:c4>c4x</a:c4></a:hashlistreference>
  </a:references>
</a:hashlist>
)";

class MhlHistoryTest : public ::testing::Test {
protected:
    std::string Root() const { return tree.NativePath("card"); }
    std::string HistoryFile(const std::string& name) const { return Root() + "/ascmhl/" + name; }

    static Mhl::Generation Sample(const std::string& path, const std::string& digest) {
        Mhl::Generation generation = Mhl::NewGeneration("transfer", 1700000000, 1700000060);
        generation.ignorePatterns = {"ascmhl", "*.tmp"};
        generation.hashes.push_back({path, 6, "2023-11-14T22:13:20Z", {{"xxh128", digest, "original"}}});
        return generation;
    }

    TempTree tree;
};

TEST_F(MhlHistoryTest, GenerationsAndTheirChainAreValidAndNamedInOrder) {
    tree.MakeFolder("card");
    Mhl::Generation first = Sample("CONTENTS/VIDEO/0001AB.MXF", "0123456789abcdef0123456789abcdef");
    // Every format in one hash, given out of the schema's order; names XML must escape.
    first.hashes.push_back({"a <b> & \"c\".mov",
                            std::nullopt,
                            "",
                            {{"xxh64", "0123456789abcdef", "original"},
                             {"c4", Mhl::C4IdOf("x"), "original"},
                             {"md5", "00112233445566778899aabbccddeeff", ""},
                             {"xxh3", "0011223344556677", "verified"},
                             {"xxh128", "00", "failed"}}});
    const std::string firstName = Mhl::AppendGeneration(Root(), first, 1700000070);
    EXPECT_EQ(firstName, "0001_card_2023-11-14_221430Z.mhl");
    const std::string firstBytes = ReadFileBytes(HistoryFile(firstName));
    const std::string secondName = Mhl::AppendGeneration(Root(), Sample("x.mov", "ff"), 1700003600);
    EXPECT_EQ(secondName, "0002_card_2023-11-14_231320Z.mhl");

    for (const std::string& name : {firstName, secondName})
        EXPECT_EQ(GenerationSchemaErrors(HistoryFile(name)), "") << name;
    EXPECT_EQ(ChainSchemaErrors(HistoryFile(Mhl::kChainFileName)), "");
    tree.MakeFile("card/wrong.mhl",
                  "<hashlist version='2.0' xmlns='urn:ASC:MHL:v2.0'><processinfo/></hashlist>");
    EXPECT_NE(GenerationSchemaErrors(HistoryFile("../wrong.mhl")), "")
        << "the validator must be able to refuse";
    EXPECT_EQ(ReadFileBytes(HistoryFile(firstName)), firstBytes) << "a generation is never rewritten";

    std::string error;
    const auto chain = Mhl::ReadChainFile(HistoryFile(Mhl::kChainFileName), error);
    ASSERT_TRUE(chain) << error;
    ASSERT_EQ(chain->size(), 2u);
    EXPECT_EQ((*chain)[0].sequence, 1);
    EXPECT_EQ((*chain)[1].path, secondName);
    EXPECT_EQ((*chain)[0].c4, Mhl::C4IdOf(firstBytes));
    EXPECT_EQ((*chain)[1].c4, Mhl::C4IdOf(ReadFileBytes(HistoryFile(secondName))));

    const auto history = Mhl::History::Load(Root(), error);
    ASSERT_TRUE(history) << error;
    const Mhl::ListedFile* odd = history->Find("a <b> & \"c\".mov");
    ASSERT_NE(odd, nullptr);
    EXPECT_EQ(odd->hash.digests.size(), 5u);
    EXPECT_EQ(odd->generation, firstName);
    EXPECT_EQ(history->Find("x.mov")->generation, secondName);
    EXPECT_EQ(*history->Find("CONTENTS/VIDEO/0001AB.MXF")->hash.size, 6u);
}

TEST_F(MhlHistoryTest, NamesThatAreNoTextStillGiveAValidDocument) {
    tree.MakeFolder("card");
    const std::string name = Mhl::AppendGeneration(Root(), Sample("bad\xff\x01name.mov", "ab"), 1700000000);
    EXPECT_EQ(GenerationSchemaErrors(HistoryFile(name)), "");
}

TEST_F(MhlHistoryTest, AHistoryOfAnotherToolIsReadAndContinued) {
    tree.MakeFile("card/ascmhl/0001_card_2023-02-03_090000Z.mhl", kOtherToolGeneration);
    ASSERT_EQ(GenerationSchemaErrors(HistoryFile("0001_card_2023-02-03_090000Z.mhl")), "")
        << "the example must itself be valid";
    std::string error;
    const auto history = Mhl::History::Load(Root(), error);
    ASSERT_TRUE(history) << error;
    const Mhl::ListedFile* clip = history->Find("Clips/A001 & B.mov");
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(clip->hash.digests.size(), 2u);
    EXPECT_EQ(*clip->hash.size, 6u);
    EXPECT_NE(history->Find("Sound.wav"), nullptr);
    EXPECT_EQ(history->Files().size(), 2u) << "directory hashes are no files";
    EXPECT_EQ(history->IgnorePatterns(), (std::vector<std::string>{"*.DS_Store", "/cache"}));

    // Copied with the media, the history goes on in the destination, its first entry unchanged.
    tree.MakeFolder("copy/card");
    Mhl::CopyHistory(Root(), tree.NativePath("copy/card"));
    const std::string next =
        Mhl::AppendGeneration(tree.NativePath("copy/card"), Sample("a", "00"), 1700000000);
    EXPECT_TRUE(next.starts_with("0002_card_")) << next;
    const auto chain = Mhl::ReadChainFile(tree.NativePath("copy/card/ascmhl/ascmhl_chain.xml"), error);
    ASSERT_TRUE(chain) << error;
    ASSERT_EQ(chain->size(), 2u);
    EXPECT_EQ((*chain)[0].c4, Mhl::C4IdOf(kOtherToolGeneration));
}

TEST_F(MhlHistoryTest, AFailedCheckDoesNotBecomeWhatAFileShouldHashTo) {
    tree.MakeFolder("card");
    Mhl::AppendGeneration(Root(), Sample("a.mov", "aa"), 1700000000);
    Mhl::Generation check = Sample("a.mov", "bb");
    check.hashes[0].digests[0].action = Mhl::kActionFailed;
    Mhl::AppendGeneration(Root(), check, 1700000001);
    std::string error;
    const auto history = Mhl::History::Load(Root(), error);
    ASSERT_TRUE(history) << error;
    EXPECT_EQ(history->Find("a.mov")->hash.digests[0].value, "aa");
}

TEST_F(MhlHistoryTest, DocumentsThatAreNoHistoryAreRefusedWithTheirReason) {
    std::string error;
    EXPECT_FALSE(Mhl::ReadGeneration("<ascmhldirectory/>", error));
    EXPECT_NE(error.find("not an ASC MHL generation"), std::string::npos) << error;
    EXPECT_FALSE(Mhl::ReadGeneration(EntityBombDoctype("hashlist") + "<hashlist>&a10;</hashlist>", error));
    EXPECT_FALSE(Mhl::ReadGeneration(
        "<hashlist><hashes><hash><path size='-1'>a</path></hash></hashes></hashlist>", error));
    EXPECT_NE(error.find("size of a"), std::string::npos) << error;
    EXPECT_FALSE(
        Mhl::ReadChain("<ascmhldirectory><hashlist><path>a</path></hashlist></ascmhldirectory>", error));
    EXPECT_NE(error.find("sequence"), std::string::npos) << error;

    // An unreadable generation makes the whole history unreadable, never a shorter one.
    tree.MakeFile("card/ascmhl/0001_card.mhl", "<hashlist><hashes>");
    EXPECT_FALSE(Mhl::History::Load(Root(), error));
    EXPECT_NE(error.find("0001_card.mhl"), std::string::npos) << error;
}

} // namespace
} // namespace igd::test
