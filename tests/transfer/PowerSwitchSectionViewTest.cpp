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

TEST_F(PowerSwitch, TheProgramSetsThePowerWithoutTellingTheCallbacks) {
    auto section = BuiltSection();
    int calls = 0;
    section->AddPowerCallback([&](bool) { ++calls; });
    EXPECT_TRUE(section->GetPowerState());
    EXPECT_EQ(Showing(*section), "off");

    section->SetPowerState(false);
    EXPECT_FALSE(section->GetPowerState());
    EXPECT_EQ(Showing(*section), "on");
    EXPECT_EQ(calls, 0);

    section->ShowPowerSwitch(false);
    EXPECT_FALSE(section->IsPowerSwitchVisible());
    section->SetPowerState(true);
    EXPECT_EQ(Showing(*section), "none") << "a hidden switch shows neither button at any state";
    section->ShowPowerSwitch(true);
    EXPECT_EQ(Showing(*section), "off");
}

TEST_F(PowerSwitch, AClickSwitchesAndTellsEveryCallbackInOrder) {
    auto section = BuiltSection();
    std::vector<std::string> heard;
    section->AddPowerCallback([&](bool on) { heard.push_back(on ? "first on" : "first off"); });
    section->AddPowerCallback(wrangler::ui::PowerCallbackPtr());
    section->AddPowerCallback(wrangler::ui::PowerCallback());
    section->AddPowerCallback([&](bool on) { heard.push_back(on ? "second on" : "second off"); });

    section->GetPowerOffButton().Press();
    EXPECT_FALSE(section->GetPowerState());
    EXPECT_EQ(Showing(*section), "on");
    section->GetPowerOnButton().Press();
    EXPECT_TRUE(section->GetPowerState());
    EXPECT_EQ(heard, (std::vector<std::string>{"first off", "second off", "first on", "second on"}));

    // A disabled switch takes no clicks.
    section->SetPowerEnabled(false);
    section->GetPowerOffButton().Press();
    EXPECT_TRUE(section->GetPowerState());
    EXPECT_EQ(heard.size(), 4u);
}

TEST_F(PowerSwitch, AHostedApplicationNeverShowsTheSwitch) {
    for (int kind : {5, 8}) {
        HostApp::SetApplicationType(kind);
        auto section = BuiltSection();
        EXPECT_FALSE(section->IsPowerSwitchVisible());
        EXPECT_EQ(Showing(*section), "none");
        section->ShowPowerSwitch(true);
        section->SetPowerState(false);
        EXPECT_FALSE(section->GetPowerState());
        EXPECT_EQ(Showing(*section), "none");
    }
    HostApp::SetApplicationType(4);
    EXPECT_EQ(Showing(*BuiltSection()), "off");
}

TEST_F(PowerSwitch, BindingPutsTheButtonsInTheHeaderWithThePowerOn) {
    auto section = Make<PowerSwitchSectionView>(u"Transfer", "");
    section->SetPowerState(false);
    wrangler::ui::BuildSectionTree(*section, resources, nullptr);
    EXPECT_TRUE(section->GetPowerState());
    EXPECT_EQ(section->GetPowerOffButton().UI_GetParentNode(), &section->GetCustomLabelView());
    EXPECT_TRUE(section->GetCustomLabelView().UI_IsShown());

    // 42 units in from the section's right edge, whatever the width.
    auto window = Make<fluxui::ui::UI_SubView>();
    window->ChildPushBack(section);
    for (float width : {300.0f, 420.0f}) {
        section->UI_SetLocalRectF({0, 0, width, 60});
        const auto origin = section->GetPowerOffButton().UI_LocalToGlobal({});
        EXPECT_EQ(origin, (fluxcore::geom::PointF{width - 42, 0}));
        EXPECT_EQ(section->GetPowerOnButton().UI_GetLocalRectF(true),
                  section->GetPowerOffButton().UI_GetLocalRectF(true));
        EXPECT_EQ(section->GetPowerOffButton().UI_GetLocalRectF().Size(), (fluxcore::geom::PointF{16, 16}));
    }
}

} // namespace
} // namespace igd::test
