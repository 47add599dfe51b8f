#include "fluxui/controls/UI_Slider.h"

#include <algorithm>

namespace fluxui::controls {

void UI_Slider::SetMaximum(std::int64_t maximum) {
    maximum = std::max<std::int64_t>(0, maximum);
    if (maximum == maximum_)
        return;
    maximum_ = maximum;
    NotifyObserver(ui::NodeChange::Appearance);
    if (value_ > maximum_) {
        value_ = maximum_;
        Changed(false);
    }
}

void UI_Slider::SetValue(std::int64_t value, bool interactive) {
    value = std::clamp<std::int64_t>(value, 0, maximum_);
    if (value == value_)
        return;
    value_ = value;
    Changed(interactive);
}

} // namespace fluxui::controls
