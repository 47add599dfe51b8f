#include "ReplayControls.h"

#include <charconv>
#include <functional>

#include "Fnd/WString.h"
#include "fluxcore/ZString.h"
#include "fluxmediabrowser/MediaBrowserView.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Popup.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"

namespace igd::dialog {
namespace {

using namespace fluxui::controls;
using fluxui::ui::UI_Node;

void Walk(UI_Node& node, const std::function<void(UI_Node&)>& visit) {
    visit(node);
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child)
        Walk(**child, visit);
}

// What the person reads: a localisable text shows its translation or its default.
std::string Shown(const Fnd::WString& text) {
    const std::string utf8 = Fnd::ToDisplayUTF8(text);
    return utf8.rfind("$$$/", 0) == 0 ? Fnd::ToDisplayUTF8(fluxcore::Localize(utf8)) : utf8;
}

std::string FileName(const Fnd::WString& path) {
    const std::string utf8 = Fnd::ToDisplayUTF8(path);
    const std::size_t slash = utf8.rfind('/');
    return slash == std::string::npos ? utf8 : utf8.substr(slash + 1);
}

void RequireEnabled(const UI_Node& control, const std::string& reference) {
    if (!control.UI_IsEnabled())
        throw ReplayActionError("the control \"" + reference + "\" is disabled");
}

std::string NodeText(UI_Node& node) {
    if (auto* box = dynamic_cast<UI_Checkbox*>(&node))
        return Shown(box->GetText()) + (box->IsChecked() ? " [on]" : " [off]");
    if (auto* popup = dynamic_cast<UI_Popup*>(&node)) {
        std::string rows;
        for (const UI_Popup::Item& item : popup->GetItems())
            rows += (rows.empty() ? "" : " | ") + Shown(item.text);
        return "\"" + Shown(popup->GetValueString()) + "\" of " + rows;
    }
    if (auto* edit = dynamic_cast<UI_TextEdit*>(&node))
        return "\"" + Fnd::ToDisplayUTF8(edit->GetDisplayedText()) + "\"";
    if (auto* button = dynamic_cast<UI_TextButton*>(&node))
        return Shown(button->GetText());
    if (auto* text = dynamic_cast<UI_StaticText*>(&node))
        return Shown(text->GetValue());
    return {};
}

} // namespace

UI_Node* FindControl(UI_Node& root, const std::string& reference) {
    std::string id = reference;
    int wanted = 1;
    if (const std::size_t at = reference.rfind('@'); at != std::string::npos) {
        id = reference.substr(0, at);
        const std::string number = reference.substr(at + 1);
        const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), wanted);
        if (error != std::errc() || end != number.data() + number.size() || wanted < 1)
            throw ReplayActionError("\"" + reference + "\": the number after @ counts from 1");
    }
    UI_Node* found = nullptr;
    int seen = 0;
    Walk(root, [&](UI_Node& node) {
        if (!found && node.UI_GetNodeID() == id && node.UI_IsVisible() && ++seen == wanted)
            found = &node;
    });
    return found;
}

fluxmediabrowser::MediaBrowserView* FindMediaBrowser(UI_Node& root) {
    fluxmediabrowser::MediaBrowserView* found = nullptr;
    Walk(root, [&](UI_Node& node) {
        if (!found)
            found = dynamic_cast<fluxmediabrowser::MediaBrowserView*>(&node);
    });
    return found;
}

void PressControl(UI_Node& control, const std::string& reference) {
    auto* button = dynamic_cast<UI_Button*>(&control);
    if (!button)
        throw ReplayActionError("the control \"" + reference + "\" is a " + control.UI_GetClassName() +
                                ", which cannot be pressed");
    RequireEnabled(control, reference);
    button->Press();
}

void SetControl(UI_Node& control, const std::string& reference, const std::string& value) {
    RequireEnabled(control, reference);
    if (auto* box = dynamic_cast<UI_Checkbox*>(&control)) {
        if (value != "on" && value != "off")
            throw ReplayActionError("the checkbox \"" + reference + "\" takes on or off, not \"" + value + "\"");
        if (box->IsChecked() != (value == "on") || box->IsValueUnknown())
            box->Press();
        if (box->IsChecked() != (value == "on"))
            box->Press();
        return;
    }
    if (auto* popup = dynamic_cast<UI_Popup*>(&control)) {
        const std::vector<UI_Popup::Item>& items = popup->GetItems();
        for (std::size_t row = 0; row < items.size(); ++row)
            if (Shown(items[row].text) == value) {
                if (items[row].disabled)
                    throw ReplayActionError("the row \"" + value + "\" of \"" + reference + "\" is disabled");
                popup->ChooseByUser(static_cast<int>(row));
                return;
            }
        throw ReplayActionError("the popup \"" + reference + "\" has no row \"" + value + "\"; it has " +
                                NodeText(control));
    }
    if (auto* edit = dynamic_cast<UI_TextEdit*>(&control)) {
        edit->UI_GainKeyboardFocus();
        edit->TypeText(Fnd::FromUTF8(value));
        edit->EndEdit(EditEnd::Commit);
        return;
    }
    throw ReplayActionError("the control \"" + reference + "\" is a " + control.UI_GetClassName() +
                            ", which takes no value");
}

void TypeIntoControl(UI_Node& control, const std::string& reference, const std::string& text) {
    auto* edit = dynamic_cast<UI_TextEdit*>(&control);
    if (!edit)
        throw ReplayActionError("the control \"" + reference + "\" is a " + control.UI_GetClassName() +
                                ", not a text edit");
    RequireEnabled(control, reference);
    edit->UI_GainKeyboardFocus();
    const Fnd::WString wide = Fnd::FromUTF8(text);
    // The person selects what the field holds and types over it.
    Fnd::WString typed;
    for (char16_t key : wide) {
        typed.push_back(key);
        edit->TypeText(typed);
    }
    edit->EndEdit(EditEnd::Commit);
}

void TickRow(fluxmediabrowser::MediaBrowserView& browser, const std::string& name, bool tick) {
    fluxmediabrowser::MediaBrowserModel& model = browser.GetModel();
    std::string names;
    for (std::size_t index : model.ShownEntries()) {
        const fluxmediabrowser::MediaEntry& entry = model.Entries()[index];
        const std::string shown = Fnd::ToDisplayUTF8(entry.displayName);
        if (shown == name || Fnd::ToDisplayUTF8(entry.entryName) == name || FileName(entry.path) == name) {
            model.SetChecked(index, tick);
            return;
        }
        names += (names.empty() ? "" : ", ") + shown;
    }
    throw ReplayActionError("the media browser shows no row \"" + name + "\"; it shows " +
                            (names.empty() ? std::string("nothing") : names));
}

std::vector<std::string> DescribeControls(UI_Node& root) {
    std::vector<std::string> lines;
    Walk(root, [&](UI_Node& node) {
        if (node.UI_GetNodeID().empty() || !node.UI_IsVisible())
            return;
        std::string line = node.UI_GetNodeID() + "  " + node.UI_GetClassName();
        if (!node.UI_IsEnabled())
            line += " (disabled)";
        const std::string text = NodeText(node);
        if (!text.empty())
            line += "  " + text;
        lines.push_back(std::move(line));
    });
    return lines;
}

} // namespace igd::dialog
