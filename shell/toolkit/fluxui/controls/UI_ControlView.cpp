#include "fluxui/controls/UI_ControlView.h"

#include "fluxui/controls/UI_InteractiveControlView.h"

namespace fluxui::controls {

void UI_ControlView::SetValueUnknown() {
    if (valueUnknown_)
        return;
    valueUnknown_ = true;
    NotifyObserver(ui::NodeChange::Value);
}

void UI_ControlView::SetValueKnown() {
    if (!valueUnknown_)
        return;
    valueUnknown_ = false;
    NotifyObserver(ui::NodeChange::Value);
}

void UI_ControlView::Changed(bool interactive) {
    NotifyObserver(ui::NodeChange::Value);
    // Held for the call: the function may replace itself.
    const ControlNotifyFunctionPtr function = changed_;
    if (function && *function)
        (*function)(UI_ControlMessage(*this, interactive));
}

void UI_InteractiveControlView::Changed(bool interactive) {
    UI_ControlView::Changed(interactive);
    const ControlNotifyFunctionPtr function = interactive_;
    if (interactive && function && *function)
        (*function)(UI_ControlMessage(*this, true));
}

} // namespace fluxui::controls
