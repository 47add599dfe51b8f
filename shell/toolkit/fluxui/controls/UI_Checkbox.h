#pragma once
#include "fluxui/controls/UI_Button.h"

namespace fluxui::controls {

// A checkbox; its unknown state is the mixed look of several differing values.
class UI_Checkbox : public UI_Button {
public:
    const char* UI_GetClassName() const override { return "UI_Checkbox"; }

    bool IsChecked() const { return checked_; }
    // A change of state or leaving the unknown state notifies.
    void SetChecked(bool checked) { Apply(checked, false); }
    // The person clicked: a mixed box becomes checked, otherwise it toggles.
    void Press() override {
        if (UI_IsEnabled())
            Apply(IsValueUnknown() ? true : !checked_, true);
    }
    void SetText(const Fnd::WString& text) {
        if (text == text_)
            return;
        text_ = text;
        NotifyObserver(ui::NodeChange::Value);
    }
    const Fnd::WString& GetText() const { return text_; }

private:
    void Apply(bool checked, bool interactive) {
        if (checked == checked_ && !IsValueUnknown())
            return;
        checked_ = checked;
        SetValueUnknownFlag(false);
        Changed(interactive);
    }

    bool checked_ = false;
    Fnd::WString text_;
};

} // namespace fluxui::controls
