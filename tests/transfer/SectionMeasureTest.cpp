// How a section measures itself and stacks its children.
#include <gtest/gtest.h>

#include "tests/transfer/SectionTestSupport.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using fluxcore::geom::RectF;
using wrangler::ui::SectionViewEx;
using wrangler::ui::SectionViewExRef;

// Children are stacked top to bottom in their order, each below the previous one.
void ExpectStacked(const std::vector<fluxui::ui::UI_NodeRef>& sections) {
    for (std::size_t i = 1; i < sections.size(); ++i) {
        const RectF above = sections[i - 1]->UI_GetLocalRectF(true);
        EXPECT_LE(above.top + above.height, sections[i]->UI_GetLocalRectF(true).top) << "child " << i;
    }
}

TEST(SectionMeasure, ChildrenStackWithoutOverlapAndFoldingResizesEveryAncestor) {
    TestResources resources;
    resources.AddLayout("igdTestParent", 200, 30);
    resources.AddLayout("igdTestChild", 180, 20);
    SectionViewExRef parent = Make<SectionViewEx>(u"", "igdTestParent");
    parent->SetChildSpacing(4);
    SectionViewExRef a = Make<SectionViewEx>(u"A", "igdTestChild");
    SectionViewExRef b = Make<SectionViewEx>(u"B", "igdTestChild");
    SectionViewExRef leaf = Make<SectionViewEx>(u"Leaf", "igdTestChild");
    parent->InsertChildSection(a);
    parent->InsertChildSection(b);
    b->InsertChildSection(leaf);
    wrangler::ui::BuildSectionTree(*parent, resources, nullptr);
    const auto height = [](const SectionViewExRef& s) { return s->UI_GetLocalRectF(true).height; };
    const float full = height(parent);
    ExpectStacked({parent->GetLayoutContentView(), a, b});
    EXPECT_GE(full, 30 + height(a) + height(b));

    a->UI_Hide(true);
    parent->UpdateSectionLayout();
    EXPECT_EQ(b->UI_GetLocalRectF(true).top, a->UI_GetLocalRectF(true).top) << "a hidden child takes no room";
    a->UI_Show(true);
    parent->UpdateSectionLayout();

    const float bOpen = height(b);
    leaf->SetOpened(false);
    EXPECT_LT(height(b), bOpen);
    EXPECT_LT(height(parent), full);
    b->SetOpened(false);
    EXPECT_FALSE(b->GetContentView().UI_IsShown());
    ExpectStacked({parent->GetLayoutContentView(), a, b});
    b->SetOpened(true);
    leaf->SetOpened(true);
    EXPECT_EQ(height(parent), full) << "reopening gives back the room";

    // An untitled section is a plain block: the user cannot fold it.
    SectionViewExRef block = Make<SectionViewEx>(u"", "igdTestChild");
    wrangler::ui::BuildSectionTree(*block, resources, nullptr);
    block->ToggleByUser();
    a->ToggleByUser();
    EXPECT_TRUE(block->GetOpened());
    EXPECT_FALSE(a->GetOpened());
}

} // namespace
} // namespace igd::test
