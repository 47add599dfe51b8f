// The player's picture as the person sees it, and the scrub bar dragged by hand reaching the model.
#include <QSlider>
#include <QTest>
#include <gtest/gtest.h>

#include "IgdQt/NodePresenter.h"
#include "QtTestApplication.h"
#include "fluxui/controls/UI_FrameView.h"
#include "fluxui/controls/UI_Slider.h"
#include "tests/shell/toolkit/ToolkitTestSupport.h"

namespace igd::test {
namespace {

using fluxui::controls::FramePicture;
using fluxui::controls::UI_FrameView;
using fluxui::controls::UI_Slider;
using fluxui::ui::UI_SubView;
using igd::qt::NodePresenter;

// Red on the left half, blue on the right.
FramePicture TwoColours(int width, int height) {
    auto bytes = std::make_shared<std::vector<std::uint8_t>>();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            bytes->insert(bytes->end(), {std::uint8_t(x < width / 2 ? 255 : 0), 0,
                                         std::uint8_t(x < width / 2 ? 0 : 255), 255});
    return {bytes, width, height};
}

// A window holding the one control at rect, shown as the person sees it.
template <typename T> struct Window {
    Window(fluxcore::geom::RectF rect, float height) : root(Make<UI_SubView>()), control(Make<T>()) {
        EnsureQtApplication();
        root->UI_SetLocalRectF({0, 0, rect.width, height});
        control->UI_SetLocalRectF(rect);
        root->ChildPushBack(control);
    }
    void Show() {
        presenter = std::make_unique<NodePresenter>(root);
        ShowActive(*presenter->RootWidget());
    }
    QWidget* Widget() const { return presenter->WidgetFor(*control); }

    boost::intrusive_ptr<UI_SubView> root;
    boost::intrusive_ptr<T> control;
    std::unique_ptr<NodePresenter> presenter;
};

TEST(PlayerControlsQtTest, FrameViewPaintsThePicturesPixelsFittedAndCentred) {
    Window<UI_FrameView> window({0, 0, 200, 100}, 100);
    window.Show();
    UI_FrameView* view = window.control.get();

    // Half the view's width at its aspect: drawn 100 high and 100 wide at the centre, black around.
    view->SetPicture(TwoColours(20, 20));
    const QImage shot = window.Widget()->grab().toImage();
    EXPECT_EQ(shot.pixelColor(70, 50), QColor(255, 0, 0));
    EXPECT_EQ(shot.pixelColor(130, 50), QColor(0, 0, 255));
    EXPECT_EQ(shot.pixelColor(20, 50), QColor(0, 0, 0));

    view->SetText(u"A001");
    view->ClearPicture();
    const QImage text = window.Widget()->grab().toImage();
    EXPECT_EQ(text.pixelColor(70, 50), QColor(0, 0, 0)) << "no picture is left behind the clip's name";
}

TEST(PlayerControlsQtTest, DraggingTheSliderReachesTheModelAsThePersonsChange) {
    Window<UI_Slider> window({0, 10, 300, 20}, 40);
    UI_Slider* slider = window.control.get();
    slider->SetMaximum(100);
    Notifications heard(*slider);
    window.Show();

    auto* widget = dynamic_cast<QSlider*>(window.Widget());
    ASSERT_NE(widget, nullptr);
    // The handle sits at the left end; drag it to the right end.
    const int y = widget->height() / 2;
    QTest::mousePress(widget, Qt::LeftButton, {}, QPoint(3, y));
    QTest::mouseMove(widget, QPoint(150, y));
    QTest::mouseMove(widget, QPoint(widget->width() - 2, y));
    QTest::mouseRelease(widget, Qt::LeftButton, {}, QPoint(widget->width() - 2, y));
    EXPECT_EQ(slider->GetValue(), 100);
    EXPECT_GE(heard.interactive, 2) << "each position of the drag is told";

    slider->SetValue(40);
    EXPECT_EQ(widget->value(), 40);
}

} // namespace
} // namespace igd::test
