// The child list of a section: order, removal, moves, look-ups and enabling.
#include <gtest/gtest.h>

#include "tests/transfer/SectionTestSupport.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using fluxcore::geom::RectF;
using wrangler::ui::SectionViewEx;
using wrangler::ui::SectionViewExRef;

// Names of the children in the section's list, and of the section nodes in its content view; the
// two must always agree.
std::string Order(const SectionViewEx& parent) {
    std::string listed;
    for (const SectionViewExRef& child : parent.GetChildSections())
        listed += Fnd::ToUTF8(child->GetTitle());
    std::string nodes;
    const fluxui::ui::UI_SubView& content = parent.GetContentView();
    for (auto node = content.ChildBegin(); node != content.ChildEnd(); ++node)
        if (auto* section = dynamic_cast<SectionViewEx*>(node->get()))
            nodes += Fnd::ToUTF8(section->GetTitle());
    return listed == nodes ? listed : listed + " but nodes " + nodes;
}

class SectionChildren : public ::testing::Test {
protected:
    SectionChildren() {
        resources.AddLayout("igdTestRow", 180, 20,
                            {{LayoutControlKind::Checkbox, "Box", {5, 0, 50, 20}}});
        parent = Make<RecordingSection>("P", journal, u"", "igdTestRow");
        for (const char16_t* title : {u"A", u"B", u"C"}) {
            SectionViewExRef child = Make<SectionViewEx>(title, "igdTestRow");
            parent->InsertChildSection(child);
            children.push_back(child);
        }
        wrangler::ui::BuildSectionTree(*parent, resources, nullptr);
    }
    SectionViewEx* Child(std::size_t i) const { return children[i].get(); }

    TestResources resources;
    std::vector<std::string> journal;
    boost::intrusive_ptr<RecordingSection> parent;
    std::vector<SectionViewExRef> children;
};

TEST_F(SectionChildren, InsertPlacesBeforeTheGivenChildOrAtTheEnd) {
    EXPECT_EQ(Order(*parent), "ABC");
    parent->InsertChildSection(Make<SectionViewEx>(u"D", ""), Child(1));
    EXPECT_EQ(Order(*parent), "ADBC");
    parent->InsertChildSection(Make<SectionViewEx>(u"E", ""));
    EXPECT_EQ(Order(*parent), "ADBCE");
    parent->InsertChildSection(Make<SectionViewEx>(u"F", ""), Make<SectionViewEx>(u"S", "").get());
    EXPECT_EQ(Order(*parent), "ADBCEF");
    // The layout's own view stays first in the content view.
    EXPECT_EQ(parent->GetContentView().ChildBegin()->get(), parent->GetLayoutContentView().get());
    EXPECT_THROW(parent->InsertChildSection(children[0]), std::logic_error);
    EXPECT_EQ(Order(*parent), "ADBCEF");
}

TEST_F(SectionChildren, RemovingRestacksUnlessAskedNotTo) {
    const float before = parent->UI_GetLocalRectF().height;
    const float rowHeight = Child(0)->GetSectionSize().y;
    EXPECT_TRUE(parent->RemoveChildSection(Child(1)));
    EXPECT_EQ(Order(*parent), "AC");
    EXPECT_EQ(parent->UI_GetLocalRectF().height, before - rowHeight);
    EXPECT_EQ(Child(1)->GetParentSection(), nullptr);

    EXPECT_TRUE(parent->RemoveChildSection(Child(2), true));
    EXPECT_EQ(parent->UI_GetLocalRectF().height, before - rowHeight);

    journal.clear();
    EXPECT_FALSE(parent->RemoveChildSection(Child(1)));
    EXPECT_TRUE(journal.empty());
    EXPECT_EQ(Order(*parent), "A");
}

TEST_F(SectionChildren, MovesSwapNeighboursAndRefuseAtTheEnds) {
    EXPECT_FALSE(parent->MoveChildSectionUp(Child(0)));
    EXPECT_FALSE(parent->MoveChildSectionDown(Child(2)));
    SectionViewExRef stranger = Make<SectionViewEx>(u"S", "");
    EXPECT_FALSE(parent->MoveChildSectionUp(stranger.get()));
    EXPECT_FALSE(parent->MoveChildSectionDown(stranger.get()));
    EXPECT_EQ(Order(*parent), "ABC");

    const RectF firstPlace = Child(0)->UI_GetLocalRectF(true);
    const RectF secondPlace = Child(1)->UI_GetLocalRectF(true);
    EXPECT_TRUE(parent->MoveChildSectionDown(Child(1)));
    EXPECT_EQ(Order(*parent), "ACB");
    EXPECT_TRUE(parent->IsLastChildSection(Child(1)));
    EXPECT_TRUE(parent->MoveChildSectionUp(Child(2)));
    EXPECT_EQ(Order(*parent), "CAB");
    EXPECT_TRUE(parent->IsFirstChildSection(Child(2)));
    EXPECT_EQ(Child(2)->UI_GetLocalRectF(true), firstPlace);
    EXPECT_EQ(Child(0)->UI_GetLocalRectF(true), secondPlace);
    // A moved child still restacks its parent when it folds.
    const float before = parent->UI_GetLocalRectF().height;
    Child(2)->SetOpened(false);
    EXPECT_LT(parent->UI_GetLocalRectF().height, before);
}

TEST_F(SectionChildren, AChildTakenToAnotherParentRestacksTheNewOneOnly) {
    SectionViewExRef other = Make<SectionViewEx>(u"", "");
    SectionViewExRef child = children[0];
    parent->RemoveChildSection(child.get());
    other->InsertChildSection(child);
    other->UpdateSectionLayout();
    const float before = other->UI_GetLocalRectF().height;
    // The old parent is gone; folding must reach the new one and nothing else.
    parent.reset();
    children.clear();
    child->SetOpened(false);
    EXPECT_LT(other->UI_GetLocalRectF().height, before);
    EXPECT_EQ(other->UI_GetLocalRectF().height, child->GetHeaderHeight());
}

TEST_F(SectionChildren, FindingByLayoutNameLooksOneLevelDownWhenAsked) {
    SectionViewExRef deep = Make<SectionViewEx>(u"G", "igdTestDeep");
    SectionViewExRef deeper = Make<SectionViewEx>(u"H", "igdTestDeep");
    Child(1)->InsertChildSection(deep);
    deep->InsertChildSection(deeper);
    Child(2)->InsertChildSection(Make<SectionViewEx>(u"I", "igdTestDeep"));

    EXPECT_EQ(parent->FindChildSection("igdTestRow"), children[0]);
    EXPECT_EQ(parent->FindChildSections("igdTestRow").size(), 3u);
    EXPECT_EQ(parent->FindChildSection("igdTestDeep"), nullptr);
    EXPECT_TRUE(parent->FindChildSections("igdTestDeep").empty());
    EXPECT_EQ(parent->FindChildSection("igdTestDeep", true), deep);
    const std::vector<SectionViewExRef> found = parent->FindChildSections("igdTestDeep", true);
    ASSERT_EQ(found.size(), 2u) << "one level down only";
    EXPECT_EQ(found[0], deep);
    // Names are compared exactly.
    EXPECT_EQ(parent->FindChildSection("IGDTESTROW", true), nullptr);
}

TEST_F(SectionChildren, EnablingReachesTheContentAndTheChildren) {
    parent->SetContentEnabled(false);
    EXPECT_FALSE(parent->FindControl("Box")->UI_IsEnabled());
    // The children are not part of the content.
    EXPECT_TRUE(Child(0)->UI_IsEnabled());
    parent->SetContentEnabled(true);
    EXPECT_TRUE(parent->FindControl("Box")->UI_IsEnabled());

    parent->SetChildEnabled(1, false);
    EXPECT_FALSE(Child(1)->IsContentEnabled());
    EXPECT_TRUE(Child(0)->UI_IsEnabled());
    parent->SetChildEnabled(3, false); // past the end: ignored
    parent->SetAllChildrenEnabled(false);
    EXPECT_FALSE(Child(0)->UI_IsEnabled() || Child(1)->UI_IsEnabled() || Child(2)->UI_IsEnabled());

    SectionViewExRef bare = Make<SectionViewEx>(u"", "");
    bare->SetContentEnabled(true);
    EXPECT_FALSE(bare->IsContentEnabled());
}

} // namespace
} // namespace igd::test
