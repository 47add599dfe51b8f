#pragma once
#include "fluxui/controls/UI_ControlView.h"

namespace fluxui::controls {

// A control the person can change. Its second notification hears only the person's changes,
// so a view can tell its model apart from its own updates of the control.
class UI_InteractiveControlView : public UI_ControlView {
public:
    const char* UI_GetClassName() const override { return "UI_InteractiveControlView"; }

    void NotifyWhenChangedInteractively(ControlNotifyFunctionPtr function) {
        interactive_ = std::move(function);
    }
    void NotifyWhenChangedInteractively(ControlNotifyFunction function) {
        interactive_ = std::make_shared<ControlNotifyFunction>(std::move(function));
    }

protected:
    void Changed(bool interactive) override;

private:
    ControlNotifyFunctionPtr interactive_;
};

} // namespace fluxui::controls
