#include <gtest/gtest.h>

#include "AppFrame/ColorManager.h"
#include "AppFrame/DC.h"
#include "AppFrame/ParentAndChildWindowDisabler.h"
#include "AppFrame/PlayerControl.h"
#include "fluxui/ui/UI_NodeManager.h"
#include "fluxui/ui/UI_SubView.h"
#include "fluxui/utils/DrawOutline.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;
using fluxui::sketcher::ColorRGBA;

TEST(FrameDrawing, ADCDrawsInTheViewsSpaceAtItsOrigin) {
    RecordingSketcher sketcher;
    AppFrame::DC dc(sketcher, 2.0f, {100, 50});
    const ColorRGBA divider = AppFrame::ColorManager::GetColor(AppFrame::kColor_PanelDivider);
    dc.DrawLine({-6, 1}, {200, 1}, divider, 1.0f, 0.5f);
    ASSERT_EQ(sketcher.lines.size(), 1u);
    EXPECT_EQ(sketcher.lines[0].from, (PointF{94, 51}));
    EXPECT_EQ(sketcher.lines[0].to, (PointF{300, 51}));
    EXPECT_FLOAT_EQ(sketcher.lines[0].color.alpha, divider.alpha * 0.5f);
    EXPECT_EQ(fluxui::ui::GetColor(fluxui::skins::core::utilities::GetDividerColorID(0)), divider);
    EXPECT_THROW(fluxui::ui::GetColor(-1), std::invalid_argument);
}

TEST(FrameDrawing, ThickOutlinesStepInwardsAndStopAtTheMiddle) {
    RecordingSketcher sketcher;
    fluxui::utils::DrawOutline(sketcher, {0, 0, 10, 4}, {}, 5.0f);
    EXPECT_EQ(sketcher.OutlinesIn({}), (std::vector<RectF>{{0, 0, 10, 4}, {1, 1, 8, 2}}));
}

TEST(WindowDisabler, RestoresTheStateTheWindowHad) {
    auto window = Make<fluxui::ui::OS_Window>();
    auto child = Make<fluxui::ui::UI_SubView>();
    window->ChildPushBack(child);
    {
        AppFrame::Windows::ParentAndChildWindowDisabler disabler(window.get());
        EXPECT_FALSE(child->UI_IsEnabled());
    }
    EXPECT_TRUE(child->UI_IsEnabled());

    window->UI_SetDisabled(true);
    { AppFrame::Windows::ParentAndChildWindowDisabler disabler(window.get()); }
    EXPECT_FALSE(window->UI_IsEnabled());
    AppFrame::Windows::ParentAndChildWindowDisabler none(nullptr);
}

TEST(PlayerControl, StopsEveryRegisteredPlayerEvenIfOneLeavesWhileStopping) {
    int stopped = 0;
    int second = 0;
    second = AppFrame::PlayerControl::Register([&] {
        ++stopped;
        AppFrame::PlayerControl::Unregister(second);
    });
    const int first = AppFrame::PlayerControl::Register([&] { ++stopped; });
    AppFrame::PlayerControl::StopAllPlayers();
    EXPECT_EQ(stopped, 2);
    AppFrame::PlayerControl::StopAllPlayers();
    EXPECT_EQ(stopped, 3);
    AppFrame::PlayerControl::Unregister(first);
}

TEST(InputCapture, EndsBeforeAModalBox) {
    auto node = Make<fluxui::ui::UI_SubView>();
    auto& manager = fluxui::ui::UI_NodeManager::Get(true);
    manager.BeginInputCapture(node.get());
    EXPECT_EQ(manager.GetInputCapture(), node.get());
    manager.EndInputCapture(true);
    EXPECT_EQ(manager.GetInputCapture(), nullptr);
    EXPECT_EQ(node->GetRefCount(), 1u);
}

} // namespace
} // namespace igd::test
