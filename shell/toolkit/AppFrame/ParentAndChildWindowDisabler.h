#pragma once
#include "fluxui/ui/OS_Window.h"

namespace AppFrame::Windows {

// Disables a window and all it holds for the disabler's lifetime, then gives it back the state
// it had: a window that was disabled already stays disabled.
class ParentAndChildWindowDisabler {
public:
    ParentAndChildWindowDisabler(fluxui::ui::OS_Window* window, bool disable = true)
        : window_(window), wasEnabled_(window && window->UI_IsEnabled()) {
        if (window_ && disable)
            window_->UI_SetDisabled(true);
    }
    ~ParentAndChildWindowDisabler() {
        if (window_)
            window_->UI_SetDisabled(!wasEnabled_);
    }
    ParentAndChildWindowDisabler(const ParentAndChildWindowDisabler&) = delete;
    ParentAndChildWindowDisabler& operator=(const ParentAndChildWindowDisabler&) = delete;

private:
    fluxui::ui::OS_Window* window_;
    bool wasEnabled_;
};

} // namespace AppFrame::Windows
