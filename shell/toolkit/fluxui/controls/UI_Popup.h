#pragma once
#include <vector>

#include "fluxui/controls/UI_Button.h"

namespace fluxui::controls {

enum class PopupType { Standard = 0, Picture = 1 };

// A list of items of which one (or none, -1) is chosen.
class UI_Popup : public UI_Button {
public:
    struct Item {
        Fnd::WString text;
        bool disabled = false;
    };

    explicit UI_Popup(PopupType type = PopupType::Standard, bool autoSize = false) : type_(type) {}
    const char* UI_GetClassName() const override { return "UI_Popup"; }

    // Answers the item's number, in order of adding.
    int AddItem(const Fnd::WString& text);
    void DeleteAllItems();
    void DisableItem(int number, bool disabled);
    const std::vector<Item>& GetItems() const { return items_; }
    // -1 when nothing is chosen.
    int GetValue() const { return value_; }
    // A number outside the items chooses nothing.
    void SetValue(int number) { Choose(number, false); }
    // The chosen item's text, empty when nothing is chosen.
    Fnd::WString GetValueString() const;
    // Chooses the first item with the text; without one nothing is chosen. With notify false the
    // change is silent; refresh asks the presenter to show it at once.
    void SetValueString(const Fnd::WString& text, bool notify, bool refresh);
    void SetAllowMouseScroll(bool allow) { allowMouseScroll_ = allow; }
    bool GetAllowMouseScroll() const { return allowMouseScroll_; }
    PopupType GetType() const { return type_; }
    // A line between the chosen item and the popup's arrow.
    void SetDrawDivider(bool draw) {
        if (draw == drawDivider_)
            return;
        drawDivider_ = draw;
        NotifyObserver(ui::NodeChange::Appearance);
    }
    bool GetDrawDivider() const { return drawDivider_; }

    // The person chose an item; a disabled item or a disabled popup cannot be chosen.
    void ChooseByUser(int number);
    // A popup opens its list when pressed; it holds no press of its own.
    void Press() override {}

private:
    void Choose(int number, bool interactive, bool notify = true);

    PopupType type_;
    std::vector<Item> items_;
    int value_ = -1;
    bool allowMouseScroll_ = true;
    bool drawDivider_ = true;
};

} // namespace fluxui::controls
