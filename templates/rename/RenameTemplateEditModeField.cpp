#include "templates/rename/RenameTemplateEditModeField.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "QL/PresetFieldFactory.h"
#include "fluxcore/ZString.h"
#include "templates/rename/RenamePatternText.h"
#include "templates/rename/RenameTemplateSection.h"

namespace IGD {
namespace {

using fluxcore::Localize;

// The index of the format in the choices, 0 when it is none of them: the popup then shows the
// first entry while the field keeps its own format until the user picks one.
int IndexOf(const std::vector<Fnd::WString>& choices, const Fnd::WString& format) {
    const auto found = std::find(choices.begin(), choices.end(), format);
    return found == choices.end() ? 0 : static_cast<int>(found - choices.begin());
}

bool IsCreationKind(QL::_QLPresetFieldType type) {
    return type == QL::kQLFieldCreationDate || type == QL::kQLFieldCreationTime;
}

} // namespace

RenameTemplateEditModeField::RenameTemplateEditModeField(PresetFieldRef field)
    : PresetManagementEditModeField("igdRenameTemplateEditModeField", std::move(field)) {}

void RenameTemplateEditModeField::BindControls() {
    PresetManagementEditModeField::BindControls();
    popup_ = BindControl<fluxui::controls::UI_Popup>("UI_Popup");
    outlineBox_ = BindControl<fluxui::controls::UI_OutlineBox>("UI_OutlineBox");
    staticText_ = BindControl<fluxui::controls::UI_StaticText>("UI_StaticText");
    hintEdit_ = BindControl<AutoHintTextEdit>("AutoHintTextEdit");
    const std::array<fluxui::ui::UI_Node*, 4> controls{popup_.get(), outlineBox_.get(), staticText_.get(),
                                                       hintEdit_.get()};
    for (fluxui::ui::UI_Node* control : controls)
        control->UI_Show(false);
    hintEdit_->SetHintText(
        Localize("$$$/Quillon/Libraries/IngestDialog/EnterRenameCustomText=Input Custom Text"));

    switch (GetField()->GetType()) {
    case QL::kQLFieldCustomText:
        hintEdit_->SetValue(GetField()->GetFormat());
        hintEdit_->UI_Show(true);
        break;
    case QL::kQLFieldFileName:
        staticText_->SetValue(
            Localize("$$$/Quillon/Libraries/IngestDialog/RenameEdit_FileNameStatic=File Name"));
        outlineBox_->UI_Show(true);
        staticText_->UI_Show(true);
        break;
    case QL::kQLFieldAutoIncrement:
    case QL::kQLFieldCreationDate:
    case QL::kQLFieldIngestDate:
    case QL::kQLFieldCreationTime:
    case QL::kQLFieldIngestTime:
    case QL::kQLFieldUserDefinedAutoIncrement:
        FillPopup();
        popup_->UI_Show(true);
        break;
    default:
        break;
    }
}

void RenameTemplateEditModeField::FillPopup() {
    const QL::_QLPresetFieldType type = GetField()->GetType();
    const Fnd::WString format = GetField()->GetFormat();
    popup_->DeleteAllItems();

    if (type == QL::kQLFieldAutoIncrement || type == QL::kQLFieldUserDefinedAutoIncrement) {
        const std::string_view entry =
            type == QL::kQLFieldAutoIncrement
                ? "$$$/Quillon/Libraries/IngestDialog/RenameEdit_AutoIncreaseFormatStr=Auto Increment (@0)"
                : "$$$/Quillon/Libraries/IngestDialog/RenameEdit_UserDefinedAutoIncreaseFormatStr=Custom "
                  "Auto "
                  "Increment (@0)";
        const auto masks = QL::GetPredefinedFieldValues(type);
        for (const auto& mask : masks)
            popup_->AddItem(Localize(entry, {mask}));
        popup_->SetValue(IndexOf(masks, format));
        return;
    }

    // Both kinds of a date (or a time) in one list, creation first: one choice sets kind and pattern.
    const bool isDate = type == QL::kQLFieldCreationDate || type == QL::kQLFieldIngestDate;
    const auto creation = isDate ? QL::kQLFieldCreationDate : QL::kQLFieldCreationTime;
    const std::string_view entry = isDate
                                       ? "$$$/Quillon/Libraries/IngestDialog/RenameEdit_DateFormatStr=@0 @1"
                                       : "$$$/Quillon/Libraries/IngestDialog/RenameEdit_TimeFormatStr=@0 @1";
    const std::string_view creationWord =
        isDate ? "$$$/Quillon/Libraries/IngestDialog/RenameEdit_CreationDate=(Creation Date)"
               : "$$$/Quillon/Libraries/IngestDialog/RenameEdit_CreationTime=(Creation Time)";
    const std::string_view ingestWord =
        isDate ? "$$$/Quillon/Libraries/IngestDialog/RenameEdit_IngestDate=(Ingest Date)"
               : "$$$/Quillon/Libraries/IngestDialog/RenameEdit_IngestTime=(Ingest Time)";
    const auto creationPatterns = QL::GetPredefinedFieldValues(creation);
    const auto ingestPatterns =
        QL::GetPredefinedFieldValues(static_cast<QL::_QLPresetFieldType>(creation + 1));
    for (const auto& pattern : creationPatterns)
        popup_->AddItem(PatternWithKind(entry, pattern, creationWord));
    for (const auto& pattern : ingestPatterns)
        popup_->AddItem(PatternWithKind(entry, pattern, ingestWord));
    popup_->SetValue(IsCreationKind(type)
                         ? IndexOf(creationPatterns, format)
                         : IndexOf(ingestPatterns, format) + static_cast<int>(creationPatterns.size()));
}

void RenameTemplateEditModeField::WireControls() {
    PresetManagementEditModeField::WireControls();
    popup_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { EntryChosen(popup_->GetValue()); });
    hintEdit_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { TextChanged(); });
}

void RenameTemplateEditModeField::EntryChosen(int index) {
    const PresetFieldRef& field = GetField();
    const QL::_QLPresetFieldType type = field->GetType();
    const auto own = QL::GetPredefinedFieldValues(type);
    // A negative index becomes one far beyond the lists, which at() refuses like any other.
    const auto i = static_cast<std::size_t>(index);
    Fnd::WString format;
    switch (type) {
    case QL::kQLFieldAutoIncrement:
    case QL::kQLFieldUserDefinedAutoIncrement:
        format = own.at(i);
        break;
    case QL::kQLFieldCreationDate:
    case QL::kQLFieldCreationTime:
        if (i < own.size()) {
            format = own.at(i);
        } else {
            const auto ingest = static_cast<QL::_QLPresetFieldType>(type + 1);
            field->SetType(ingest);
            format = QL::GetPredefinedFieldValues(ingest).at(i - own.size());
        }
        break;
    case QL::kQLFieldIngestDate:
    case QL::kQLFieldIngestTime:
        if (i < own.size()) {
            // The ingest list stands in for the creation list: the two are the same patterns.
            field->SetType(static_cast<QL::_QLPresetFieldType>(type - 1));
            format = own.at(i);
        } else {
            format = own.at(i - own.size());
        }
        break;
    default:
        return;
    }
    field->SetFormat(format);
    FieldChanged();
}

void RenameTemplateEditModeField::TextChanged() {
    GetField()->SetFormat(hintEdit_->GetValue());
    FieldChanged();
}

void RenameTemplateEditModeField::TakeFocus() {
    if (hintEdit_->UI_IsShown())
        hintEdit_->UI_GainKeyboardFocus();
    else if (popup_->UI_IsShown())
        popup_->UI_GainKeyboardFocus();
}

void RenameTemplateEditModeField::FieldChanged() {
    if (auto* section = dynamic_cast<RenameTemplateSection*>(OwnerSection()))
        section->UpdateSample();
}

} // namespace IGD
