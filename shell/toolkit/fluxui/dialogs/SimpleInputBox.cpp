#include "fluxui/dialogs/SimpleInputBox.h"

#include "fluxcore/ZString.h"

namespace fluxui::dialogs {

using fluxcore::geom::RectF;

SimpleInputBox::SimpleInputBox(sketcher::SupplierInterface* supplier, const Fnd::WString& title,
                               const Fnd::WString& label, const Fnd::WString& text, ui::OS_Window* parent)
    : UI_Dialog(supplier, title, {1, 1}, parent), label_(new controls::UI_StaticText(label)),
      edit_(new controls::UI_TextEdit),
      ok_(new controls::UI_TextButton(fluxcore::Localize("$$$/fluxui/MessageBox/OK=OK"))),
      cancel_(new controls::UI_TextButton(fluxcore::Localize("$$$/fluxui/MessageBox/Cancel=Cancel"))) {
    SetMinimumSize({320, 110});
    SetContentSize({320, 110});
    label_->UI_SetLocalRectF(RectF{12, 12, 296, 20});
    edit_->UI_SetLocalRectF(RectF{12, 36, 296, 24});
    ok_->UI_SetLocalRectF(RectF{148, 72, 76, 26});
    cancel_->UI_SetLocalRectF(RectF{232, 72, 76, 26});
    ChildPushBack(label_);
    ChildPushBack(edit_);
    ChildPushBack(ok_);
    ChildPushBack(cancel_);
    edit_->SetValue(text, false);
    ok_->SetDefaultAppearance(true);
    SetCancelButton(cancel_.get());
    ok_->NotifyWhenChanged([this](const controls::UI_ControlMessage&) {
        SetResponse(ui::kDialogResponseOK);
        PostClose();
    });
    cancel_->NotifyWhenChanged([this](const controls::UI_ControlMessage&) { DefaultCloseCancel(); });
    edit_->UI_GainKeyboardFocus();
}

bool SimpleInputBox::Ask(const Fnd::WString& title, const Fnd::WString& label, Fnd::WString& text,
                         ui::UI_Node* parent) {
    ui::OS_Window* window = parent ? dynamic_cast<ui::OS_Window*>(parent->UI_GetRootNode()) : nullptr;
    const boost::intrusive_ptr<SimpleInputBox> box(
        new SimpleInputBox(parent ? parent->UI_GetDrawSupplier() : nullptr, title, label, text, window));
    box->Position();
    if (box->RunModal() != ui::kDialogResponseOK)
        return false;
    text = box->GetTextEdit().GetValue();
    return true;
}

} // namespace fluxui::dialogs
