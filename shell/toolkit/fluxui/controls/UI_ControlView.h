#pragma once
#include <functional>
#include <memory>

#include "fluxui/ui/UI_SubView.h"

namespace fluxui::controls {

class UI_ControlView;

// A notification that carries its sender.
class UI_ControlMessage {
public:
    UI_ControlMessage(UI_ControlView& control, bool interactive)
        : control_(control), interactive_(interactive) {}
    UI_ControlView& GetControl() const { return control_; }
    // True when the person made the change, false when the program did.
    bool IsInteractive() const { return interactive_; }

private:
    UI_ControlView& control_;
    bool interactive_;
};

using ControlNotifyFunction = std::function<void(const UI_ControlMessage&)>;
using ControlNotifyFunctionPtr = std::shared_ptr<ControlNotifyFunction>;

// A control with a value that may be unknown (several differing values under one control).
// Its change notification hears every change, by the program or by the person.
class UI_ControlView : public ui::UI_SubView {
public:
    const char* UI_GetClassName() const override { return "UI_ControlView"; }

    void SetDisabled(bool disabled) { UI_SetDisabled(disabled); }
    bool IsValueUnknown() const { return valueUnknown_; }
    virtual void SetValueUnknown();
    // Leaves the unknown state, showing the value held.
    virtual void SetValueKnown();

    void NotifyWhenChanged(ControlNotifyFunctionPtr function) { changed_ = std::move(function); }
    void NotifyWhenChanged(ControlNotifyFunction function) {
        changed_ = std::make_shared<ControlNotifyFunction>(std::move(function));
    }

    void SetWantsKeyboardFocus(bool wants) { wantsFocus_ = wants; }

    // Shown pressed in, as a divider drawn sunken or a button held down.
    void SetDownState(bool down) {
        if (down == downState_)
            return;
        downState_ = down;
        NotifyObserver(ui::NodeChange::Appearance);
    }
    bool IsDownState() const { return downState_; }
    // Points; 0 leaves the presenter's standard size.
    void SetFontSize(float size) {
        if (size == fontSize_)
            return;
        fontSize_ = size;
        NotifyObserver(ui::NodeChange::Appearance);
    }
    float GetFontSize() const { return fontSize_; }
    bool UI_WantsKeyboardFocus() const override { return wantsFocus_; }

protected:
    // Raises the notifications of one change; interactive when the person made it.
    virtual void Changed(bool interactive);
    // Keeps the unknown flag without notifying, for a control that leaves it as part of a change.
    void SetValueUnknownFlag(bool unknown) { valueUnknown_ = unknown; }

private:
    bool valueUnknown_ = false;
    bool wantsFocus_ = false;
    bool downState_ = false;
    float fontSize_ = 0.0f;
    ControlNotifyFunctionPtr changed_;
};

} // namespace fluxui::controls
