#include <gtest/gtest.h>

#include "Browse/ProviderRegistry.h"
#include "CardTrees.h"

namespace igd::test {
namespace {

// One card tree of one family and the clips it must give. Paths are relative to base, which
// starts with the card folder CARD; files are empty, the written ones are index, playlist or clip
// files with their content.
struct FamilyCase {
    struct {
        const char* label;
        std::string family; // the end of the identification every clip carries
        std::string base;
    } card;
    std::vector<std::string> files;
    std::vector<ClipView> clips;
    std::vector<std::pair<std::string, std::string>> written = {};
};

void PrintTo(const FamilyCase& c, std::ostream* out) {
    *out << c.card.label;
}

std::vector<FamilyCase> FamilyCases() {
    return {
        {{"P2GathersEveryFileOfAClipFromItsXml", "P2", "CARD/CONTENTS/"},
         {"VIDEO/000AB1.MXF", "AUDIO/000AB100.MXF", "AUDIO/000AB101.MXF", "ICON/000AB1.BMP",
          "VOICE/000AB100.WAV", "PROXY/000AB1.MP4", "PROXY/000AB1.BIN", "CLIP/000AB1.XMP",
          "AUDIO/000AB200.MXF"},
         {{"000AB1",
           {"VIDEO/000AB1.MXF", "AUDIO/000AB100.MXF", "AUDIO/000AB101.MXF", "ICON/000AB1.BMP",
            "VOICE/000AB100.WAV", "PROXY/000AB1.MP4", "PROXY/000AB1.BIN", "CLIP/000AB1.XML",
            "CLIP/000AB1.XMP"}}},
         {{"CLIP/000AB1.XML", P2ClipXml("G1")}}},
        {{"P2UsesTheUserClipName", "P2", "CARD/CONTENTS/"},
         {"VIDEO/000AB1.MXF"},
         {{"Interview", {"VIDEO/000AB1.MXF", "CLIP/000AB1.XML"}}},
         {{"CLIP/000AB1.XML", P2ClipXml("G1", {}, {}, {}, 0, "Interview")}}},
        // The shot starts on 000AB3 and continues on 000AB1, then 000AB2.
        {{"P2JoinsASpanInChainOrderWhateverTheIds", "P2", "CARD/CONTENTS/"},
         {"VIDEO/000AB1.MXF", "VIDEO/000AB2.MXF", "VIDEO/000AB3.MXF"},
         {{"000AB3",
           {"VIDEO/000AB3.MXF", "CLIP/000AB3.XML", "VIDEO/000AB1.MXF", "CLIP/000AB1.XML", "VIDEO/000AB2.MXF",
            "CLIP/000AB2.XML"}}},
         {{"CLIP/000AB3.XML", P2ClipXml("G3", "G3", "G1", {}, 0)},
          {"CLIP/000AB1.XML", P2ClipXml("G1", "G3", "G2", "G3", 100)},
          {"CLIP/000AB2.XML", P2ClipXml("G2", "G3", {}, "G1", 200)}}},
        // The last part is on another card that is not open.
        {{"P2LeavesEveryPartOfABrokenSpanAsItsOwnClip", "P2", "CARD/CONTENTS/"},
         {"VIDEO/000AB1.MXF", "VIDEO/000AB2.MXF"},
         {{"000AB1", {"VIDEO/000AB1.MXF", "CLIP/000AB1.XML"}},
          {"000AB2", {"VIDEO/000AB2.MXF", "CLIP/000AB2.XML"}}},
         {{"CLIP/000AB1.XML", P2ClipXml("G1", "G1", "G2", {}, 0)},
          {"CLIP/000AB2.XML", P2ClipXml("G2", "G1", "G9", "G1", 100)}}},
        {{"AContentsFolderWithoutClipIsNoP2Card", "P2", "CARD/CONTENTS/"},
         {"VIDEO/000AB1.MXF", "NOTES/readme.txt"},
         {}},
        {{"XdcamExJoinsTheFoldersOfOneTake", "XDCAMEX", "CARD/BPAV/"},
         {"MEDIAPRO.XML", "CLPR/ABCD0001_01/ABCD0001_01.MP4", "CLPR/ABCD0001_01/ABCD0001_01.SMI",
          "CLPR/ABCD0001_01/ABCD0001_01M01.XML", "CLPR/ABCD0001_02/ABCD0001_02.MP4",
          "CLPR/ABCD0001_02/ABCD0001_02M01.XML", "CLPR/ABCD0002_01/ABCD0002_01.MP4",
          "TAKR/ABCD0001/ABCD0001.SMI", "TAKR/ABCD0001/ABCD0001M01.XML"},
         {{"ABCD0001",
           {"CLPR/ABCD0001_01/ABCD0001_01.MP4", "CLPR/ABCD0001_01/ABCD0001_01.SMI",
            "CLPR/ABCD0001_01/ABCD0001_01M01.XML", "CLPR/ABCD0001_02/ABCD0001_02.MP4",
            "CLPR/ABCD0001_02/ABCD0001_02M01.XML", "TAKR/ABCD0001/ABCD0001.SMI",
            "TAKR/ABCD0001/ABCD0001M01.XML"}},
          {"ABCD0002", {"CLPR/ABCD0002_01/ABCD0002_01.MP4"}}}},
        {{"XavcSGathersClipMetadataThumbnailAndProxies", "XAVCS", "CARD/PRIVATE/M4ROOT/"},
         {"MEDIAPRO.XML", "CLIP/C0001.MP4", "CLIP/C0001M01.XML", "THMBNL/C0001T01.JPG", "SUB/C0001S03.MP4",
          "SUB/C0001S01.MP4", "SUB/C00011S01.MP4", "CLIP/C0002.MP4"},
         {{"C0001",
           {"CLIP/C0001.MP4", "CLIP/C0001M01.XML", "THMBNL/C0001T01.JPG", "SUB/C0001S01.MP4",
            "SUB/C0001S03.MP4"}},
          {"C0002", {"CLIP/C0002.MP4"}}}},
        {{"AvchdPlaylistOfTwoStreamsIsOneClip", "AVCHD", "CARD/PRIVATE/AVCHD/BDMV/"},
         {"INDEX.BDM", "MOVIEOBJ.BDM", "STREAM/00000.MTS", "STREAM/00001.MTS", "STREAM/00002.MTS",
          "STREAM/00003.MTS", "CLIPINF/00000.CPI", "CLIPINF/00001.CPI", "CLIPINF/00002.CPI"},
         {{"00000",
           {"STREAM/00000.MTS", "CLIPINF/00000.CPI", "STREAM/00001.MTS", "CLIPINF/00001.CPI",
            "PLAYLIST/00000.MPL"}},
          {"00002", {"STREAM/00002.MTS", "CLIPINF/00002.CPI", "PLAYLIST/00001.MPL"}},
          // No playlist names it: a clip of its own.
          {"00003", {"STREAM/00003.MTS"}}},
         {{"PLAYLIST/00000.MPL", MplBytes({{"00000", false}, {"00001", true}})},
          {"PLAYLIST/00001.MPL", MplBytes({{"00002", false}})}}},
        // Play order is the playlist's, not the streams' numbers.
        {{"AvchdSplitsAPlaylistOfSeveralRecordingsAndReadsBluRaySpellings", "AVCHD", "CARD/avchd/bdmv/"},
         {"index.bdmv", "stream/00005.m2ts", "stream/00004.m2ts", "clipinf/00004.clpi"},
         {{"00005", {"stream/00005.m2ts", "playlist/00000.mpls"}},
          {"00004", {"stream/00004.m2ts", "clipinf/00004.clpi", "playlist/00000.mpls"}}},
         {{"playlist/00000.mpls", MplBytes({{"00005", false}, {"00004", false}})}}},
        {{"GoProGroupsChaptersOfOneVideo", "GoPro", "CARD/DCIM/100GOPRO/"},
         {"GH020042.MP4", "GH010042.MP4", "GH010042.THM", "GL010042.LRV", "GX010043.MP4", "GP020044.MP4",
          "GOPR0044.MP4", "GP010044.MP4", "GOPR0044.THM"},
         {{"GH010042", {"GH010042.MP4", "GH020042.MP4", "GH010042.THM", "GL010042.LRV"}},
          {"GOPR0044", {"GOPR0044.MP4", "GP010044.MP4", "GP020044.MP4", "GOPR0044.THM"}},
          {"GX010043", {"GX010043.MP4"}}}},
        {{"XdcamNeedsTheMetadataFileAndKeepsUserNamesWhole", "XDCAM", "CARD/XDROOT/"},
         {"MEDIAPRO.XML", "DISCMETA.XML", "Clip/C0001.MXF", "Clip/C0001M01.XML", "Clip/C0001R01.BIM",
          "Sub/C0001S01.MXF", "Clip/C0002.MXF", "Clip/Interview_01.MXF", "Clip/Interview_01M01.XML"},
         {{"C0001", {"Clip/C0001.MXF", "Clip/C0001M01.XML", "Clip/C0001R01.BIM", "Sub/C0001S01.MXF"}},
          {"Interview_01", {"Clip/Interview_01.MXF", "Clip/Interview_01M01.XML"}}}},
        // A take list names one clip, an edit list two; C0001 must not take what names C00010.
        {{"XdcamTakesTakeAndEditListsThatNameTheClip", "XDCAM", "CARD/XDROOT/"},
         {"MEDIAPRO.XML", "DISCMETA.XML", "Clip/C0001.MXF", "Clip/C0001M01.XML", "Clip/C00010.MXF",
          "Clip/C00010M01.XML", "Clip/C0002.MXF", "Clip/C0002M01.XML", "Take/T0002.SMI"},
         {{"C0001", {"Clip/C0001.MXF", "Clip/C0001M01.XML", "Edit/E0001.SMI"}},
          {"C00010", {"Clip/C00010.MXF", "Clip/C00010M01.XML", "Take/T0001.SMI"}},
          {"C0002", {"Clip/C0002.MXF", "Clip/C0002M01.XML", "Edit/E0001.SMI"}}},
         {{"Take/T0001.SMI", "<smil><body><par><video src=\"../Clip/C00010.MXF\" clipBegin=\"0\"/></par>"
                             "</body></smil>"},
          {"Edit/E0001.SMI", "<smil><body><seq><video src=\"../Clip/C0001.MXF\"/>\n"
                             "<video src=\"../Clip/C0002.MXF\" clipBegin=\"25\"/></seq></body></smil>"}}},
        {{"CanonXfClipIsItsWholeFolderWithPartsFirst", "CanonXF", "CARD/CONTENTS/"},
         {"CLIPS001/INDEX.MIF", "CLIPS001/AA0001/AA000102.MXF", "CLIPS001/AA0001/AA000101.MXF",
          "CLIPS001/AA0001/AA000101.SIF", "CLIPS001/AA0001/AA000102.SIF", "CLIPS001/AA0001/AA0001.CIF",
          "CLIPS001/AA0002/AA0002.CIF", "CLIPS002/AB0001/AB000101.MXF"},
         {{"AA0001",
           {"CLIPS001/AA0001/AA000101.MXF", "CLIPS001/AA0001/AA000102.MXF", "CLIPS001/AA0001/AA0001.CIF",
            "CLIPS001/AA0001/AA000101.SIF", "CLIPS001/AA0001/AA000102.SIF"}}}},
        {{"CanonXfAvcPairsEachMxfWithItsXml", "CanonXFAVC", "CARD/CONTENTS/CLIPS001/"},
         {"INDEX.MIF", "A001C001_190101AB.MXF", "A001C001_190101AB.XML", "A001C002_190101AB.MXF"},
         {{"A001C001_190101AB", {"A001C001_190101AB.MXF", "A001C001_190101AB.XML"}}}},
        {{"RedOrdersPartsByNumber", "RED", "CARD/A001_0101AB.RDM/A001_C001_0101XY.RDC/"},
         {"A001_C001_0101XY_999.R3D", "A001_C001_0101XY_1000.R3D", "A001_C001_0101XY_001.R3D",
          "A001_C001_0101XY.RMD", "notes.txt"},
         {{"A001_C001_0101XY",
           {"A001_C001_0101XY_001.R3D", "A001_C001_0101XY_999.R3D", "A001_C001_0101XY_1000.R3D",
            "A001_C001_0101XY.RMD"}}}},
        {{"ArriRawTakesEveryFrameAndTheCompanionFolders", "ARRIRAW", "CARD/A001R1AB/A001C001_190101_R1AB/"},
         {"A001C001_190101_R1AB.0000003.ari", "A001C001_190101_R1AB.0000001.ari",
          "xml/A001C001_190101_R1AB.xml", "wav/A001C001_190101_R1AB.wav"},
         {{"A001C001_190101_R1AB",
           {"A001C001_190101_R1AB.0000001.ari", "A001C001_190101_R1AB.0000003.ari",
            "xml/A001C001_190101_R1AB.xml", "wav/A001C001_190101_R1AB.wav"}}}},
        {{"DjiTakesSubtitlesAndProxiesButNoStills", "DJI", "CARD/DCIM/"},
         {"100MEDIA/DJI_0001.MP4", "100MEDIA/DJI_0001.SRT", "100MEDIA/DJI_0001.LRF", "100MEDIA/DJI_0002.JPG",
          "DJI_001/DJI_0003.MOV"},
         {{"DJI_0001", {"100MEDIA/DJI_0001.MP4", "100MEDIA/DJI_0001.LRF", "100MEDIA/DJI_0001.SRT"}},
          {"DJI_0003", {"DJI_001/DJI_0003.MOV"}}}},
        {{"APlainFolderOfMediaIsNoCard", "", "CARD/"},
         {"A001.MOV", "clips/B001.MXF", "DCIM/Camera/IMG_0001.JPG"},
         {}},
    };
}

std::string Lower(std::string text) {
    for (char& c : text)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return text;
}

class CardFamilyTest : public ::testing::TestWithParam<FamilyCase> {
protected:
    // The case's tree, spelled by spell below the card folder; answers the clips found.
    std::vector<Browse::CardClip> GatherSpelled(std::string (*spell)(std::string)) {
        const FamilyCase& c = GetParam();
        for (const std::string& path : c.files)
            tree_.MakeFile(Spelled(c.card.base + path, spell));
        for (const auto& [path, content] : c.written)
            tree_.MakeFile(Spelled(c.card.base + path, spell), content);
        return Browse::ProviderRegistry::FindCardClips(tree_.Path("CARD"));
    }

    std::vector<ClipView> Expected(std::string (*spell)(std::string)) const {
        std::vector<ClipView> clips = GetParam().clips;
        for (ClipView& clip : clips)
            for (std::string& file : clip.files)
                file = Spelled(GetParam().card.base + file, spell);
        return clips;
    }

    static std::string Spelled(const std::string& path, std::string (*spell)(std::string)) {
        return "CARD" + spell(path.substr(4));
    }

    TempTree tree_;
};

std::string AsWritten(std::string text) {
    return text;
}

TEST_P(CardFamilyTest, GathersTheClipsOfTheFamily) {
    const std::vector<Browse::CardClip> clips = GatherSpelled(AsWritten);
    EXPECT_EQ(View(tree_, clips), Expected(AsWritten));
    for (const Browse::CardClip& clip : clips) {
        EXPECT_EQ(clip.family, "com.veltrix.Kestrel.Provider" + GetParam().card.family);
        EXPECT_EQ(clip.mediaPath, clip.files.front());
    }
}

// Copies of cards made by some tools are lower case: the same clips, reported as on disk. User
// clip names come from the clip files and keep their case, so names compare without it.
TEST_P(CardFamilyTest, ReadsALowerCaseCopyAlike) {
    std::vector<ClipView> found = View(tree_, GatherSpelled(Lower));
    std::vector<ClipView> expected = Expected(Lower);
    for (ClipView& clip : found)
        clip.name = Lower(clip.name);
    for (ClipView& clip : expected)
        clip.name = Lower(clip.name);
    EXPECT_EQ(found, expected);
}

INSTANTIATE_TEST_SUITE_P(Families, CardFamilyTest, ::testing::ValuesIn(FamilyCases()),
                         [](const ::testing::TestParamInfo<FamilyCase>& info) {
                             return info.param.card.label;
                         });

} // namespace
} // namespace igd::test
