#pragma once
#include "fluxui/controls/UI_InteractiveControlView.h"

namespace fluxui::controls {

// A push button: a press raises both notifications.
class UI_Button : public UI_InteractiveControlView {
public:
    UI_Button() { SetWantsKeyboardFocus(true); }
    const char* UI_GetClassName() const override { return "UI_Button"; }

    // The person clicked, or pressed the key that stands for it. Ignored while disabled.
    virtual void Press() {
        if (UI_IsEnabled())
            Changed(true);
    }
    void SetDefaultAppearance(bool isDefault) { Set(defaultAppearance_, isDefault); }
    bool HasDefaultAppearance() const { return defaultAppearance_; }
    void SetDisplayBorderAlways(bool always) { Set(borderAlways_, always); }
    bool DisplaysBorderAlways() const { return borderAlways_; }

private:
    void Set(bool& field, bool value) {
        if (field == value)
            return;
        field = value;
        NotifyObserver(ui::NodeChange::Appearance);
    }

    bool defaultAppearance_ = false;
    bool borderAlways_ = false;
};

} // namespace fluxui::controls
