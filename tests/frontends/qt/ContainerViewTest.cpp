// The views that place others: a section folds when its header is clicked, a splitter follows
// the divider's drag as its model allows, a scroll view scrolls by wheel and by bar.
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <gtest/gtest.h>

#include "IgdQt/NodePresenter.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "fluxui/controls/UI_SectionView.h"
#include "fluxui/controls/UI_SplitterView.h"

namespace igd::test {
namespace {

using namespace fluxui::controls;
using fluxui::ui::UI_SubView;
using igd::qt::NodePresenter;

class ContainerViewTest : public ::testing::Test {
protected:
    void SetUp() override { EnsureQtApplication(); }
    // Drags the splitter's divider from one point to another, as the mouse does.
    static void Drag(QWidget* widget, QPoint from, QPoint to) {
        QTest::mousePress(widget, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, QPointF(to), widget->mapToGlobal(QPointF(to)), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(widget, &move);
        QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
    }
};

TEST_F(ContainerViewTest, AClickOnTheHeaderFoldsTheSection) {
    boost::intrusive_ptr<UI_SectionView> section(new UI_SectionView(u"Transfer"));
    section->UpdateSize({0, 0, 300, 0});
    section->GetContentView().UI_SetLocalRectF({0, 24, 300, 80});
    section->UpdateSize({0, 0, 300, 0});
    std::vector<bool> heard;
    section->AddOpenedStateChangedCallback([&heard](bool opened) { heard.push_back(opened); });
    NodePresenter presenter(section);
    ShowActive(*presenter.RootWidget());
    QWidget* widget = presenter.WidgetFor(*section);
    QWidget* content = presenter.WidgetFor(section->GetContentView());
    ASSERT_TRUE(content->isVisible());

    QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(40, 10));
    EXPECT_FALSE(section->GetOpened());
    EXPECT_FALSE(content->isVisible());
    ASSERT_EQ(heard, std::vector<bool>{false});

    // A click below the header is the content's, not a fold.
    section->SetOpened(true);
    QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(40, 60));
    EXPECT_TRUE(section->GetOpened());

    section->SetUserOpenable(false);
    QTest::mouseClick(widget, Qt::LeftButton, {}, QPoint(40, 10));
    EXPECT_TRUE(section->GetOpened()) << "a section the person may not fold stays open";
}

TEST_F(ContainerViewTest, DraggingTheDividerSplitsAsTheModelAllows) {
    boost::intrusive_ptr<UI_SplitterView> splitter(new UI_SplitterView(SplitDirection::Horizontal, 50, 6));
    boost::intrusive_ptr<UI_SubView> left(new UI_SubView), right(new UI_SubView);
    splitter->SetTopLeftView(left);
    splitter->SetBottomRightView(right);
    splitter->UI_SetLocalRectF({0, 0, 406, 100});
    splitter->SetSplitValidationFunction([](float wanted) { return std::max(wanted, 25.0f); });
    NodePresenter presenter(splitter);
    ShowActive(*presenter.RootWidget());
    QWidget* widget = presenter.WidgetFor(*splitter);
    ASSERT_EQ(presenter.WidgetFor(*left)->width(), 200);

    Drag(widget, {202, 50}, {302, 50});
    EXPECT_FLOAT_EQ(splitter->GetSplitPercentage(), 75.0f);
    EXPECT_EQ(presenter.WidgetFor(*left)->width(), 300);

    // The validation function holds the first view at a quarter at least.
    Drag(widget, {302, 50}, {10, 50});
    EXPECT_FLOAT_EQ(splitter->GetSplitPercentage(), 25.0f);
    EXPECT_EQ(presenter.WidgetFor(*left)->width(), 100);
}

TEST_F(ContainerViewTest, WheelAndBarScrollTheContent) {
    boost::intrusive_ptr<UI_SubView> content(new UI_SubView);
    boost::intrusive_ptr<UI_ScrollView> scroll(new UI_ScrollView(0, content));
    scroll->UI_SetLocalRectF({0, 0, 200, 100});
    scroll->SetContentRectF({0, 0, 186, 400});
    NodePresenter presenter(scroll);
    ShowActive(*presenter.RootWidget());
    auto* bar = dynamic_cast<QScrollBar*>(presenter.WidgetFor(scroll->GetScrollBarY()));
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->maximum(), 300);

    QWidget* view = presenter.WidgetFor(*scroll);
    QWheelEvent down(QPointF(50, 50), view->mapToGlobal(QPointF(50, 50)), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view, &down);
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 60.0f);
    EXPECT_EQ(presenter.WidgetFor(*content)->y(), -60);
    EXPECT_EQ(bar->value(), 60);

    bar->setValue(300);
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 300.0f);
    EXPECT_EQ(presenter.WidgetFor(*content)->y(), -300);

    // Content that fits needs no bar.
    scroll->SetContentRectF({0, 0, 186, 80});
    EXPECT_FALSE(bar->isVisible());
    EXPECT_EQ(presenter.WidgetFor(*content)->y(), 0);
}

} // namespace
} // namespace igd::test
