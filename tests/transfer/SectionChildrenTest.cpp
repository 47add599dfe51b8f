// The child list of a section: order, removal, moves, look-ups and enabling.
#include <gtest/gtest.h>

#include "tests/transfer/SectionTestSupport.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

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
        parent = Make<SectionViewEx>(u"", "igdTestRow");
        for (const char16_t* title : {u"A", u"B", u"C"}) {
            SectionViewExRef child = Make<SectionViewEx>(title, "igdTestRow");
            parent->InsertChildSection(child);
            children.push_back(child);
        }
        wrangler::ui::BuildSectionTree(*parent, resources, nullptr);
    }
    SectionViewEx* Child(std::size_t i) const { return children[i].get(); }

    TestResources resources;
    SectionViewExRef parent;
    std::vector<SectionViewExRef> children;
};

TEST_F(SectionChildren, InsertRemoveAndMoveKeepTheListAndTheNodesInOneOrder) {
    SectionViewExRef d = Make<SectionViewEx>(u"D", "");
    parent->InsertChildSection(d, Child(1));
    parent->InsertChildSection(Make<SectionViewEx>(u"E", ""), Make<SectionViewEx>(u"S", "").get());
    EXPECT_EQ(Order(*parent), "ADBCE") << "before the given child, else at the end";
    // The layout's own view stays first in the content view.
    EXPECT_EQ(parent->GetContentView().ChildBegin()->get(), parent->GetLayoutContentView().get());
    EXPECT_THROW(parent->InsertChildSection(children[0]), std::logic_error);

    parent->UpdateSectionLayout();
    const float before = parent->UI_GetLocalRectF().height;
    EXPECT_TRUE(parent->RemoveChildSection(d.get()));
    EXPECT_EQ(Order(*parent), "ABCE");
    EXPECT_LT(parent->UI_GetLocalRectF().height, before) << "restacked";
    EXPECT_FALSE(parent->RemoveChildSection(Make<SectionViewEx>(u"S", "").get()));

    EXPECT_FALSE(parent->MoveChildSectionUp(Child(0)));
    EXPECT_FALSE(parent->MoveChildSectionDown(parent->GetChildSections().back().get()));
    EXPECT_FALSE(parent->MoveChildSectionUp(Make<SectionViewEx>(u"S", "").get()));
    EXPECT_TRUE(parent->MoveChildSectionDown(Child(1)));
    EXPECT_TRUE(parent->MoveChildSectionUp(Child(2)));
    EXPECT_EQ(Order(*parent), "CABE");
    EXPECT_TRUE(parent->IsFirstChildSection(Child(2)));
    EXPECT_LT(Child(2)->UI_GetLocalRectF(true).top, Child(0)->UI_GetLocalRectF(true).top) << "moved on screen";
    // A moved child still restacks its parent when it folds.
    const float unfolded = parent->UI_GetLocalRectF().height;
    Child(2)->SetOpened(false);
    EXPECT_LT(parent->UI_GetLocalRectF().height, unfolded);
}

TEST_F(SectionChildren, AChildTakenToAnotherParentRestacksTheNewOneOnly) {
    SectionViewExRef other = Make<SectionViewEx>(u"", "");
    SectionViewExRef child = children[0];
    parent->RemoveChildSection(child.get());
    EXPECT_EQ(child->GetParentSection(), nullptr);
    other->InsertChildSection(child);
    other->UpdateSectionLayout();
    const float before = other->UI_GetLocalRectF().height;
    // The old parent is gone; folding must reach the new one and nothing else.
    parent.reset();
    children.clear();
    child->SetOpened(false);
    EXPECT_LT(other->UI_GetLocalRectF().height, before);
}

TEST_F(SectionChildren, FindingByLayoutNameLooksOneLevelDownWhenAsked) {
    SectionViewExRef deep = Make<SectionViewEx>(u"G", "igdTestDeep");
    Child(1)->InsertChildSection(deep);
    deep->InsertChildSection(Make<SectionViewEx>(u"H", "igdTestDeep"));
    EXPECT_EQ(parent->FindChildSection("igdTestRow"), children[0]);
    EXPECT_EQ(parent->FindChildSection("igdTestDeep"), nullptr);
    EXPECT_EQ(parent->FindChildSections("igdTestDeep", true), std::vector<SectionViewExRef>{deep})
        << "one level down only";
}

TEST_F(SectionChildren, EnablingReachesTheContentAndTheChildren) {
    parent->SetContentEnabled(false);
    EXPECT_FALSE(parent->FindControl("Box")->UI_IsEnabled());
    EXPECT_TRUE(Child(0)->UI_IsEnabled()) << "the children are not part of the content";

    parent->SetChildEnabled(1, false);
    EXPECT_FALSE(Child(1)->IsContentEnabled());
    EXPECT_TRUE(Child(0)->UI_IsEnabled());
    parent->SetChildEnabled(3, false); // past the end: ignored
    parent->SetAllChildrenEnabled(false);
    EXPECT_FALSE(Child(0)->UI_IsEnabled() || Child(1)->UI_IsEnabled() || Child(2)->UI_IsEnabled());
}

} // namespace
} // namespace igd::test
