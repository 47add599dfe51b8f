// The on/off switch in a section's header.
#include <gtest/gtest.h>

#include "HostApp/ApplicationType.h"
#include "tests/transfer/SectionTestSupport.h"
#include "transfer/PowerSwitchSectionView.h"
#include "transfer/SectionTree.h"

namespace igd::test {
namespace {

using fluxui::controls::UI_PictureButton;
using wrangler::ui::PowerSwitchSectionView;

// Which button shows: "off" (the power is on), "on" (the power is off), or "none".
std::string Showing(const PowerSwitchSectionView& section) {
    const bool on = section.GetPowerOnButton().UI_IsShown();
    const bool off = section.GetPowerOffButton().UI_IsShown();
    if (on && off)
        return "both";
    return on ? "on" : off ? "off" : "none";
}

class PowerSwitch : public ::testing::Test {
protected:
    void TearDown() override { HostApp::SetApplicationType(0); }
    boost::intrusive_ptr<PowerSwitchSectionView> BuiltSection() {
        auto section = Make<PowerSwitchSectionView>(u"Transfer", "");
        wrangler::ui::BuildSectionTree(*section, resources, nullptr);
        return section;
    }

    TestResources resources;
};

TEST_F(PowerSwitch, AClickSwitchesAndTellsEveryCallbackInOrderButTheProgramTellsNone) {
    auto section = BuiltSection();
    std::vector<std::string> heard;
    section->AddPowerCallback([&](bool on) { heard.push_back(on ? "first on" : "first off"); });
    section->AddPowerCallback(wrangler::ui::PowerCallbackPtr());
    section->AddPowerCallback([&](bool on) { heard.push_back(on ? "second on" : "second off"); });
    EXPECT_EQ(Showing(*section), "off");

    section->GetPowerOffButton().Press();
    EXPECT_FALSE(section->GetPowerState());
    EXPECT_EQ(Showing(*section), "on");
    section->GetPowerOnButton().Press();
    EXPECT_EQ(heard, (std::vector<std::string>{"first off", "second off", "first on", "second on"}));

    section->SetPowerState(false);
    EXPECT_EQ(Showing(*section), "on");
    section->SetPowerEnabled(false);
    section->GetPowerOnButton().Press();
    EXPECT_FALSE(section->GetPowerState()) << "a disabled switch takes no clicks";
    EXPECT_EQ(heard.size(), 4u);
    section->ShowPowerSwitch(false);
    EXPECT_EQ(Showing(*section), "none");
}

TEST_F(PowerSwitch, AHostedApplicationNeverShowsTheSwitch) {
    for (int kind : {5, 8}) {
        HostApp::SetApplicationType(kind);
        auto section = BuiltSection();
        section->ShowPowerSwitch(true);
        section->SetPowerState(false);
        EXPECT_FALSE(section->IsPowerSwitchVisible());
        EXPECT_EQ(Showing(*section), "none");
    }
}

TEST_F(PowerSwitch, TheSwitchSitsInTheHeaderAtItsRightEdgeWithThePowerOn) {
    auto section = Make<PowerSwitchSectionView>(u"Transfer", "");
    section->SetPowerState(false);
    wrangler::ui::BuildSectionTree(*section, resources, nullptr);
    EXPECT_TRUE(section->GetPowerState());
    EXPECT_EQ(section->GetPowerOffButton().UI_GetParentNode(), &section->GetCustomLabelView());

    auto window = Make<fluxui::ui::UI_SubView>();
    window->ChildPushBack(section);
    for (float width : {300.0f, 420.0f}) {
        section->UI_SetLocalRectF({0, 0, width, 60});
        const float left = section->GetPowerOffButton().UI_LocalToGlobal({}).x;
        const float right = left + section->GetPowerOffButton().UI_GetLocalRectF().width;
        EXPECT_TRUE(left > width / 2 && right < width) << "within the right half at width " << width;
    }
}

} // namespace
} // namespace igd::test
