#include <QSignalBlocker>
#include <QSlider>
#include <algorithm>
#include <limits>

#include "builders/BuilderSupport.h"
#include "builders/StandardBuilders.h"
#include "fluxui/controls/UI_Slider.h"

namespace igd::qt {
namespace {

using fluxui::controls::UI_Slider;

int ToInt(std::int64_t value) {
    return int(std::clamp<std::int64_t>(value, 0, std::numeric_limits<int>::max()));
}

class SliderBuilder : public ControlBuilder {
public:
    QWidget* Build(fluxui::ui::UI_Node& node, QWidget* parent, NodePresenter& presenter) const override {
        auto* slider = new QSlider(Qt::Horizontal, parent);
        slider->setFocusPolicy(Qt::StrongFocus);
        // Every position of a drag reaches the model, so that a scrub follows the hand.
        slider->setTracking(true);
        QObject::connect(slider, &QSlider::valueChanged, slider, [ref = fluxui::ui::UI_NodeRef(&node)](int value) {
            NodeAs<UI_Slider>(*ref).SetValue(value, true);
        });
        return slider;
    }

    void Sync(fluxui::ui::UI_Node& node, QWidget& widget, NodePresenter& presenter) const override {
        const UI_Slider& model = NodeAs<UI_Slider>(node);
        auto& slider = static_cast<QSlider&>(widget);
        const QSignalBlocker blocker(slider);
        slider.setRange(0, ToInt(model.GetMaximum()));
        slider.setValue(ToInt(model.GetValue()));
    }
};

} // namespace

BuilderPtr MakeSliderBuilder() {
    return std::make_shared<SliderBuilder>();
}

} // namespace igd::qt
