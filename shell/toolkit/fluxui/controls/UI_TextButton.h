#pragma once
#include "fluxui/controls/TextAlignment.h"
#include "fluxui/controls/UI_Button.h"

namespace fluxui::controls {

class UI_TextButton : public UI_Button {
public:
    UI_TextButton() = default;
    explicit UI_TextButton(Fnd::WString text) : text_(std::move(text)) {}
    const char* UI_GetClassName() const override { return "UI_TextButton"; }

    void SetText(const Fnd::WString& text) {
        if (text == text_)
            return;
        text_ = text;
        NotifyObserver(ui::NodeChange::Value);
    }
    const Fnd::WString& GetText() const { return text_; }
    void SetTextAlignment(TextAlignment alignment) {
        if (alignment == alignment_)
            return;
        alignment_ = alignment;
        NotifyObserver(ui::NodeChange::Appearance);
    }
    TextAlignment GetTextAlignment() const { return alignment_; }

private:
    Fnd::WString text_;
    TextAlignment alignment_ = TextAlignment::Default;
};

} // namespace fluxui::controls
