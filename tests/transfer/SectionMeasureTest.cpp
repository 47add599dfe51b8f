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
    EXPECT_EQ(block->GetHeaderHeight(), 0.0f);
    EXPECT_FALSE(block->GetShowBorder());
    block->ToggleByUser();
    EXPECT_TRUE(block->GetOpened());

    block->UpdateSectionLayout();
    // No bottom margin and no border room without a header, whatever the draw policy.
    EXPECT_EQ(block->GetContentSize(), (PointF{180, 20}));
    EXPECT_EQ(Placed(block).height, 20.0f);
    EXPECT_EQ(block->GetSectionSize(), (PointF{180, 20}));

    SectionViewExRef titled = Built(u"Verify", "igdTestChild");
    titled->UpdateSectionLayout();
    EXPECT_EQ(titled->GetContentSize(), (PointF{180, 25}));
    titled->ToggleByUser();
    EXPECT_FALSE(titled->GetOpened());
}

TEST_F(SectionMeasure, ChildrenStackBelowTheContentWithSpacingBetween) {
    SectionViewExRef parent = Make<SectionViewEx>(u"", "igdTestParent");
    parent->SetChildSpacing(4);
    SectionViewExRef a = Make<SectionViewEx>(u"A", "igdTestChild");
    SectionViewExRef b = Make<SectionViewEx>(u"B", "igdTestChild");
    parent->InsertChildSection(a);
    parent->InsertChildSection(b);
    wrangler::ui::BuildSectionTree(*parent, resources, nullptr);

    // Each child: its content, one unit of border each side, and its header.
    EXPECT_EQ(a->GetSectionSize(), (PointF{182, 44}));
    EXPECT_EQ(parent->GetContentSize(), (PointF{200, 30 + 4 + 44 + 4 + 44}));
    EXPECT_EQ(Placed(parent), (RectF{0, 0, 200, 126}));
    EXPECT_EQ(parent->GetLayoutContentView()->UI_GetLocalRectF(true), (RectF{0, 0, 200, 30}));
    EXPECT_EQ(Placed(a), (RectF{0, 34, 200, 44}));
    EXPECT_EQ(Placed(b), (RectF{0, 82, 200, 44}));
    // A child's own layout view follows the width it was given.
    EXPECT_EQ(a->GetLayoutContentView()->UI_GetLocalRectF().width, 200.0f);

    // A hidden child takes neither room nor spacing.
    a->UI_Hide(true);
    parent->UpdateSectionLayout();
    EXPECT_EQ(parent->GetContentSize().y, 30 + 4 + 44);
    EXPECT_EQ(Placed(b).top, 34.0f);

    // A closed child takes its header alone.
    a->UI_Show(true);
    a->SetOpened(false);
    EXPECT_EQ(Placed(a), (RectF{0, 34, 200, kHeader}));
    EXPECT_EQ(Placed(b).top, 34 + kHeader + 4);
    EXPECT_EQ(Placed(parent).height, 30 + 4 + kHeader + 4 + 44);
}

TEST_F(SectionMeasure, FoldingAChildResizesEveryAncestor) {
    SectionViewExRef root = Make<SectionViewEx>(u"", "");
    SectionViewExRef middle = Make<SectionViewEx>(u"Middle", "igdTestChild");
    SectionViewExRef leaf = Make<SectionViewEx>(u"Leaf", "igdTestTall");
    root->InsertChildSection(middle);
    middle->InsertChildSection(leaf);
    wrangler::ui::BuildSectionTree(*root, resources, nullptr);

    // Middle: its content 20, the leaf 40 + header, the bottom margin 5, its own header.
    const float openHeight = 20 + (40 + kHeader) + 5 + kHeader;
    EXPECT_EQ(Placed(middle).height, openHeight);
    EXPECT_EQ(Placed(root).height, openHeight);

    leaf->SetOpened(false);
    EXPECT_EQ(Placed(leaf).height, kHeader);
    EXPECT_EQ(Placed(middle).height, openHeight - 40);
    EXPECT_EQ(Placed(root).height, openHeight - 40);

    middle->SetOpened(false);
    EXPECT_EQ(Placed(middle).height, kHeader);
    EXPECT_EQ(Placed(root).height, kHeader);
    EXPECT_FALSE(middle->GetContentView().UI_IsShown());

    middle->SetOpened(true);
    leaf->SetOpened(true);
    EXPECT_EQ(Placed(root).height, openHeight);
}

} // namespace
} // namespace igd::test
