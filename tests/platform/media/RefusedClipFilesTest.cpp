// A P2 clip file is the card's, not ours: one that is malformed or too large is refused and named,
// its clip left out, and the card's other clips listed as ever. Hostile ones meet `igd cards`.
#include <gtest/gtest.h>

#include "Browse/ProviderRegistry.h"
#include "Browse/RefusedCardFiles.h"
#include "CardTrees.h"
#include "Fnd/XmlParser.h"
#include "support/HostileXml.h"

namespace igd::test {
namespace {

std::string P2ClipNamed(const std::string& doctype, const std::string& name) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + doctype +
           "<P2Main><ClipContent><GlobalClipID>G1</GlobalClipID><ClipMetadata><UserClipName>" + name +
           "</UserClipName></ClipMetadata></ClipContent></P2Main>\n";
}

class RefusedClipFilesTest : public ::testing::Test {
protected:
    // The card with clip 000001 as given beside a good clip 000002; its clips and the refusals.
    std::vector<ClipView> ScanCard(const std::string& clipXml) {
        TempTree tree;
        tree.MakeFile("C/CONTENTS/CLIP/000001.XML", clipXml);
        tree.MakeFile("C/CONTENTS/CLIP/000002.XML", P2ClipXml("G2", {}, {}, {}, 0, "Good"));
        MakeFiles(tree, {"C/CONTENTS/VIDEO/000001.MXF", "C/CONTENTS/VIDEO/000002.MXF"});
        refusedFile = tree.NativePath("C/CONTENTS/CLIP/000001.XML");
        const std::vector<ClipView> clips = View(tree, Browse::ProviderRegistry::FindCardClips(tree.Path("C")));
        refusals = Browse::RefusedCardFiles::Take();
        return clips;
    }

    std::string refusedFile;
    std::vector<Browse::RefusedCardFile> refusals;
};

const std::vector<ClipView> kGoodClipOnly{{"Good", {"C/CONTENTS/VIDEO/000002.MXF", "C/CONTENTS/CLIP/000002.XML"}}};

TEST_F(RefusedClipFilesTest, ADtdOnTheNetworkIsNeverFetchedAndTheClipIsRead) {
    const HostileXmlWorld world;
    const std::vector<ClipView> clips = ScanCard(world.WithOutsideDtd(P2ClipNamed, "Interview"));
    EXPECT_TRUE(refusals.empty());
    ASSERT_EQ(clips.size(), 2u);
    EXPECT_EQ(clips[0].name, "Interview");
    EXPECT_FALSE(world.WasFetched());
}

TEST_F(RefusedClipFilesTest, MalformedAndOversizedClipFilesAreRefusedWithTheirReason) {
    const struct {
        std::string xml;
        std::string reason;
    } cases[] = {
        {"<P2Main><ClipContent>", "line 1"},
        {"", "invalid document structure"},
        {std::string(Fnd::kMaxCardXmlBytes + 1, ' '), "larger than 16777216 bytes"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        EXPECT_EQ(ScanCard(c.xml), kGoodClipOnly);
        ASSERT_EQ(refusals.size(), 1u);
        EXPECT_EQ(Fnd::ToUTF8(refusals[0].path), refusedFile);
        EXPECT_NE(refusals[0].reason.find(c.reason), std::string::npos) << refusals[0].reason;
    }
}

// XDCAM take lists are read as text for the names they hold: nothing in them is expanded or
// fetched, and one too large is refused while its clip is listed without it.
TEST_F(RefusedClipFilesTest, AnXdcamTakeListIsReadAsTextAndRefusedWhenTooLarge) {
    TempTree tree;
    MakeFiles(tree, {"XD/MEDIAPRO.XML", "XD/DISCMETA.XML", "XD/Clip/C0001.MXF", "XD/Clip/C0001M01.XML"});
    tree.MakeFile("XD/Take/T0001.SMI", "<!DOCTYPE smil [<!ENTITY x SYSTEM \"file:///etc/hostname\">]>"
                                       "<smil><video src=\"../Clip/C0001.MXF\" title=\"&x;\"/></smil>");
    tree.MakeFile("XD/Take/T0002.SMI", std::string(Fnd::kMaxCardXmlBytes + 1, 'x') + " C0001.MXF");
    EXPECT_EQ(View(tree, Browse::ProviderRegistry::FindCardClips(tree.Path("XD"))),
              (std::vector<ClipView>{{"C0001", {"XD/Clip/C0001.MXF", "XD/Clip/C0001M01.XML", "XD/Take/T0001.SMI"}}}));
    refusals = Browse::RefusedCardFiles::Take();
    ASSERT_EQ(refusals.size(), 1u);
    EXPECT_EQ(Fnd::ToUTF8(refusals[0].path), tree.NativePath("XD/Take/T0002.SMI"));
    EXPECT_NE(refusals[0].reason.find("larger than 16777216 bytes"), std::string::npos) << refusals[0].reason;
}

} // namespace
} // namespace igd::test
