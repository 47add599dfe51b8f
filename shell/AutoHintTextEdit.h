#pragma once
#include "fluxui/controls/UI_TextEdit.h"

namespace IGD {

// A text field that shows a grey hint while it is empty and out of focus, and never reports the
// hint as its value. The hint is kept as the base's unknown-state text.
class AutoHintTextEdit : public fluxui::controls::UI_TextEdit {
public:
    static constexpr fluxui::sketcher::ColorRGBA kDefaultHintColor{112.0f / 255.0f, 112.0f / 255.0f,
                                                                   112.0f / 255.0f, 1.0f};

    AutoHintTextEdit();
    const char* UI_GetClassName() const override { return "AutoHintTextEdit"; }

    // Empty while the hint shows: an unknown value is no value.
    Fnd::WString GetValue() const override;
    void SetValue(const Fnd::WString& text, bool notify) override;
    void SetValue(const Fnd::WString& text) { SetValue(text, false); }
    Fnd::WString GetLabelText() const override { return GetValue(); }
    void SetLabelText(const Fnd::WString& text) override { SetValue(text); }

    void SetHintText(const Fnd::WString& text);
    const Fnd::WString& GetHintText() const { return GetUnknownStateText(); }
    void SetHintTextColor(const fluxui::sketcher::ColorRGBA& color);
    const fluxui::sketcher::ColorRGBA& GetHintTextColor() const { return hintColor_; }

    void UI_FocusChanged(fluxui::ui::FocusReason reason) override;

private:
    void Refresh();

    fluxui::sketcher::ColorRGBA hintColor_ = kDefaultHintColor;
};

} // namespace IGD
