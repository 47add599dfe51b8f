// A recording longer than one P2 card continues on the next. The parts are one clip only while
// every card they lie on is open, and only for cards in one folder, since a clip's files are
// copied relative to the folder that holds its card. Cards named together, and each alone, are
// listed by the command line's tests.
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
    }

    std::vector<ClipView> Clips(const std::string& card) const {
        return View(tree, Browse::ProviderRegistry::FindCardClips(tree.Path(card)));
    }

    TempTree tree;
};

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
