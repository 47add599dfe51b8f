#pragma once
#include "fluxui/controls/TextAlignment.h"
#include "fluxui/controls/UI_ControlView.h"

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

    void SetAlignment(TextAlignment alignment) {
        if (alignment == alignment_)
            return;
        alignment_ = alignment;
        NotifyObserver(ui::NodeChange::Appearance);
    }
    TextAlignment GetAlignment() const { return alignment_; }
    // Wraps at the width instead of running on one line.
    void SetMultiLine(bool multiLine) {
        if (multiLine == multiLine_)
            return;
        multiLine_ = multiLine;
        NotifyObserver(ui::NodeChange::Appearance);
    }
    bool IsMultiLine() const { return multiLine_; }

private:
    Fnd::WString text_;
    TextAlignment alignment_ = TextAlignment::Default;
    bool multiLine_ = false;
};

} // namespace fluxui::controls
