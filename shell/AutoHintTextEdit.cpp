#include "shell/AutoHintTextEdit.h"

namespace IGD {

AutoHintTextEdit::AutoHintTextEdit() : UI_TextEdit(0, fluxui::controls::TextAlignment::Default) {}

Fnd::WString AutoHintTextEdit::GetValue() const {
    if (IsValueUnknown())
        return {};
    return UI_TextEdit::GetValue();
}

void AutoHintTextEdit::SetValue(const Fnd::WString& text, bool notify) {
    UI_TextEdit::SetValue(text, notify);
    SetValueKnown();
    if (GetHintText().empty())
        return;
    if (text.empty()) {
        SetValueKnown();
        SetValueUnknown();
    }
    Refresh();
}

void AutoHintTextEdit::SetHintText(const Fnd::WString& text) {
    SetUnknownStateText(text);
    Refresh();
}

void AutoHintTextEdit::SetHintTextColor(const fluxui::sketcher::ColorRGBA& color) {
    hintColor_ = color;
    Refresh();
}

void AutoHintTextEdit::UI_FocusChanged(fluxui::ui::FocusReason reason) {
    UI_TextEdit::UI_FocusChanged(reason);
    if (!GetHintText().empty())
        Refresh();
}

void AutoHintTextEdit::Refresh() {
    const bool hintWanted = !GetHintText().empty() && !UI_HasKeyboardFocus() && GetValue().empty();
    if (hintWanted) {
        SetValueUnknown();
        SetCustomTextColor(hintColor_, false);
    } else {
        ClearCustomTextColor(false);
    }
}

} // namespace IGD
