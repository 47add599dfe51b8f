// The player's picture and scrub bar: what a presenter is told and what their owner hears.
#include <gtest/gtest.h>

#include "ToolkitTestSupport.h"
#include "fluxui/controls/UI_FrameView.h"
#include "fluxui/controls/UI_Slider.h"

namespace igd::test {
namespace {

using fluxui::controls::FramePicture;
using fluxui::controls::UI_FrameView;
using fluxui::controls::UI_Slider;

FramePicture Picture(int width, int height, std::size_t bytes) {
    return {std::make_shared<const std::vector<std::uint8_t>>(bytes, 0x80), width, height};
}

TEST(FrameViewTest, HoldsAPictureOfMatchingSizeAndAClickIsThePersons) {
    auto view = Make<UI_FrameView>();
    Notifications heard(*view);
    view->SetPicture(Picture(4, 2, 32));
    EXPECT_FALSE(view->GetPicture().IsEmpty());
    EXPECT_THROW(view->SetPicture(Picture(4, 2, 31)), std::invalid_argument);
    EXPECT_EQ(view->GetPicture().width, 4) << "a refused picture leaves the one shown";
    EXPECT_EQ(heard.changed, 0) << "a new picture is the program's, not a change to tell the owner";

    view->Click();
    EXPECT_EQ(heard.interactive, 1);
    view->UI_SetDisabled(true);
    view->Click();
    EXPECT_EQ(heard.interactive, 1) << "a disabled picture takes no clicks";
}

TEST(SliderTest, ValueStaysWithinTheRangeAndTellsWhoMovedIt) {
    auto slider = Make<UI_Slider>();
    Notifications heard(*slider);
    slider->SetValue(5);
    EXPECT_EQ(slider->GetValue(), 0) << "no range yet";
    EXPECT_EQ(heard.changed, 0);

    slider->SetMaximum(49);
    slider->SetValue(30, true);
    slider->SetValue(30, true);
    EXPECT_EQ(heard.interactive, 1) << "an unchanged value tells nobody";
    slider->SetValue(80);
    EXPECT_EQ(slider->GetValue(), 49);
    EXPECT_FALSE(heard.lastInteractive);

    slider->SetMaximum(10);
    EXPECT_EQ(slider->GetValue(), 10) << "a shorter range pulls the value in";
    EXPECT_EQ(heard.changed, 3);
}

} // namespace
} // namespace igd::test
