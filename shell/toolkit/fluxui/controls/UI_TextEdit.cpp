#include "fluxui/controls/UI_TextEdit.h"

namespace fluxui::controls {

UI_TextEdit::UI_TextEdit(unsigned flags, TextAlignment alignment) : flags_(flags), alignment_(alignment) {
    SetWantsKeyboardFocus(true);
}

void UI_TextEdit::SetValue(const Fnd::WString& text, bool notify) {
    if (text == value_)
        return;
    value_ = text;
    if (notify)
        Changed(false);
    else
        NotifyObserver(ui::NodeChange::Value);
}

void UI_TextEdit::SetUnknownStateText(const Fnd::WString& text) {
    if (text == unknownStateText_)
        return;
    unknownStateText_ = text;
    NotifyObserver(ui::NodeChange::Value);
}

Fnd::WString UI_TextEdit::GetDisplayedText() const {
    // The person edits an unknown value from an empty field, never from the placeholder.
    if (IsValueUnknown())
        return UI_HasKeyboardFocus() ? Fnd::WString() : unknownStateText_;
    return value_;
}

void UI_TextEdit::SetCustomTextColor(const sketcher::ColorRGBA& color, bool redraw) {
    if (customColor_ == color)
        return;
    customColor_ = color;
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_TextEdit::ClearCustomTextColor(bool redraw) {
    if (!customColor_)
        return;
    customColor_.reset();
    NotifyObserver(ui::NodeChange::Appearance);
}

void UI_TextEdit::TypeText(const Fnd::WString& text) {
    if (!UI_IsEnabled())
        return;
    if (!editing_) {
        editing_ = true;
        valueAtEditStart_ = value_;
        unknownAtEditStart_ = IsValueUnknown();
    }
    if (text == value_ && !IsValueUnknown())
        return;
    value_ = text;
    SetValueUnknownFlag(false);
    Changed(true);
}

void UI_TextEdit::EndEdit(EditEnd how) {
    const bool wasEditing = editing_;
    editing_ = false;
    if (how == EditEnd::Cancel && wasEditing &&
        (value_ != valueAtEditStart_ || IsValueUnknown() != unknownAtEditStart_)) {
        value_ = valueAtEditStart_;
        SetValueUnknownFlag(unknownAtEditStart_);
        Changed(true);
    }
    const EditEndsFunctionPtr function = editEnds_;
    if (function && *function)
        (*function)(how);
}

void UI_TextEdit::UI_FocusChanged(ui::FocusReason reason) {
    // Leaving the field keeps what was typed, as a person expects of a form.
    if (reason == ui::FocusReason::Lost && editing_)
        EndEdit(EditEnd::Commit);
}

bool UI_TextEdit::UI_DoKeyboardEvent(ui::UI_Node* target, const ui::KeyboardEvent& event) {
    // Return first ends an edit; with nothing being edited it goes on to the dialog's default button.
    if (event.key == ui::Key::Return && editing_) {
        EndEdit(EditEnd::Commit);
        return true;
    }
    if (event.key == ui::Key::Escape && editing_) {
        EndEdit(EditEnd::Cancel);
        return true;
    }
    return false;
}

} // namespace fluxui::controls
