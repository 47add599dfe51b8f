// A recording longer than one P2 card continues on the next. The parts are one clip only while
// every card they lie on is open, and only for cards in one folder, since a clip's files are
// copied relative to the folder that holds its card.
#include <gtest/gtest.h>

#include "Browse/CardScanScope.h"
#include "Browse/ProviderRegistry.h"
#include "CardTrees.h"

namespace igd::test {
namespace {

const std::vector<std::string> kFirstPart{"SHOOT/CARD1/CONTENTS/VIDEO/000A01.MXF",
                                          "SHOOT/CARD1/CONTENTS/AUDIO/000A0100.MXF",
                                          "SHOOT/CARD1/CONTENTS/CLIP/000A01.XML"};
const std::vector<std::string> kSecondPart{"SHOOT/CARD2/CONTENTS/VIDEO/000B01.MXF",
                                           "SHOOT/CARD2/CONTENTS/AUDIO/000B0100.MXF",
                                           "SHOOT/CARD2/CONTENTS/CLIP/000B01.XML"};

std::vector<std::string> Joined(std::vector<std::string> first, const std::vector<std::string>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

class CardSpansTest : public ::testing::Test {
protected:
    void SetUp() override {
        MakeSpannedP2Cards(tree, "SHOOT/CARD1", "SHOOT/CARD2");
        tree.MakeFile("SHOOT/CARD2/CONTENTS/CLIP/000B02.XML", P2ClipXml("G3"));
        tree.MakeFile("SHOOT/CARD2/CONTENTS/VIDEO/000B02.MXF");
    }

    std::vector<ClipView> Clips(const std::string& card) const {
        return View(tree, Browse::ProviderRegistry::FindCardClips(tree.Path(card)));
    }

    const std::vector<ClipView> ownClipOfSecond{
        {"000B02", {"SHOOT/CARD2/CONTENTS/VIDEO/000B02.MXF", "SHOOT/CARD2/CONTENTS/CLIP/000B02.XML"}}};
    TempTree tree;
};

TEST_F(CardSpansTest, CardsOpenTogetherJoinTheRecordingOnTheCardItStartsOn) {
    // The order the cards are named in, and a trailing separator, change nothing.
    for (const std::vector<Fnd::WString>& open :
         {std::vector{tree.Path("SHOOT/CARD1"), tree.Path("SHOOT/CARD2")},
          std::vector{tree.Path("SHOOT/CARD2/"), tree.Path("SHOOT/CARD1")}}) {
        const Browse::CardScanScope scope(open);
        EXPECT_EQ(Clips("SHOOT/CARD1"), (std::vector<ClipView>{{"000A01", Joined(kFirstPart, kSecondPart)}}));
        EXPECT_EQ(Clips("SHOOT/CARD2"), ownClipOfSecond) << "the continuation is no clip of its own";

        // Gathering names the second part's file: it leads to the joined clip and its card.
        const Browse::CardProvider* provider = nullptr;
        Fnd::WString root;
        Browse::CardClip clip;
        ASSERT_TRUE(
            Browse::ProviderRegistry::FindClipOfFile(tree.Path(kSecondPart[0]), provider, root, clip));
        EXPECT_EQ(root, tree.Path("SHOOT/CARD1"));
        EXPECT_EQ(clip.name, u"000A01");
        EXPECT_EQ(clip.mediaPath, tree.Path(kFirstPart[0]));
        EXPECT_EQ(clip.files.size(), 6u);
    }
}

// The command line's tests list each card alone; a scope that opens only one of them is the same.
TEST_F(CardSpansTest, AScopeOfOneCardLeavesEveryPartItsOwnClip) {
    const Browse::CardScanScope scope({tree.Path("SHOOT/CARD2")});
    EXPECT_EQ(Clips("SHOOT/CARD1"), (std::vector<ClipView>{{"000A01", kFirstPart}}));
    EXPECT_EQ(Clips("SHOOT/CARD2").front(), (ClipView{"000B01", kSecondPart}));
}

TEST_F(CardSpansTest, CardsInDifferentFoldersAreNeverJoined) {
    MakeSpannedP2Cards(tree, "DAY1/CARD1", "DAY2/CARD2");
    const Browse::CardScanScope scope({tree.Path("DAY1/CARD1"), tree.Path("DAY2/CARD2")});
    EXPECT_EQ(Clips("DAY1/CARD1").front().files.size(), 3u);
    EXPECT_EQ(Clips("DAY2/CARD2").size(), 1u);
}

// Gathering opens plain scopes of its own inside the host's: they must see the host's cards, and
// a scope that names cards must not reuse what an outer scope scanned without them.
TEST_F(CardSpansTest, NestedScopesKeepTheCardsOfTheScopeThatNamedThem) {
    const Browse::CardScanScope outer;
    EXPECT_EQ(Clips("SHOOT/CARD1"), (std::vector<ClipView>{{"000A01", kFirstPart}}));
    {
        const Browse::CardScanScope named({tree.Path("SHOOT/CARD1"), tree.Path("SHOOT/CARD2")});
        const Browse::CardScanScope inner;
        EXPECT_EQ(Clips("SHOOT/CARD1"), (std::vector<ClipView>{{"000A01", Joined(kFirstPart, kSecondPart)}}));
    }
    EXPECT_EQ(Clips("SHOOT/CARD1"), (std::vector<ClipView>{{"000A01", kFirstPart}}));
}

} // namespace
} // namespace igd::test
