#include <gtest/gtest.h>

#include "Browse/ProviderRegistry.h"
#include "IGD/SelectedClipItem.h"
#include "pipeline/gathering/AddBrowserItems.h"
#include "pipeline/gathering/GatherPathItems.h"
#include "pipeline/session/IngestDialogData.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace IGD;

const SelectedClipItem* OnlyClip(const IngestDialogDataRef& session) {
    const SelectedItemList items = session->GetSelectedItems();
    if (items.size() != 1)
        return nullptr;
    return dynamic_cast<const SelectedClipItem*>(items.front().get());
}

std::string P2Xml(const std::string& id, const std::string& top, const std::string& next) {
    std::string links = "<Relation><OffsetInShot>0</OffsetInShot><Connection><Top><GlobalClipID>" + top +
                        "</GlobalClipID></Top>";
    if (!next.empty())
        links += "<Next><GlobalClipID>" + next + "</GlobalClipID></Next>";
    return "<P2Main><ClipContent><GlobalClipID>" + id + "</GlobalClipID>" + links +
           "</Connection></Relation></ClipContent></P2Main>";
}

// A provider that answers what a test sets, to reach the cases real providers seldom give.
class ScriptedProvider : public Browse::ProviderWrapper {
public:
    std::string identification = "com.example.ProviderCard";
    bool checkFilter = false;
    Browse::Content content;
    mutable std::vector<Fnd::WString> askedDirectories;

    std::string GetIdentification() const override { return identification; }
    bool ShouldCheckFilter() const override { return checkFilter; }
    Browse::Content GetContent(const Fnd::WString& directory, const Fnd::WString&,
                               const std::set<std::string>&, const void*) const override {
        askedDirectories.push_back(directory);
        return content;
    }
};

// Gathering into a fresh session from files of a fresh tree.
class GatherTest : public ::testing::Test {
protected:
    TempTree tree;
    const IngestDialogDataRef session = IngestDialogDataRef::Query(CreateIngestDialogData());
};

// Whichever file of a card clip a host names, the item is the whole clip, named by its media file.
TEST_F(GatherTest, AnyFileOfASpannedCardClipGivesOneFolderBasedItem) {
    tree.MakeFile("shoot/CARD/CONTENTS/CLIP/000AB1.XML", P2Xml("G1", "G1", "G2"));
    tree.MakeFile("shoot/CARD/CONTENTS/CLIP/000AB2.XML", P2Xml("G2", "G1", ""));
    tree.MakeFile("shoot/CARD/CONTENTS/VIDEO/000AB1.MXF");
    tree.MakeFile("shoot/CARD/CONTENTS/VIDEO/000AB2.MXF");
    // A sidecar beside card media is not the clip's: cards carry their own metadata.
    tree.MakeFile("shoot/CARD/CONTENTS/VIDEO/000AB1.xmp");

    GatherPathItems(*session, tree.Path("shoot/CARD/CONTENTS/CLIP/000AB1.XML"));

    const SelectedClipItem* item = OnlyClip(session);
    ASSERT_NE(item, nullptr);
    // The card's folder travels with its clips.
    EXPECT_EQ(session->GetSourceRoot(), tree.Path("shoot"));
    EXPECT_EQ(item->GetItemPath(), u"CARD/CONTENTS/VIDEO/000AB1.MXF");
    EXPECT_FALSE(item->IsSingleFileType());
    EXPECT_EQ(item->GetClipName(), u"000AB1");
    EXPECT_EQ(item->ExtraPaths(), (std::vector<Fnd::WString>{
                                      u"CARD/CONTENTS/VIDEO/000AB1.MXF", u"CARD/CONTENTS/CLIP/000AB1.XML",
                                      u"CARD/CONTENTS/VIDEO/000AB2.MXF", u"CARD/CONTENTS/CLIP/000AB2.XML"}));
    EXPECT_EQ(item->GetItemFormat(), u"com.veltrix.Kestrel.ProviderP2");
    EXPECT_EQ(item->GetClipGuid(), fluxcore::utility::Guid());
}

TEST_F(GatherTest, HiddenFilesNeverTravelAndNestedListsFlatten) {
    tree.MakeFile("CARD/CLIPS/A.MXF");
    ScriptedProvider provider;
    using Browse::any_regular_t;
    provider.content[u"CLIPS/A.MXF"][Browse::kExtraPathField] = any_regular_t(std::vector<any_regular_t>{
        any_regular_t(tree.Path("CARD/CLIPS/A.MXF")),
        any_regular_t(std::vector<any_regular_t>{any_regular_t(tree.Path("CARD/CLIPS/.A.MXF.lock")),
                                                 any_regular_t(tree.Path("CARD/CLIPS/A.XML"))})});
    provider.content[u"CLIPS/A.MXF"][Browse::kNameField] = any_regular_t(std::vector<any_regular_t>{});

    AddBrowserItems(*session, {{tree.Path("CARD/CLIPS/A.MXF"), u"CLIPS/A.MXF"}}, {}, &provider,
                    tree.NativePath("CARD"));

    const SelectedClipItem* item = OnlyClip(session);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->ExtraPaths(), (std::vector<Fnd::WString>{u"CARD/CLIPS/A.MXF", u"CARD/CLIPS/A.XML"}));
    // A name that is not a string counts as none.
    EXPECT_EQ(item->GetClipName(), u"A.MXF");
    EXPECT_EQ(item->GetItemFormat(), u"com.example.ProviderCard");
    EXPECT_EQ(provider.askedDirectories.front(), tree.Path("CARD"));
}

TEST_F(GatherTest, ALinkOnTheSameFilesystemMovesTheDirectoryToItsFolder) {
    tree.MakeFile("real/A.MOV");
    tree.MakeSymlink("links/A.MOV", tree.NativePath("real/A.MOV"));
    ScriptedProvider provider;
    provider.identification = Browse::PlainDirectoryProvider::kIdentification;
    provider.checkFilter = true;

    AddBrowserItems(*session, {{tree.Path("real/A.MOV"), u"A.MOV"}}, {}, &provider, tree.NativePath("links"));

    EXPECT_EQ(session->GetSourceRoot(), tree.Path("real"));
    ASSERT_EQ(session->GetSelectedItems().size(), 1u);
    EXPECT_EQ(session->GetSelectedItems().front()->GetItemPath(), u"A.MOV");
}

} // namespace
} // namespace igd::test
