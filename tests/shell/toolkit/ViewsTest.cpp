#include <gtest/gtest.h>

#include "fluxui/controls/UI_ScrollView.h"
#include "fluxui/controls/UI_SectionView.h"
#include "fluxui/controls/UI_SplitterView.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using fluxcore::geom::RectF;
using namespace fluxui::controls;
using fluxui::ui::UI_SubView;

TEST(ScrollView, ScrollsWithinTheContentAndIntoViewByTheLeastDistance) {
    auto content = Make<UI_SubView>();
    auto scroll = Make<UI_ScrollView>(0u, content);
    scroll->UI_SetLocalRectF({0, 0, 200, 100});
    scroll->SetContentRectF({0, 0, 186, 300});
    EXPECT_EQ(scroll->GetScrollBarY().UI_GetLocalRectF(true), (RectF{186, 0, 14, 100}));

    scroll->ScrollTo(500);
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 200);
    EXPECT_FLOAT_EQ(scroll->GetContentRectF().top, -200);
    scroll->ScrollTo(-10);
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 0);

    // Scrolling into view moves the least distance.
    scroll->ScrollIntoView({0, 150, 10, 30}, false);
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 80); // bottom edge of the rect at the view's bottom
    scroll->ScrollIntoView({0, 120, 10, 30}, false);
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 80); // already in sight
    scroll->ScrollIntoView({0, 20, 10, 30}, false);
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 20);
    scroll->ScrollIntoView({0, 150, 10, 150}, false); // taller than the view: its top
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 150);

    // Growing the view past the content brings the content back to the top.
    scroll->UI_SetLocalRectF({0, 0, 200, 400});
    EXPECT_FLOAT_EQ(scroll->GetScrollY(), 0);
    EXPECT_FALSE(scroll->GetScrollBarY().UI_IsShown());
    EXPECT_THROW(UI_ScrollView(0u, nullptr), std::invalid_argument);
}

TEST(SectionView, OpeningShowsTheContentAndCallsTheCallbacksInOrder) {
    auto section = Make<UI_SectionView>(u"Transcode", false);
    section->GetContentView().UI_SetLocalRectF({0, 0, 300, 120});
    std::vector<std::string> calls;
    section->AddOpenedStateChangedCallback(
        [&](bool opened) { calls.push_back(opened ? "a open" : "a closed"); });
    section->AddOpenedStateChangedCallback(
        [&](bool opened) { calls.push_back(opened ? "b open" : "b closed"); });

    section->UpdateSize({0, 10, 300, 0});
    EXPECT_EQ(section->UI_GetLocalRectF(true), (RectF{0, 10, 300, 24}));
    EXPECT_FALSE(section->GetContentView().UI_IsShown());

    section->SetOpened(true);
    section->SetOpened(true);
    section->UpdateSize({0, 10, 300, 0});
    EXPECT_EQ(section->UI_GetLocalRectF(true), (RectF{0, 10, 300, 144}));
    EXPECT_EQ(section->GetContentView().UI_GetLocalRectF(true), (RectF{0, 24, 300, 120}));
    EXPECT_EQ(calls, (std::vector<std::string>{"a open", "b open"}));
}

TEST(SplitterView, PlacesBothViewsAroundTheDivider) {
    auto splitter = Make<UI_SplitterView>(SplitDirection::Horizontal, 25.0f, 10.0f);
    auto left = Make<UI_SubView>();
    auto right = Make<UI_SubView>();
    splitter->SetTopLeftView(left);
    splitter->SetBottomRightView(right);
    splitter->UI_SetLocalRectF({0, 0, 410, 300});
    EXPECT_EQ(left->UI_GetLocalRectF(true), (RectF{0, 0, 100, 300}));
    EXPECT_EQ(right->UI_GetLocalRectF(true), (RectF{110, 0, 300, 300}));
    EXPECT_EQ(splitter->GetTopLeftView(), left.get());

    auto replacement = Make<UI_SubView>();
    splitter->SetTopLeftView(replacement);
    EXPECT_EQ(left->UI_GetParentNode(), nullptr);
    EXPECT_EQ(replacement->UI_GetLocalRectF(true), (RectF{0, 0, 100, 300}));
}

TEST(SplitterView, TheValidationFunctionRulesDraggingAndSettingAlike) {
    auto splitter = Make<UI_SplitterView>(SplitDirection::Vertical, 50.0f, 0.0f);
    splitter->UI_SetLocalRectF({0, 0, 100, 200});
    std::vector<float> asked;
    splitter->SetSplitValidationFunction([&](float wanted) {
        asked.push_back(wanted);
        return std::clamp(wanted, 20.0f, 70.0f);
    });
    splitter->SetSplitPercentage(90);
    EXPECT_FLOAT_EQ(splitter->GetSplitPercentage(), 70);
    splitter->DragDividerTo(20); // 10 % of the height
    EXPECT_FLOAT_EQ(splitter->GetDividerPosition(), 40);
    EXPECT_EQ(asked, (std::vector<float>{90, 10}));
}

} // namespace
} // namespace igd::test
