#pragma once
// A horizontal position from 0 to a maximum, as a scrub bar over the frames of a clip.
#include <cstdint>

#include "fluxui/controls/UI_InteractiveControlView.h"

namespace fluxui::controls {

class UI_Slider : public UI_InteractiveControlView {
public:
    const char* UI_GetClassName() const override { return "UI_Slider"; }

    // The value is kept within the new range.
    void SetMaximum(std::int64_t maximum);
    std::int64_t GetMaximum() const { return maximum_; }
    // Clamped into 0..maximum. interactive: the person dragged or clicked the bar; each position
    // of a drag is told, so a scrub follows the hand. An unchanged value tells nobody.
    void SetValue(std::int64_t value, bool interactive = false);
    std::int64_t GetValue() const { return value_; }

private:
    std::int64_t maximum_ = 0;
    std::int64_t value_ = 0;
};

} // namespace fluxui::controls
