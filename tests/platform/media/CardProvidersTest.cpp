#include <gtest/gtest.h>

#include "Browse/ProviderRegistry.h"
#include "CardTrees.h"

namespace igd::test {
namespace {

std::vector<ClipView> Gather(const TempTree& tree, std::string_view card = "CARD") {
    return View(tree, Browse::ProviderRegistry::FindCardClips(tree.Path(card)));
}

std::vector<std::string> Families(const TempTree& tree, std::string_view card = "CARD") {
    std::vector<std::string> families;
    for (const Browse::CardClip& clip : Browse::ProviderRegistry::FindCardClips(tree.Path(card)))
        families.push_back(clip.family);
    return families;
}

const std::string kP2 = "com.veltrix.Kestrel.ProviderP2";

TEST(P2ProviderTest, GathersEveryFileOfAClipFromItsXml) {
    TempTree tree;
    tree.MakeFile("CARD/CONTENTS/CLIP/000AB1.XML", P2ClipXml("G1"));
    MakeFiles(tree, {"CARD/LASTCLIP.TXT", "CARD/CONTENTS/VIDEO/000AB1.MXF",
                     "CARD/CONTENTS/AUDIO/000AB100.MXF", "CARD/CONTENTS/AUDIO/000AB101.MXF",
                     "CARD/CONTENTS/ICON/000AB1.BMP", "CARD/CONTENTS/VOICE/000AB100.WAV",
                     "CARD/CONTENTS/PROXY/000AB1.MP4", "CARD/CONTENTS/PROXY/000AB1.BIN",
                     "CARD/CONTENTS/CLIP/000AB1.XMP", "CARD/CONTENTS/AUDIO/000AB200.MXF"});
    const std::string c = "CARD/CONTENTS/";
    EXPECT_EQ(Gather(tree), (std::vector<ClipView>{
                                {"000AB1",
                                 {c + "VIDEO/000AB1.MXF", c + "AUDIO/000AB100.MXF", c + "AUDIO/000AB101.MXF",
                                  c + "ICON/000AB1.BMP", c + "VOICE/000AB100.WAV", c + "PROXY/000AB1.MP4",
                                  c + "PROXY/000AB1.BIN", c + "CLIP/000AB1.XML", c + "CLIP/000AB1.XMP"}}}));
    EXPECT_EQ(Families(tree), std::vector<std::string>{kP2});
}

TEST(P2ProviderTest, UsesTheUserClipNameAndReadsLowerCaseTrees) {
    TempTree tree;
    tree.MakeFile("CARD/contents/clip/000ab1.xml", P2ClipXml("G1", {}, {}, {}, 0, "Interview"));
    MakeFiles(tree, {"CARD/contents/video/000ab1.mxf"});
    EXPECT_EQ(Gather(tree),
              (std::vector<ClipView>{
                  {"Interview", {"CARD/contents/video/000ab1.mxf", "CARD/contents/clip/000ab1.xml"}}}));
}

TEST(P2ProviderTest, JoinsASpanInChainOrderWhateverTheIds) {
    TempTree tree;
    // The shot starts on 000AB3 and continues on 000AB1, then 000AB2.
    tree.MakeFile("CARD/CONTENTS/CLIP/000AB3.XML", P2ClipXml("G3", "G3", "G1", {}, 0));
    tree.MakeFile("CARD/CONTENTS/CLIP/000AB1.XML", P2ClipXml("G1", "G3", "G2", "G3", 100));
    tree.MakeFile("CARD/CONTENTS/CLIP/000AB2.XML", P2ClipXml("G2", "G3", {}, "G1", 200));
    MakeFiles(tree, {"CARD/CONTENTS/VIDEO/000AB1.MXF", "CARD/CONTENTS/VIDEO/000AB2.MXF",
                     "CARD/CONTENTS/VIDEO/000AB3.MXF"});
    const std::string c = "CARD/CONTENTS/";
    EXPECT_EQ(Gather(tree), (std::vector<ClipView>{
                                {"000AB3",
                                 {c + "VIDEO/000AB3.MXF", c + "CLIP/000AB3.XML", c + "VIDEO/000AB1.MXF",
                                  c + "CLIP/000AB1.XML", c + "VIDEO/000AB2.MXF", c + "CLIP/000AB2.XML"}}}));
}

TEST(P2ProviderTest, LeavesEveryPartOfABrokenSpanAsItsOwnClip) {
    TempTree tree;
    // The last part is on another card that is not open.
    tree.MakeFile("CARD/CONTENTS/CLIP/000AB1.XML", P2ClipXml("G1", "G1", "G2", {}, 0));
    tree.MakeFile("CARD/CONTENTS/CLIP/000AB2.XML", P2ClipXml("G2", "G1", "G9", "G1", 100));
    MakeFiles(tree, {"CARD/CONTENTS/VIDEO/000AB1.MXF", "CARD/CONTENTS/VIDEO/000AB2.MXF"});
    const std::vector<ClipView> clips = Gather(tree);
    ASSERT_EQ(clips.size(), 2u);
    EXPECT_EQ(clips[0].name, "000AB1");
    EXPECT_EQ(clips[1].name, "000AB2");
    EXPECT_EQ(clips[1].files.front(), "CARD/CONTENTS/VIDEO/000AB2.MXF");
}

TEST(P2ProviderTest, AContentsFolderWithoutClipIsNoCard) {
    TempTree tree;
    MakeFiles(tree, {"CARD/CONTENTS/VIDEO/000AB1.MXF", "CARD/CONTENTS/NOTES/readme.txt"});
    EXPECT_TRUE(Gather(tree).empty());
}

TEST(XdcamExProviderTest, JoinsTheFoldersOfOneTake) {
    TempTree tree;
    const std::string clpr = "CARD/BPAV/CLPR/";
    MakeFiles(tree, {"CARD/BPAV/MEDIAPRO.XML", clpr + "ABCD0001_01/ABCD0001_01.MP4",
                     clpr + "ABCD0001_01/ABCD0001_01.SMI", clpr + "ABCD0001_01/ABCD0001_01M01.XML",
                     clpr + "ABCD0001_02/ABCD0001_02.MP4", clpr + "ABCD0001_02/ABCD0001_02M01.XML",
                     clpr + "ABCD0002_01/ABCD0002_01.MP4", "CARD/BPAV/TAKR/ABCD0001/ABCD0001.SMI",
                     "CARD/BPAV/TAKR/ABCD0001/ABCD0001M01.XML"});
    EXPECT_EQ(Gather(tree),
              (std::vector<ClipView>{
                  {"ABCD0001",
                   {clpr + "ABCD0001_01/ABCD0001_01.MP4", clpr + "ABCD0001_01/ABCD0001_01.SMI",
                    clpr + "ABCD0001_01/ABCD0001_01M01.XML", clpr + "ABCD0001_02/ABCD0001_02.MP4",
                    clpr + "ABCD0001_02/ABCD0001_02M01.XML", "CARD/BPAV/TAKR/ABCD0001/ABCD0001.SMI",
                    "CARD/BPAV/TAKR/ABCD0001/ABCD0001M01.XML"}},
                  {"ABCD0002", {clpr + "ABCD0002_01/ABCD0002_01.MP4"}}}));
}

TEST(XavcSProviderTest, GathersClipMetadataThumbnailAndProxy) {
    TempTree tree;
    const std::string m4 = "CARD/PRIVATE/M4ROOT/";
    MakeFiles(tree, {m4 + "MEDIAPRO.XML", m4 + "CLIP/C0001.MP4", m4 + "CLIP/C0001M01.XML",
                     m4 + "THMBNL/C0001T01.JPG", m4 + "SUB/C0001S03.MP4", m4 + "CLIP/C0002.MP4"});
    EXPECT_EQ(Gather(tree), (std::vector<ClipView>{{"C0001",
                                                    {m4 + "CLIP/C0001.MP4", m4 + "CLIP/C0001M01.XML",
                                                     m4 + "THMBNL/C0001T01.JPG", m4 + "SUB/C0001S03.MP4"}},
                                                   {"C0002", {m4 + "CLIP/C0002.MP4"}}}));
}

TEST(AvchdProviderTest, APlaylistOfTwoStreamsIsOneClip) {
    TempTree tree;
    const std::string b = "CARD/PRIVATE/AVCHD/BDMV/";
    MakeFiles(tree, {b + "INDEX.BDM", b + "MOVIEOBJ.BDM", b + "STREAM/00000.MTS", b + "STREAM/00001.MTS",
                     b + "STREAM/00002.MTS", b + "STREAM/00003.MTS", b + "CLIPINF/00000.CPI",
                     b + "CLIPINF/00001.CPI", b + "CLIPINF/00002.CPI"});
    tree.MakeFile(b + "PLAYLIST/00000.MPL", MplBytes({{"00000", false}, {"00001", true}}));
    tree.MakeFile(b + "PLAYLIST/00001.MPL", MplBytes({{"00002", false}}));
    EXPECT_EQ(Gather(tree),
              (std::vector<ClipView>{
                  {"00000",
                   {b + "STREAM/00000.MTS", b + "CLIPINF/00000.CPI", b + "STREAM/00001.MTS",
                    b + "CLIPINF/00001.CPI", b + "PLAYLIST/00000.MPL"}},
                  {"00002", {b + "STREAM/00002.MTS", b + "CLIPINF/00002.CPI", b + "PLAYLIST/00001.MPL"}},
                  // No playlist names it: a clip of its own.
                  {"00003", {b + "STREAM/00003.MTS"}}}));
}

TEST(AvchdProviderTest, SplitsAPlaylistOfSeveralRecordingsAndReadsLowerCaseSpellings) {
    TempTree tree;
    const std::string b = "CARD/avchd/bdmv/";
    MakeFiles(tree,
              {b + "index.bdmv", b + "stream/00005.m2ts", b + "stream/00004.m2ts", b + "clipinf/00004.clpi"});
    // Play order is the playlist's, not the streams' numbers.
    tree.MakeFile(b + "playlist/00000.mpls", MplBytes({{"00005", false}, {"00004", false}}));
    const std::vector<ClipView> clips = Gather(tree);
    ASSERT_EQ(clips.size(), 2u);
    EXPECT_EQ(clips[0], (ClipView{"00005", {b + "stream/00005.m2ts", b + "playlist/00000.mpls"}}));
    EXPECT_EQ(
        clips[1],
        (ClipView{"00004", {b + "stream/00004.m2ts", b + "clipinf/00004.clpi", b + "playlist/00000.mpls"}}));
}

TEST(GoProProviderTest, GroupsChaptersOfOneVideo) {
    TempTree tree;
    const std::string d = "CARD/DCIM/100GOPRO/";
    MakeFiles(tree, {d + "GH020042.MP4", d + "GH010042.MP4", d + "GH010042.THM", d + "GL010042.LRV",
                     d + "GX010043.MP4", d + "GP020044.MP4", d + "GOPR0044.MP4", d + "GP010044.MP4",
                     d + "GOPR0044.THM"});
    EXPECT_EQ(
        Gather(tree),
        (std::vector<ClipView>{
            {"GH010042", {d + "GH010042.MP4", d + "GH020042.MP4", d + "GH010042.THM", d + "GL010042.LRV"}},
            {"GOPR0044", {d + "GOPR0044.MP4", d + "GP010044.MP4", d + "GP020044.MP4", d + "GOPR0044.THM"}},
            {"GX010043", {d + "GX010043.MP4"}}}));
}

TEST(XdcamProviderTest, NeedsTheMetadataFileAndKeepsUserNamesWhole) {
    TempTree tree;
    const std::string x = "CARD/XDROOT/";
    MakeFiles(tree, {x + "MEDIAPRO.XML", x + "DISCMETA.XML", x + "Clip/C0001.MXF", x + "Clip/C0001M01.XML",
                     x + "Clip/C0001R01.BIM", x + "Sub/C0001S01.MXF", x + "Clip/C0002.MXF",
                     x + "Clip/Interview_01.MXF", x + "Clip/Interview_01M01.XML"});
    EXPECT_EQ(Gather(tree),
              (std::vector<ClipView>{
                  {"C0001",
                   {x + "Clip/C0001.MXF", x + "Clip/C0001M01.XML", x + "Clip/C0001R01.BIM",
                    x + "Sub/C0001S01.MXF"}},
                  {"Interview_01", {x + "Clip/Interview_01.MXF", x + "Clip/Interview_01M01.XML"}}}));
}

TEST(CanonXfProviderTest, AClipIsItsWholeFolderWithPartsFirst) {
    TempTree tree;
    const std::string c = "CARD/CONTENTS/CLIPS001/";
    MakeFiles(tree, {c + "INDEX.MIF", c + "AA0001/AA000102.MXF", c + "AA0001/AA000101.MXF",
                     c + "AA0001/AA000101.SIF", c + "AA0001/AA000102.SIF", c + "AA0001/AA0001.CIF"});
    EXPECT_EQ(Gather(tree), (std::vector<ClipView>{{"AA0001",
                                                    {c + "AA0001/AA000101.MXF", c + "AA0001/AA000102.MXF",
                                                     c + "AA0001/AA0001.CIF", c + "AA0001/AA000101.SIF",
                                                     c + "AA0001/AA000102.SIF"}}}));
}

TEST(CanonXfAvcProviderTest, PairsEachMxfWithItsXml) {
    TempTree tree;
    const std::string c = "CARD/CONTENTS/CLIPS001/";
    MakeFiles(tree, {c + "INDEX.MIF", c + "A001C001_190101AB.MXF", c + "A001C001_190101AB.XML"});
    EXPECT_EQ(Gather(tree),
              (std::vector<ClipView>{
                  {"A001C001_190101AB", {c + "A001C001_190101AB.MXF", c + "A001C001_190101AB.XML"}}}));
    EXPECT_EQ(Families(tree), std::vector<std::string>{"com.veltrix.Kestrel.ProviderCanonXFAVC"});
}

TEST(RedProviderTest, OrdersPartsByNumber) {
    TempTree tree;
    const std::string r = "CARD/A001_0101AB.RDM/A001_C001_0101XY.RDC/";
    MakeFiles(tree, {r + "A001_C001_0101XY_999.R3D", r + "A001_C001_0101XY_1000.R3D",
                     r + "A001_C001_0101XY_001.R3D", r + "A001_C001_0101XY.RMD", r + "notes.txt"});
    EXPECT_EQ(Gather(tree),
              (std::vector<ClipView>{{"A001_C001_0101XY",
                                      {r + "A001_C001_0101XY_001.R3D", r + "A001_C001_0101XY_999.R3D",
                                       r + "A001_C001_0101XY_1000.R3D", r + "A001_C001_0101XY.RMD"}}}));
}

TEST(ArriRawProviderTest, TakesEveryFrameAndTheCompanionFolders) {
    TempTree tree;
    const std::string a = "CARD/A001R1AB/A001C001_190101_R1AB/";
    MakeFiles(tree, {a + "A001C001_190101_R1AB.0000003.ari", a + "A001C001_190101_R1AB.0000001.ari",
                     a + "xml/A001C001_190101_R1AB.xml", a + "wav/A001C001_190101_R1AB.wav"});
    EXPECT_EQ(Gather(tree),
              (std::vector<ClipView>{
                  {"A001C001_190101_R1AB",
                   {a + "A001C001_190101_R1AB.0000001.ari", a + "A001C001_190101_R1AB.0000003.ari",
                    a + "xml/A001C001_190101_R1AB.xml", a + "wav/A001C001_190101_R1AB.wav"}}}));
}

TEST(DjiProviderTest, TakesSubtitlesAndProxiesButNoStills) {
    TempTree tree;
    const std::string d = "CARD/DCIM/100MEDIA/";
    MakeFiles(tree, {d + "DJI_0001.MP4", d + "DJI_0001.SRT", d + "DJI_0001.LRF", d + "DJI_0002.JPG"});
    EXPECT_EQ(Gather(tree), (std::vector<ClipView>{
                                {"DJI_0001", {d + "DJI_0001.MP4", d + "DJI_0001.LRF", d + "DJI_0001.SRT"}}}));
}

TEST(CardProvidersTest, FindsEveryStructureOfOneCard) {
    TempTree tree;
    MakeFiles(tree, {"CARD/PRIVATE/AVCHD/BDMV/STREAM/00000.MTS", "CARD/PRIVATE/M4ROOT/MEDIAPRO.XML",
                     "CARD/PRIVATE/M4ROOT/CLIP/C0001.MP4", "CARD/DCIM/100GOPRO/GH010001.MP4"});
    const std::vector<std::string> families = Families(tree);
    EXPECT_EQ(families, (std::vector<std::string>{"com.veltrix.Kestrel.ProviderXAVCS",
                                                  "com.veltrix.Kestrel.ProviderAVCHD",
                                                  "com.veltrix.Kestrel.ProviderGoPro"}));
}

TEST(CardProvidersTest, APlainFolderOfMediaIsNoCard) {
    TempTree tree;
    MakeFiles(tree, {"CARD/A001.MOV", "CARD/clips/B001.MXF", "CARD/DCIM/Camera/IMG_0001.JPG"});
    EXPECT_TRUE(Gather(tree).empty());
}

} // namespace
} // namespace igd::test
