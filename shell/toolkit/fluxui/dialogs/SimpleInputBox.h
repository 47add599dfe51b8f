#pragma once
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "fluxui/ui/UI_Dialog.h"

namespace fluxui::dialogs {

// Asks for one line of text: a label, a field, OK and Cancel.
class SimpleInputBox : public ui::UI_Dialog {
public:
    SimpleInputBox(sketcher::SupplierInterface* supplier, const Fnd::WString& title,
                   const Fnd::WString& label, const Fnd::WString& text, ui::OS_Window* parent = nullptr);
    const char* UI_GetClassName() const override { return "SimpleInputBox"; }

    // True with the text when the person pressed OK; false, leaving text as it was, on cancel.
    static bool Ask(const Fnd::WString& title, const Fnd::WString& label, Fnd::WString& text,
                    ui::UI_Node* parent = nullptr);

    controls::UI_TextEdit& GetTextEdit() const { return *edit_; }
    controls::UI_TextButton& GetOKButton() const { return *ok_; }
    controls::UI_TextButton& GetCancelButtonView() const { return *cancel_; }
    const Fnd::WString& GetLabel() const { return label_->GetValue(); }

private:
    boost::intrusive_ptr<controls::UI_StaticText> label_;
    boost::intrusive_ptr<controls::UI_TextEdit> edit_;
    boost::intrusive_ptr<controls::UI_TextButton> ok_;
    boost::intrusive_ptr<controls::UI_TextButton> cancel_;
};

} // namespace fluxui::dialogs
