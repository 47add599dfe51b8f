#include <gtest/gtest.h>

#include "fluxui/ui/UI_LayoutView.h"
#include "fluxui/ui/UI_SubView.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using fluxcore::geom::RectF;
using fluxui::ui::FocusReason;
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
    EXPECT_EQ(leaf->UI_GetRootNode(), root.get());
    leaf->UI_SetNodeID("UI_Popup");
    EXPECT_EQ(root->UI_FindNodeByID("UI_Popup"), leaf);

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

TEST(NodeLayout, BoundSubviewsKeepTheirMarginsAsTheParentGrows) {
    auto root = Make<UI_SubView>();
    root->UI_SetLocalRectF({0, 0, 200, 100});
    auto stretch = Make<UI_SubView>();
    auto pinnedRight = Make<UI_SubView>();
    stretch->UI_SetLayoutBinding(fluxui::ui::kBindAll);
    pinnedRight->UI_SetLayoutBinding(fluxui::ui::kBindRight | fluxui::ui::kBindTop);
    for (auto& view : {stretch, pinnedRight}) {
        view->UI_SetLocalRectF({10, 10, 50, 20});
        root->ChildPushBack(view);
    }
    root->UI_SetLocalRectF({0, 0, 300, 150});
    EXPECT_EQ(stretch->UI_GetLocalRectF(true), (RectF{10, 10, 150, 70}));
    EXPECT_EQ(pinnedRight->UI_GetLocalRectF(true), (RectF{110, 10, 50, 20}));
}

TEST(NodeLayout, AHiddenRowOfALayoutViewLeavesNoGap) {
    auto layout = Make<fluxui::ui::UI_LayoutView>(fluxui::ui::LayoutDirection::Vertical, 4.0f, 2.0f);
    std::vector<boost::intrusive_ptr<UI_SubView>> rows;
    for (float height : {20.0f, 30.0f, 40.0f}) {
        rows.push_back(Make<UI_SubView>());
        rows.back()->UI_SetLocalRectF({0, 0, 10, height});
        layout->ChildPushBack(rows.back());
    }
    rows[1]->UI_Hide(true);
    layout->UI_SetLocalRectF({0, 0, 100, 200});
    EXPECT_EQ(rows[2]->UI_GetLocalRectF(true).top, rows[0]->UI_GetLocalRectF(true).Bottom() + 4);
    EXPECT_FLOAT_EQ(layout->GetNeededExtent(), 2 + 20 + 4 + 40 + 2);
}

TEST(KeyboardFocus, OneNodeHoldsItAndLosesItWhenHiddenDisabledOrRemoved) {
    auto root = Make<UI_SubView>();
    auto group = Make<UI_SubView>();
    auto field = Make<FocusableView>();
    auto other = Make<FocusableView>();
    root->ChildPushBack(group);
    root->ChildPushBack(other);
    group->ChildPushBack(field);

    ASSERT_TRUE(field->UI_GainKeyboardFocus());
    ASSERT_TRUE(other->UI_GainKeyboardFocus());
    EXPECT_FALSE(field->UI_HasKeyboardFocus());
    EXPECT_EQ(field->reasons, (std::vector<FocusReason>{FocusReason::Gained, FocusReason::Lost}));

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
}

} // namespace
} // namespace igd::test
