#include "fluxui/controls/UI_Popup.h"

namespace fluxui::controls {

int UI_Popup::AddItem(const Fnd::WString& text) {
    items_.push_back({text, false});
    NotifyObserver(ui::NodeChange::Appearance);
    return static_cast<int>(items_.size()) - 1;
}

void UI_Popup::DeleteAllItems() {
    items_.clear();
    NotifyObserver(ui::NodeChange::Appearance);
    Choose(-1, false);
}

void UI_Popup::DisableItem(int number, bool disabled) {
    if (number < 0 || number >= static_cast<int>(items_.size()))
        return;
    items_[static_cast<std::size_t>(number)].disabled = disabled;
    NotifyObserver(ui::NodeChange::Appearance);
}

Fnd::WString UI_Popup::GetValueString() const {
    if (value_ < 0)
        return {};
    return items_[static_cast<std::size_t>(value_)].text;
}

void UI_Popup::SetValueString(const Fnd::WString& text, bool notify, bool refresh) {
    int found = -1;
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (items_[i].text == text) {
            found = static_cast<int>(i);
            break;
        }
    Choose(found, false, notify);
    if (refresh)
        NotifyObserver(ui::NodeChange::Value);
}

void UI_Popup::ChooseByUser(int number) {
    if (!UI_IsEnabled() || number < 0 || number >= static_cast<int>(items_.size()) ||
        items_[static_cast<std::size_t>(number)].disabled)
        return;
    Choose(number, true);
}

void UI_Popup::Choose(int number, bool interactive, bool notify) {
    if (number < 0 || number >= static_cast<int>(items_.size()))
        number = -1;
    if (number == value_ && !IsValueUnknown())
        return;
    value_ = number;
    SetValueUnknownFlag(false);
    if (notify)
        Changed(interactive);
    else
        NotifyObserver(ui::NodeChange::Value);
}

} // namespace fluxui::controls
