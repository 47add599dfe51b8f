#include "TerminalPanelForm.h"

#include <optional>
#include <string_view>
#include <vector>

#include "fluxui/controls/UI_Button.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextEdit.h"

namespace igd {
namespace {

using fluxui::controls::UI_Checkbox;
using fluxui::controls::UI_TextEdit;

constexpr std::string_view kFieldPrefix = "field.";
constexpr std::string_view kApplyToAll = "applyToAllDestinations";
// How the form marks a field it will not go on without.
constexpr Fnd::WStringView kRequiredMark = u" *";

struct FormField {
    std::string key;
    Fnd::WString label; // without the required mark
    bool required = false;
    UI_Checkbox* box = nullptr;
    UI_TextEdit* edit = nullptr;
};

void CollectFields(fluxui::ui::UI_Node& node, fluxui::ui::UI_Node& window, std::vector<FormField>& fields) {
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child) {
        fluxui::ui::UI_Node& current = **child;
        const std::string& id = current.UI_GetNodeID();
        const bool isField = id.starts_with(kFieldPrefix);
        if (isField || id == kApplyToAll) {
            FormField field;
            field.key = isField ? id.substr(kFieldPrefix.size()) : id;
            field.box = dynamic_cast<UI_Checkbox*>(&current);
            field.edit = dynamic_cast<UI_TextEdit*>(&current);
            if (field.box)
                field.label = field.box->GetText();
            else if (auto* label =
                         dynamic_cast<fluxui::controls::UI_StaticText*>(window.UI_FindNodeByID("label." + field.key)))
                field.label = label->GetValue();
            else
                field.label = Fnd::FromUTF8(field.key);
            if (field.label.ends_with(kRequiredMark)) {
                field.required = true;
                field.label.resize(field.label.size() - kRequiredMark.size());
            }
            if (field.box || field.edit)
                fields.push_back(std::move(field));
        }
        CollectFields(current, window, fields);
    }
}

std::optional<bool> ParseYesNo(std::string_view text) {
    for (std::string_view yes : {"true", "yes", "y", "1"})
        if (text == yes)
            return true;
    for (std::string_view no : {"false", "no", "n", "0"})
        if (text == no)
            return false;
    return std::nullopt;
}

void SetBox(UI_Checkbox& box, bool checked) {
    if (box.IsChecked() != checked)
        box.Press();
}

bool Press(fluxui::ui::UI_Node& window, const std::string& id) {
    auto* button = dynamic_cast<fluxui::controls::UI_Button*>(window.UI_FindNodeByID(id));
    if (!button)
        return false;
    button->Press();
    return true;
}

// Asks until the person gives a value a required field can take; end of input gives up.
bool AskField(FormField& field, std::istream& in, std::ostream& out) {
    for (;;) {
        out << Fnd::ToValidUTF8(field.label);
        if (field.box)
            out << " (y/n) [" << (field.box->IsChecked() ? "y" : "n") << "]";
        else if (field.required)
            out << " (required)";
        out << ": " << std::flush;
        std::string line;
        if (!std::getline(in, line))
            return false;
        if (field.box) {
            if (line.empty())
                return true;
            if (const std::optional<bool> checked = ParseYesNo(line)) {
                SetBox(*field.box, *checked);
                return true;
            }
            out << "Please answer y or n.\n";
            continue;
        }
        if (line.empty() && field.required) {
            out << Fnd::ToValidUTF8(field.label) << " is required.\n";
            continue;
        }
        field.edit->TypeText(Fnd::FromUTF8(line));
        return true;
    }
}

} // namespace

bool WorkPanelOnTerminal(fluxui::ui::OS_Dialog& window, const PanelValues& values, std::istream& in,
                         std::ostream& out, bool interactive) {
    std::vector<FormField> fields;
    CollectFields(window, window, fields);
    std::vector<FormField*> missing;
    for (FormField& field : fields) {
        const auto given = values.find(field.key);
        if (given == values.end()) {
            if (field.required || interactive)
                missing.push_back(&field);
            continue;
        }
        if (field.edit) {
            field.edit->TypeText(Fnd::FromUTF8(given->second));
        } else if (const std::optional<bool> checked = ParseYesNo(given->second)) {
            SetBox(*field.box, *checked);
        } else {
            out << "igd: --panel " << field.key << " takes true or false, not \"" << given->second << "\"\n";
            missing.push_back(&field);
        }
        if (field.edit && field.required && field.edit->GetValue().empty())
            missing.push_back(&field);
    }
    if (!interactive && !missing.empty()) {
        std::string names;
        for (const FormField* field : missing)
            names += (names.empty() ? "" : ", ") + Fnd::ToValidUTF8(field->label) + " (" + field->key + ")";
        out << "igd: the panel \"" << Fnd::ToValidUTF8(window.GetTitle()) << "\" needs " << names
            << " before an ingest, and there is no terminal to ask on.\n"
            << "     Give them with --panel KEY=VALUE (e.g. --panel " << missing.front()->key
            << "=...), run igd on a terminal to be asked, or turn the panel off with\n"
            << "     igd prefs set DLG.MinimumMetadataDialog.Enable false\n";
        if (!Press(window, "cancel"))
            window.CloseByUser();
        return false;
    }
    if (!missing.empty())
        out << Fnd::ToValidUTF8(window.GetTitle()) << " (keywords are separated by commas)\n";
    for (FormField* field : missing)
        if (!AskField(*field, in, out)) {
            if (!Press(window, "cancel"))
                window.CloseByUser();
            return false;
        }
    if (!Press(window, "ok")) {
        window.CloseByUser();
        return false;
    }
    return true;
}

} // namespace igd
