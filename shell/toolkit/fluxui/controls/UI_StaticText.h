#pragma once
#include "shell/toolkit/fluxui/controls/UI_ControlView.h"

namespace fluxui::controls {

class UI_StaticText : public UI_ControlView {
public:
    UI_StaticText() = default;
    explicit UI_StaticText(Fnd::WString text) : text_(std::move(text)) {}
    const char* UI_GetClassName() const override { return "UI_StaticText"; }

    void SetValue(const Fnd::WString& text) {
        if (text == text_)
            return;
        text_ = text;
        Changed(false);
    }
    const Fnd::WString& GetValue() const { return text_; }

private:
    Fnd::WString text_;
};

} // namespace fluxui::controls
