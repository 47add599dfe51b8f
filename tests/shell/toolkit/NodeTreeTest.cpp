#include <gtest/gtest.h>

#include "fluxui/ui/OS_Window.h"
#include "fluxui/ui/UI_LayoutView.h"
#include "fluxui/ui/UI_SubView.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;
using fluxui::ui::FocusReason;
using fluxui::ui::NodeChange;
using fluxui::ui::UI_Node;
using fluxui::ui::UI_SubView;

class FocusableView : public UI_SubView {
public:
    bool UI_WantsKeyboardFocus() const override { return true; }
    void UI_FocusChanged(FocusReason reason) override { reasons.push_back(reason); }
    std::vector<FocusReason> reasons;
};

TEST(NodeTree, ChildrenKnowTheirParentAndRootAndLeaveCleanly) {
    auto root = Make<UI_SubView>();
    auto middle = Make<UI_SubView>();
    root->ChildPushBack(middle);
    UI_Node* leaf = nullptr;
    {
        auto held = Make<UI_SubView>();
        leaf = held.get();
        middle->ChildPushBack(held);
    }
    EXPECT_EQ(leaf->GetRefCount(), 1u) << "the tree holds its children";
    EXPECT_EQ(leaf->UI_GetParentNode(), middle.get());
    EXPECT_EQ(leaf->UI_GetRootNode(), root.get());
    EXPECT_EQ(root->UI_GetParentNode(), nullptr);

    auto first = Make<UI_SubView>();
    root->ChildInsert(0, first);
    ASSERT_EQ(root->ChildCount(), 2u);
    EXPECT_EQ(root->ChildBegin()->get(), first.get());
    EXPECT_NE(root->ChildFind(middle.get()), root->ChildEnd());
    leaf->UI_SetNodeID("UI_Popup");
    EXPECT_EQ(root->UI_FindNodeByID("UI_Popup"), leaf);
    EXPECT_EQ(root->UI_FindNodeByID("missing"), nullptr);

    EXPECT_TRUE(root->ChildRemove(middle.get()));
    EXPECT_EQ(middle->UI_GetParentNode(), nullptr);
    EXPECT_EQ(leaf->UI_GetRootNode(), middle.get());
    EXPECT_FALSE(root->ChildRemove(middle.get()));
}

TEST(NodeTree, RefusesTreesThatAreNotTrees) {
    auto root = Make<UI_SubView>();
    auto child = Make<UI_SubView>();
    root->ChildPushBack(child);
    EXPECT_THROW(root->ChildPushBack(child), std::logic_error);
    EXPECT_THROW(child->ChildPushBack(root), std::logic_error);
    EXPECT_THROW(root->ChildPushBack(nullptr), std::invalid_argument);
}

TEST(NodeGeometry, RectsAreInTheParentsSpaceAndSizeChangesAreReported) {
    auto root = Make<UI_SubView>();
    auto child = Make<UI_SubView>();
    root->ChildPushBack(child);
    root->UI_SetLocalRectF({100, 100, 400, 300});
    std::vector<RectF> sizes;
    child->UI_InstallSizeChangedNotifyFunction([&](const RectF& r) { sizes.push_back(r); });

    child->UI_SetLocalRectF({10, 20, 50, 60});
    EXPECT_EQ(child->UI_GetLocalRectF(true), (RectF{10, 20, 50, 60}));
    EXPECT_EQ(child->UI_GetLocalRectF(), (RectF{0, 0, 50, 60}));
    ASSERT_EQ(sizes.size(), 1u);
    EXPECT_EQ(sizes[0], (RectF{0, 0, 50, 60}));

    child->UI_SetLocalRectF({30, 40, 50, 60}); // moved only
    EXPECT_EQ(sizes.size(), 1u);

    // The root's place is its window's place on screen, not part of the client space.
    EXPECT_EQ(child->UI_LocalToGlobal({1, 2}), (PointF{31, 42}));
}

TEST(NodeGeometry, BoundSubviewsFollowTheirParentsSides) {
    auto root = Make<UI_SubView>();
    root->UI_SetLocalRectF({0, 0, 200, 100});
    auto stretch = Make<UI_SubView>();
    auto pinnedRight = Make<UI_SubView>();
    auto fixed = Make<UI_SubView>();
    stretch->UI_SetLayoutBinding(fluxui::ui::kBindAll);
    pinnedRight->UI_SetLayoutBinding(fluxui::ui::kBindRight | fluxui::ui::kBindTop);
    for (auto& view : {stretch, pinnedRight, fixed}) {
        view->UI_SetLocalRectF({10, 10, 50, 20});
        root->ChildPushBack(view);
    }
    root->UI_SetLocalRectF({0, 0, 300, 150});
    EXPECT_EQ(stretch->UI_GetLocalRectF(true), (RectF{10, 10, 150, 70}));
    EXPECT_EQ(pinnedRight->UI_GetLocalRectF(true), (RectF{110, 10, 50, 20}));
    EXPECT_EQ(fixed->UI_GetLocalRectF(true), (RectF{10, 10, 50, 20}));

    root->UI_SetLayoutsChildren(false);
    root->UI_SetLocalRectF({0, 0, 100, 100});
    EXPECT_EQ(stretch->UI_GetLocalRectF(true), (RectF{10, 10, 150, 70}));
}

TEST(NodeGeometry, LayoutViewStacksShownChildrenOnly) {
    auto layout = Make<fluxui::ui::UI_LayoutView>(fluxui::ui::LayoutDirection::Vertical, 4.0f, 2.0f);
    std::vector<boost::intrusive_ptr<UI_SubView>> rows;
    for (float height : {20.0f, 30.0f, 40.0f}) {
        rows.push_back(Make<UI_SubView>());
        rows.back()->UI_SetLocalRectF({0, 0, 10, height});
        layout->ChildPushBack(rows.back());
    }
    auto &a = rows[0], &b = rows[1], &c = rows[2];
    b->UI_Hide(true);
    layout->UI_SetLocalRectF({0, 0, 100, 200});
    EXPECT_EQ(a->UI_GetLocalRectF(true), (RectF{2, 2, 96, 20}));
    EXPECT_EQ(c->UI_GetLocalRectF(true), (RectF{2, 26, 96, 40}));
    EXPECT_FLOAT_EQ(layout->GetNeededExtent(), 2 + 20 + 4 + 40 + 2);
}

TEST(KeyboardFocus, OneNodeOfATreeHoldsItAndHearsOfChanges) {
    auto root = Make<UI_SubView>();
    auto a = Make<FocusableView>();
    auto b = Make<FocusableView>();
    auto plain = Make<UI_SubView>();
    root->ChildPushBack(a);
    root->ChildPushBack(b);
    root->ChildPushBack(plain);

    EXPECT_FALSE(plain->UI_GainKeyboardFocus());
    EXPECT_TRUE(a->UI_GainKeyboardFocus());
    EXPECT_TRUE(b->UI_GainKeyboardFocus());
    EXPECT_FALSE(a->UI_HasKeyboardFocus());
    EXPECT_TRUE(b->UI_HasKeyboardFocus());
    EXPECT_EQ(a->reasons, (std::vector<FocusReason>{FocusReason::Gained, FocusReason::Lost}));

    b->UI_LoseKeyboardFocus();
    EXPECT_EQ(root->UI_GetFocusedNode(), nullptr);
}

TEST(KeyboardFocus, IsLostWhenTheHolderIsHiddenDisabledRemovedOrJoinsAnotherTree) {
    auto root = Make<UI_SubView>();
    auto group = Make<UI_SubView>();
    auto field = Make<FocusableView>();
    root->ChildPushBack(group);
    group->ChildPushBack(field);

    ASSERT_TRUE(field->UI_GainKeyboardFocus());
    group->UI_Hide(true);
    EXPECT_FALSE(field->UI_HasKeyboardFocus());
    EXPECT_FALSE(field->UI_GainKeyboardFocus());
    group->UI_Show(true);

    ASSERT_TRUE(field->UI_GainKeyboardFocus());
    group->UI_SetDisabled(true);
    EXPECT_FALSE(field->UI_HasKeyboardFocus());
    group->UI_SetDisabled(false);

    ASSERT_TRUE(field->UI_GainKeyboardFocus());
    root->ChildRemove(group.get());
    EXPECT_EQ(root->UI_GetFocusedNode(), nullptr);
    EXPECT_FALSE(field->UI_HasKeyboardFocus());

    // A tree that joins another gives up the focus it held.
    ASSERT_TRUE(field->UI_GainKeyboardFocus());
    root->ChildPushBack(group);
    EXPECT_FALSE(field->UI_HasKeyboardFocus());
    EXPECT_TRUE(field->UI_GainKeyboardFocus());
    EXPECT_EQ(root->UI_GetFocusedNode(), field.get());
}

TEST(NodeObserver, HearsTheWholeSubtreeUnlessANearerObserverListens) {
    auto root = Make<UI_SubView>();
    auto child = Make<UI_SubView>();
    auto grandchild = Make<UI_SubView>();
    root->ChildPushBack(child);
    RecordingObserver rootObserver;
    RecordingObserver childObserver;
    root->UI_SetObserver(&rootObserver);

    child->ChildPushBack(grandchild);
    grandchild->UI_SetLocalRectF({0, 0, 5, 5});
    grandchild->UI_Hide(true);
    grandchild->UI_SetDisabled(true);
    grandchild->UI_SetDisabled(true); // no change, no news
    EXPECT_EQ(rootObserver.Count(child.get(), NodeChange::Children), 1);
    EXPECT_EQ(rootObserver.Count(grandchild.get(), NodeChange::Geometry), 1);
    EXPECT_EQ(rootObserver.Count(grandchild.get(), NodeChange::Visibility), 1);
    EXPECT_EQ(rootObserver.Count(grandchild.get(), NodeChange::Enabled), 1);

    child->UI_SetObserver(&childObserver);
    grandchild->UI_SetToolTip(u"tip");
    EXPECT_EQ(childObserver.Count(grandchild.get(), NodeChange::ToolTip), 1);
    EXPECT_EQ(rootObserver.Count(grandchild.get(), NodeChange::ToolTip), 0);
}

class FilledView : public UI_SubView {
public:
    void UI_Draw(fluxui::sketcher::Sketcher& sketcher) override {
        sketcher.FillRect(UI_GetLocalRectF().Offset(UI_LocalToGlobal({})), {});
        UI_SubView::UI_Draw(sketcher);
    }
};

TEST(NodeDrawing, DrawsShownChildrenInGlobalCoordinates) {
    auto root = Make<UI_SubView>();
    auto shown = Make<FilledView>();
    auto inner = Make<FilledView>();
    auto hidden = Make<FilledView>();
    shown->UI_SetLocalRectF({10, 10, 50, 50});
    inner->UI_SetLocalRectF({5, 5, 10, 10});
    shown->ChildPushBack(inner);
    root->ChildPushBack(shown);
    root->ChildPushBack(hidden);
    hidden->UI_Hide(true);
    RecordingSketcher sketcher;
    root->UI_Draw(sketcher);
    EXPECT_EQ(sketcher.fills, (std::vector<RectF>{{10, 10, 50, 50}, {15, 15, 10, 10}}));
}

} // namespace
} // namespace igd::test
