#include <gtest/gtest.h>

#include "AppFrame/ColorManager.h"
#include "AppFrame/DC.h"
#include "AppFrame/FLUXConversionUtilities.h"
#include "AppFrame/ParentAndChildWindowDisabler.h"
#include "AppFrame/PlayerControl.h"
#include "AppFrame/Workspace.h"
#include "fluxui/ui/UI_NodeManager.h"
#include "fluxui/ui/UI_SubView.h"
#include "fluxui/utils/DrawOutline.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace {

using fluxcore::geom::PointF;
using fluxcore::geom::RectF;
using fluxui::sketcher::ColorRGBA;
using igd::test::Make;
namespace conv = AppFrame::FLUXConversionUtilities;

TEST(FrameConversions, RectsChangeConventionAndRoundTheFarSides) {
    const Fnd::ParamRect<int> rect = conv::FLUXRectF32ToRect({10.4f, 20.6f, 99.8f, 0.0f});
    EXPECT_EQ(rect, (Fnd::ParamRect<int>{10, 21, 110, 21}));
    // Two rects that touch in floats still touch in integers.
    const RectF a{0.0f, 0.0f, 33.3f, 10.0f};
    const RectF b{33.3f, 0.0f, 33.3f, 10.0f};
    EXPECT_EQ(conv::FLUXRectF32ToRect(a).right, conv::FLUXRectF32ToRect(b).left);
    EXPECT_EQ(conv::RectToFLUXRectF32({5, 6, 15, 26}), (RectF{5, 6, 10, 20}));
    EXPECT_EQ(conv::FLUXPoint32ToPoint(conv::PointToFLUXPoint32({-3, 7})), (Fnd::ParamPoint<int>{-3, 7}));
    EXPECT_EQ(conv::FLUXPoint32ToPoint({-2.5f, 2.49f}), (Fnd::ParamPoint<int>{-3, 2}));
}

TEST(FrameDrawing, ADCDrawsInTheViewsSpaceAtItsOrigin) {
    igd::test::RecordingSketcher sketcher;
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
    igd::test::RecordingSketcher sketcher;
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

class Supplier : public fluxui::sketcher::SupplierInterface {};

TEST(Workspace, IsThereOnlyWhileTheHostHasInstalledOne) {
    EXPECT_EQ(AppFrame::Workspace::Instance(), nullptr);
    Supplier supplier;
    auto main = Make<fluxui::ui::OS_Window>(&supplier, u"IGD");
    AppFrame::Workspace::Install(std::make_shared<fluxworkspace::workspace::Workspace>(main.get()));
    ASSERT_NE(AppFrame::Workspace::Instance(), nullptr);
    auto* workspace = AppFrame::Workspace::Instance()->GetPtr();
    EXPECT_EQ(workspace->GetMainTopLevelWindow(), main.get());
    EXPECT_EQ(workspace->GetDrawSupplier(), &supplier);
    AppFrame::Workspace::Install(nullptr);
    EXPECT_EQ(AppFrame::Workspace::Instance(), nullptr);
}

} // namespace
