// How a section measures itself and stacks its children.
#include <gtest/gtest.h>

#include "tests/transfer/SectionTestSupport.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;
using wrangler::ui::SectionViewEx;
using wrangler::ui::SectionViewExRef;

constexpr float kHeader = fluxui::controls::UI_SectionView::kDefaultHeaderHeight;

class SectionMeasure : public ::testing::Test {
protected:
    SectionMeasure() {
        resources.AddLayout("igdTestParent", 200, 30);
        resources.AddLayout("igdTestChild", 180, 20);
        resources.AddLayout("igdTestTall", 160, 40);
    }
    SectionViewExRef Built(const Fnd::WString& title, const std::string& layout) {
        SectionViewExRef section = Make<SectionViewEx>(title, layout);
        wrangler::ui::BuildSectionTree(*section, resources, nullptr);
        return section;
    }
    static RectF Placed(const SectionViewExRef& section) { return section->UI_GetLocalRectF(true); }

    TestResources resources;
};

TEST_F(SectionMeasure, AnUntitledSectionIsAPlainBlockThatCannotFold) {
    SectionViewExRef block = Built(u"", "igdTestChild");
    SectionViewExRef titled = Built(u"Verify", "igdTestChild");
    block->UpdateSectionLayout();
    titled->UpdateSectionLayout();
    // No header, no border and no bottom margin, whatever the draw policy.
    EXPECT_FALSE(block->GetShowBorder());
    EXPECT_EQ(block->GetSectionSize(), (PointF{180, 20}));
    EXPECT_EQ(titled->GetContentSize(), (PointF{180, 25}));
    block->ToggleByUser();
    titled->ToggleByUser();
    EXPECT_TRUE(block->GetOpened());
    EXPECT_FALSE(titled->GetOpened());
}

TEST_F(SectionMeasure, ChildrenStackBelowTheContentAndFoldingResizesEveryAncestor) {
    SectionViewExRef parent = Make<SectionViewEx>(u"", "igdTestParent");
    parent->SetChildSpacing(4);
    SectionViewExRef a = Make<SectionViewEx>(u"A", "igdTestChild");
    SectionViewExRef b = Make<SectionViewEx>(u"B", "igdTestChild");
    SectionViewExRef leaf = Make<SectionViewEx>(u"Leaf", "igdTestTall");
    parent->InsertChildSection(a);
    parent->InsertChildSection(b);
    b->InsertChildSection(leaf);
    wrangler::ui::BuildSectionTree(*parent, resources, nullptr);

    // A child: its content and its header; B adds the leaf and a bottom margin of 5.
    const float aHeight = 20 + kHeader;
    const float bHeight = 20 + (40 + kHeader) + 5 + kHeader;
    EXPECT_EQ(a->GetSectionSize(), (PointF{182, aHeight})) << "one unit of border each side";
    EXPECT_EQ(Placed(a), (RectF{0, 34, 200, aHeight}));
    EXPECT_EQ(Placed(b), (RectF{0, 34 + aHeight + 4, 200, bHeight}));
    EXPECT_EQ(Placed(parent).height, 30 + 4 + aHeight + 4 + bHeight);
    EXPECT_EQ(a->GetLayoutContentView()->UI_GetLocalRectF().width, 200.0f) << "follows the width given";

    a->UI_Hide(true);
    parent->UpdateSectionLayout();
    EXPECT_EQ(Placed(b).top, 34.0f) << "a hidden child takes neither room nor spacing";
    a->UI_Show(true);
    a->SetOpened(false);
    EXPECT_EQ(Placed(a).height, kHeader);
    EXPECT_EQ(Placed(b).top, 34 + kHeader + 4);

    leaf->SetOpened(false);
    EXPECT_EQ(Placed(b).height, bHeight - 40);
    EXPECT_EQ(Placed(parent).height, 30 + 4 + kHeader + 4 + bHeight - 40);
    b->SetOpened(false);
    EXPECT_FALSE(b->GetContentView().UI_IsShown());
    EXPECT_EQ(Placed(parent).height, 30 + 4 + kHeader + 4 + kHeader);
    b->SetOpened(true);
    leaf->SetOpened(true);
    a->SetOpened(true);
    EXPECT_EQ(Placed(parent).height, 30 + 4 + aHeight + 4 + bHeight);
}

} // namespace
} // namespace igd::test
