#pragma once
#include <optional>

#include "fluxui/controls/TextAlignment.h"
#include "fluxui/controls/UI_InteractiveControlView.h"

namespace fluxui::controls {

enum class EditEnd { Commit, Cancel };

using EditEndsFunction = std::function<void(EditEnd how)>;
using EditEndsFunctionPtr = std::shared_ptr<EditEndsFunction>;

// A one-line text field. While its value is unknown it shows its unknown-state text instead.
class UI_TextEdit : public UI_InteractiveControlView {
public:
    explicit UI_TextEdit(unsigned flags = 0, TextAlignment alignment = TextAlignment::Default);
    const char* UI_GetClassName() const override { return "UI_TextEdit"; }

    virtual Fnd::WString GetValue() const { return value_; }
    // Keeps the unknown state as it is; notify raises the change notification.
    virtual void SetValue(const Fnd::WString& text, bool notify);
    virtual Fnd::WString GetLabelText() const { return GetValue(); }
    virtual void SetLabelText(const Fnd::WString& text) { SetValue(text, false); }

    const Fnd::WString& GetUnknownStateText() const { return unknownStateText_; }
    void SetUnknownStateText(const Fnd::WString& text);
    // What the field shows now: the value; while unknown, the unknown-state text, or nothing
    // while the person edits.
    Fnd::WString GetDisplayedText() const;

    void SetCustomTextColor(const sketcher::ColorRGBA& color, bool redraw);
    void ClearCustomTextColor(bool redraw);
    const std::optional<sketcher::ColorRGBA>& GetCustomTextColor() const { return customColor_; }

    void NotifyWhenEditEnds(EditEndsFunctionPtr function) { editEnds_ = std::move(function); }
    void NotifyWhenEditEnds(EditEndsFunction function) {
        editEnds_ = std::make_shared<EditEndsFunction>(std::move(function));
    }

    unsigned GetFlags() const { return flags_; }
    TextAlignment GetAlignment() const { return alignment_; }

    // The person's input. Typing replaces the whole text and leaves the unknown state.
    void TypeText(const Fnd::WString& text);
    // Commit keeps what was typed; cancel brings back the value the edit started with.
    void EndEdit(EditEnd how);

    void UI_FocusChanged(ui::FocusReason reason) override;
    bool UI_DoKeyboardEvent(ui::UI_Node* target, const ui::KeyboardEvent& event) override;

private:
    Fnd::WString value_;
    Fnd::WString unknownStateText_;
    std::optional<sketcher::ColorRGBA> customColor_;
    EditEndsFunctionPtr editEnds_;
    unsigned flags_;
    TextAlignment alignment_;
    bool editing_ = false;
    Fnd::WString valueAtEditStart_;
    bool unknownAtEditStart_ = false;
};

} // namespace fluxui::controls
