#include "fluxui/ui/UI_Dialog.h"

namespace fluxui::ui {

UI_Dialog::UI_Dialog(sketcher::SupplierInterface* supplier, Fnd::WString title, fluxcore::geom::PointF scale,
                     OS_Window* parent, unsigned flags)
    : OS_Dialog(supplier, std::move(title)), parentWindow_(parent) {
    SetViewScaleFactor(scale.x);
}

int UI_Dialog::RunModal() {
    const int response = OS_Dialog::RunModal();
    RunPostCloseCallback(response);
    return response;
}

void UI_Dialog::RunPostCloseCallback(int response) {
    // A copy: the callback may set another one, or drop the dialog's hold on itself.
    const PostCloseFunctionPtr function = postClose_;
    if (function && *function)
        (*function)(response);
}

void UI_Dialog::DefaultCloseCancel() {
    SetResponse(kDialogResponseCancel);
    PostClose();
}

void UI_Dialog::DefaultCloseOk() {
    SetResponse(kDialogResponseOK);
    PostClose();
}

void UI_Dialog::Position() {
    if (!parentWindow_)
        return;
    const fluxcore::geom::RectI parent = parentWindow_->UI_GetGlobalStructureRect();
    fluxcore::geom::RectI rect = UI_GetGlobalStructureRect();
    rect.left = parent.left + (parent.width - rect.width) / 2;
    rect.top = parent.top + (parent.height - rect.height) / 2;
    UI_SetGlobalStructureRect(rect);
}

bool UI_Dialog::UI_DoKeyboardEvent(UI_Node* target, const KeyboardEvent& event) {
    if (event.key == Key::Escape) {
        PressCancel();
        return true;
    }
    if (event.key == Key::Return)
        return OnReturnKey();
    return false;
}

bool UI_Dialog::OnReturnKey() {
    controls::UI_Button* button = FindDefaultButton(*this);
    if (!button)
        return false;
    button->Press();
    return true;
}

void UI_Dialog::CloseByUser() {
    PressCancel();
    // A cancel button whose handler keeps the dialog open must not trap the person in it.
    if (!IsCloseRequested())
        DefaultCloseCancel();
}

void UI_Dialog::PressCancel() {
    if (cancelButton_ && cancelButton_->UI_IsEnabled())
        cancelButton_->Press();
    else
        DefaultCloseCancel();
}

controls::UI_Button* UI_Dialog::FindDefaultButton(UI_Node& node) const {
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child) {
        if (auto* button = dynamic_cast<controls::UI_Button*>(child->get()))
            if (button->HasDefaultAppearance() && button->UI_IsEnabled() && button->UI_IsVisible())
                return button;
        if (controls::UI_Button* found = FindDefaultButton(**child))
            return found;
    }
    return nullptr;
}

} // namespace fluxui::ui
