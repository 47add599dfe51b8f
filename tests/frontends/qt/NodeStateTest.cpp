// What every node shares follows the model: place, visibility, enabled state, tooltip, children
// and their order.
#include <QCoreApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QWidget>
#include <gtest/gtest.h>

#include "IgdQt/NodePresenter.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_TextEdit.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_Checkbox;
using fluxui::controls::UI_TextEdit;
using fluxui::ui::UI_SubView;
using igd::qt::NodePresenter;

class NodeStateTest : public ::testing::Test {
protected:
    void SetUp() override {
        EnsureQtApplication();
        root_ = new UI_SubView;
        root_->UI_SetLocalRectF({0, 0, 300, 120});
        group_ = new UI_SubView;
        group_->UI_SetLocalRectF({10, 10, 280, 60});
        root_->ChildPushBack(group_);
        box_ = new UI_Checkbox;
        box_->UI_SetLocalRectF({5, 5, 120, 20});
        group_->ChildPushBack(box_);
        presenter_ = std::make_unique<NodePresenter>(root_);
    }
    QWidget* W(const fluxui::ui::UI_Node& node) const { return presenter_->WidgetFor(node); }

    boost::intrusive_ptr<UI_SubView> root_;
    boost::intrusive_ptr<UI_SubView> group_;
    boost::intrusive_ptr<UI_Checkbox> box_;
    std::unique_ptr<NodePresenter> presenter_;
};

TEST_F(NodeStateTest, GeometryIsTheNodesRectInItsParentAndTheTooltipFollows) {
    box_->UI_SetToolTip(u"Copy every clip to a second place");
    EXPECT_EQ(W(*box_)->toolTip(), QStringLiteral("Copy every clip to a second place"));
    EXPECT_EQ(W(*box_)->geometry(), QRect(5, 5, 120, 20));
    EXPECT_EQ(W(*box_)->parentWidget(), W(*group_));
    root_->UI_SetLocalRectF({50, 60, 400, 200});
    EXPECT_EQ(W(*root_)->pos(), QPoint(0, 0)) << "a root's place is its window's, not inside the host";
}

TEST_F(NodeStateTest, VisibilityFollowsShowAndHide) {
    presenter_->RootWidget()->show();
    EXPECT_TRUE(W(*box_)->isVisible());
    box_->UI_Show(false);
    EXPECT_FALSE(W(*box_)->isVisible());
    group_->UI_Hide(true);
    box_->UI_Show(true);
    EXPECT_FALSE(W(*box_)->isVisible()) << "inside a hidden group";
    EXPECT_TRUE(W(*box_)->isVisibleTo(W(*group_)));
    group_->UI_Hide(false);
    EXPECT_TRUE(W(*box_)->isVisible());
}

TEST_F(NodeStateTest, EnabledStateFollowsTheNodeAndItsAncestors) {
    box_->SetDisabled(true);
    EXPECT_FALSE(W(*box_)->isEnabled());
    group_->UI_SetDisabled(true);
    box_->SetDisabled(false);
    EXPECT_FALSE(W(*box_)->isEnabled()) << "a disabled group disables what it holds";
    group_->UI_SetDisabled(false);
    EXPECT_TRUE(W(*box_)->isEnabled());

    // Disabled on its own, a control stays disabled when its group comes back.
    box_->SetDisabled(true);
    group_->UI_SetDisabled(true);
    group_->UI_SetDisabled(false);
    EXPECT_TRUE(W(*group_)->isEnabled());
    EXPECT_FALSE(W(*box_)->isEnabled());
}

TEST_F(NodeStateTest, ChildrenAddedAndRemovedLaterAreShownAndDropped) {
    boost::intrusive_ptr<UI_TextEdit> edit(new UI_TextEdit);
    edit->UI_SetLocalRectF({5, 30, 200, 22});
    edit->SetValue(u"Subfolder", false);
    group_->ChildInsert(0, edit);
    auto* line = dynamic_cast<QLineEdit*>(W(*edit));
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->text(), QStringLiteral("Subfolder"));
    EXPECT_EQ(line->parentWidget(), W(*group_));
    // The model's order is the stacking order: the checkbox, second, lies on top.
    const QObjectList stacking = W(*group_)->children();
    EXPECT_LT(stacking.indexOf(line), stacking.indexOf(W(*box_)));

    QPointer<QWidget> gone = W(*box_);
    group_->ChildRemove(box_.get());
    EXPECT_EQ(W(*box_), nullptr);
    ASSERT_FALSE(gone.isNull()) << "deleted later: the removal may come from its own signal";
    EXPECT_TRUE(gone->isHidden());
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(gone.isNull());
}

TEST_F(NodeStateTest, ModelFocusMovesTheWidgetFocus) {
    boost::intrusive_ptr<UI_TextEdit> edit(new UI_TextEdit);
    edit->UI_SetLocalRectF({5, 30, 200, 22});
    group_->ChildPushBack(edit);
    ShowActive(*presenter_->RootWidget());
    ASSERT_TRUE(edit->UI_GainKeyboardFocus());
    EXPECT_TRUE(W(*edit)->hasFocus());
}

} // namespace
} // namespace igd::test
