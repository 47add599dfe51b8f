#include <gtest/gtest.h>

#include "AppFrame/ParentAndChildWindowDisabler.h"
#include "AppFrame/PlayerControl.h"
#include "fluxui/ui/UI_NodeManager.h"
#include "fluxui/ui/UI_SubView.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

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
