// How a section measures itself and stacks its children.
#include <gtest/gtest.h>

#include "AppFrame/ColorManager.h"
#include "tests/transfer/SectionTestSupport.h"
#include "transfer/SectionTree.h"

namespace {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;
using fluxui::controls::SectionDrawPolicy;
using igd::test::Make;
using igd::test::RecordingSketcher;
using igd::test::TestResources;
using wrangler::ui::SectionViewEx;
using wrangler::ui::SectionViewExRef;

constexpr float kHeader = fluxui::controls::UI_SectionView::kDefaultHeaderHeight;

class SectionMeasure : public ::testing::Test {
protected:
    SectionMeasure() {
        resources.AddLayout("igdTestParent", 200, 30);
        resources.AddLayout("igdTestChild", 180, 20);
        resources.AddLayout("igdTestNarrow", 100, 20);
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

TEST_F(SectionMeasure, ABuiltSectionTakesTheSizeOfItsLayoutAndAnEmptyOneMeasuresZero) {
    SectionViewExRef section = Built(u"Verify", "igdTestChild");
    ASSERT_NE(section->GetLayoutContentView(), nullptr);
    EXPECT_EQ(section->GetContentSize(), (PointF{180, 20}));
    EXPECT_EQ(section->GetLayoutContentView()->UI_GetParentNode(), &section->GetContentView());
    EXPECT_EQ(section->GetContentView().UI_GetLocalRectF().height, 20.0f);

    SectionViewExRef empty = Built(u"", "");
    empty->UpdateSectionLayout();
    EXPECT_EQ(empty->GetContentSize(), (PointF{0, 0}));
    EXPECT_EQ(Placed(empty), (RectF{0, 0, 0, 0}));
    EXPECT_EQ(empty->GetSectionSize(), (PointF{0, 0}));
    EXPECT_EQ(empty->GetLayoutContentView(), nullptr);
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

TEST_F(SectionMeasure, AClosedChildMeasuresItsPresentWidth) {
    SectionViewExRef parent = Make<SectionViewEx>(u"", "");
    SectionViewExRef wide = Built(u"Wide", "igdTestChild");
    SectionViewExRef narrow = Built(u"Narrow", "igdTestNarrow");
    parent->InsertChildSection(wide);
    parent->InsertChildSection(narrow);
    wide->UI_SetLocalRectF({0, 0, 300, 44});

    wide->SetOpened(false);
    EXPECT_EQ(wide->GetSectionSize(), (PointF{300, kHeader}));
    EXPECT_EQ(parent->GetContentSize(), (PointF{300, kHeader + 44}));
    wide->SetOpened(true);
    EXPECT_EQ(wide->GetSectionSize(), (PointF{182, 44}));
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

TEST_F(SectionMeasure, OnlyBorderlessDrawPoliciesDropTheBorderRoom) {
    SectionViewExRef section = Built(u"Verify", "igdTestChild");
    struct Case {
        SectionDrawPolicy policy;
        PointF size;
    };
    const Case cases[] = {
        {SectionDrawPolicy::HeaderAndBorder, {182, 20 + kHeader}},
        {SectionDrawPolicy::HeaderOnly, {180, 20 + kHeader - 1}},
        {SectionDrawPolicy::Nothing, {180, 20 + kHeader - 1}},
        {static_cast<SectionDrawPolicy>(2), {182, 20 + kHeader}},
        {static_cast<SectionDrawPolicy>(1 | 8), {180, 20 + kHeader - 1}},
    };
    for (const Case& c : cases) {
        section->SetDrawPolicy(c.policy);
        EXPECT_EQ(section->GetSectionSize(), c.size) << "policy " << static_cast<unsigned>(c.policy);
    }
    section->SetDrawPolicy(SectionDrawPolicy::HeaderOnly);
    section->UpdateSectionLayout();
    EXPECT_EQ(Placed(section).height, 20 + 5 + kHeader - 1);
}

TEST_F(SectionMeasure, TitledSectionsDrawTheirOutlineInTheSectionColour) {
    const auto outlineColor = fluxui::ui::GetColor(4000054);
    auto window = Make<fluxui::ui::UI_SubView>();
    SectionViewExRef titled = Built(u"Verify", "igdTestChild");
    SectionViewExRef untitled = Built(u"", "igdTestChild");
    window->ChildPushBack(titled);
    window->ChildPushBack(untitled);
    titled->UI_SetLocalRectF({10, 20, 180, 44});
    untitled->UI_SetLocalRectF({10, 70, 180, 20});

    RecordingSketcher sketcher;
    window->UI_Draw(sketcher);
    EXPECT_EQ(sketcher.OutlinesIn(outlineColor), (std::vector<RectF>{{10, 20, 180, 44}}));

    titled->SetScrollBarShown(true);
    sketcher.outlines.clear();
    window->UI_Draw(sketcher);
    EXPECT_EQ(sketcher.OutlinesIn(outlineColor), (std::vector<RectF>{{10, 20, 181, 44}}));
}

} // namespace
