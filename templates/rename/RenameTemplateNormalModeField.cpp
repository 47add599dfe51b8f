#include "templates/rename/RenameTemplateNormalModeField.h"

#include <array>

#include "fluxcore/ZString.h"
#include "templates/rename/RenamePatternText.h"
#include "templates/rename/RenameStartNumber.h"
#include "templates/rename/RenameTemplateSection.h"

namespace IGD {
namespace {

using fluxcore::Localize;
using fluxui::controls::UI_StaticText;

constexpr const char* kDateTemplate = "$$$/Quillon/Libraries/IngestDialog/RenameEdit_DateFormatStr=@0 @1";

// What a row of a date or time kind says its pattern is taken from.
const char* KindWord(QL::_QLPresetFieldType type) {
    switch (type) {
    case QL::kQLFieldCreationDate:
        return "$$$/Quillon/Libraries/IngestDialog/RenameEdit_CreationDate=(Creation Date)";
    case QL::kQLFieldIngestDate:
        return "$$$/Quillon/Libraries/IngestDialog/RenameEdit_IngestDate=(Ingest Date)";
    case QL::kQLFieldCreationTime:
        return "$$$/Quillon/Libraries/IngestDialog/RenameEdit_CreationTime=(Creation Time)";
    default:
        return "$$$/Quillon/Libraries/IngestDialog/RenameEdit_IngestTime=(Ingest Time)";
    }
}

// The label before the row's control; null for a kind a rename row does not show.
const char* TypeLabel(QL::_QLPresetFieldType type) {
    switch (type) {
    case QL::kQLFieldAutoIncrement:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_AutoIncreaseFormatTypeLabel=Auto Increment:";
    case QL::kQLFieldCustomText:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_CustomTextTypeLabel=Custom Text:";
    case QL::kQLFieldCreationDate:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_CreationDateTypeLabel=Creation Date:";
    case QL::kQLFieldIngestDate:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_IngestDateTypeLabel=Ingest Date:";
    case QL::kQLFieldCreationTime:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_CreationTimeTypeLabel=Creation Time:";
    case QL::kQLFieldIngestTime:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_IngestTimeTypeLabel=Ingest Time:";
    case QL::kQLFieldFileName:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_FileNameTypeLabel=File Name:";
    case QL::kQLFieldUserDefinedAutoIncrement:
        return "$$$/Quillon/Libraries/IngestDialog/RenameNormal_UserDefinedAutoIncreaseTypeLabel=Custom "
               "Increment:";
    default:
        return nullptr;
    }
}

} // namespace

RenameTemplateNormalModeField::RenameTemplateNormalModeField(PresetFieldRef field)
    : PresetManagementNormalModeField("igdRenameTemplateNormalModeField", std::move(field)) {}

RenameTemplateSection* RenameTemplateNormalModeField::RenameSection() const {
    return dynamic_cast<RenameTemplateSection*>(OwnerSection());
}

void RenameTemplateNormalModeField::BindControls() {
    PresetManagementNormalModeField::BindControls();
    outlineBox_ = BindControl<fluxui::controls::UI_OutlineBox>("UI_OutlineBox");
    staticText_ = BindControl<UI_StaticText>("UI_StaticText");
    hintEdit_ = BindControl<AutoHintTextEdit>("AutoHintTextEdit");
    typeLabel_ = BindControl<UI_StaticText>("UI_FieldTypeLabel");
    startNumber_ = BindControl<fluxui::controls::UI_NumberEdit>("UI_UserDefStartNumber");
    const std::array<fluxui::ui::UI_Node*, 5> controls{outlineBox_.get(), staticText_.get(), hintEdit_.get(),
                                                       typeLabel_.get(), startNumber_.get()};
    for (fluxui::ui::UI_Node* control : controls)
        control->UI_Show(false);
    hintEdit_->SetHintText(
        Localize("$$$/Quillon/Libraries/IngestDialog/EnterRenameCustomText=Input Custom Text"));

    const QL::_QLPresetFieldType type = GetField()->GetType();
    const char* label = TypeLabel(type);
    if (!label)
        return;
    typeLabel_->SetValue(Localize(label));
    typeLabel_->UI_Show(true);

    const auto showStatic = [this](const Fnd::WString& text) {
        staticText_->SetValue(text);
        outlineBox_->UI_Show(true);
        staticText_->UI_Show(true);
    };
    switch (type) {
    case QL::kQLFieldAutoIncrement:
        showStatic(GetField()->GetValue());
        break;
    case QL::kQLFieldCustomText:
        hintEdit_->SetValue(GetField()->GetValue());
        hintEdit_->UI_Show(true);
        break;
    case QL::kQLFieldCreationDate:
    case QL::kQLFieldIngestDate:
    case QL::kQLFieldCreationTime:
    case QL::kQLFieldIngestTime:
        // Times go through the date template too: in normal mode the row names its source the same way.
        showStatic(PatternWithKind(kDateTemplate, GetField()->GetValue(), KindWord(type)));
        break;
    case QL::kQLFieldFileName:
        showStatic(Localize("$$$/Quillon/Libraries/IngestDialog/RenameEdit_FileNameStatic=File Name"));
        break;
    case QL::kQLFieldUserDefinedAutoIncrement: {
        const RenameTemplateSection* section = RenameSection();
        const std::uint32_t start = section ? section->Settings().GetUserDefAutoIncStartNumber() : 1;
        startNumber_->SetNumber(static_cast<double>(start), false);
        startNumber_->UI_Show(true);
        break;
    }
    default:
        break;
    }
}

void RenameTemplateNormalModeField::WireControls() {
    PresetManagementNormalModeField::WireControls();
    hintEdit_->NotifyWhenChangedInteractively(
        [this](const fluxui::controls::UI_ControlMessage&) { TextTyped(); });
    startNumber_->NotifyWhenEditEnds([this](fluxui::controls::EditEnd) { StartNumberEdited(); });
}

void RenameTemplateNormalModeField::TextTyped() {
    const Fnd::WString text = hintEdit_->GetValue();
    if (GetField()->GetValue() == text)
        return;
    GetField()->SetValue(text);
    AfterValueChange();
}

void RenameTemplateNormalModeField::StartNumberEdited() {
    RenameTemplateSection* section = RenameSection();
    if (!section)
        return;
    IngestSettingsController& settings = section->Settings();
    const double typed = startNumber_->GetNumber();
    if (static_cast<double>(settings.GetUserDefAutoIncStartNumber()) == typed)
        return;
    // The edit keeps what was typed even when it does not read as a start number: it is set again
    // only when the row is rebuilt.
    settings.SetUserDefAutoIncStartNumber(StartNumberFromEdit(typed, GetField()->GetFormat()));
    AfterValueChange();
}

void RenameTemplateNormalModeField::AfterValueChange() const {
    if (RenameTemplateSection* section = RenameSection()) {
        section->UpdateSample();
        section->RefreshClearTextState();
    }
}

void RenameTemplateNormalModeField::ClearText() {
    if (GetField()->GetType() != QL::kQLFieldCustomText)
        return;
    hintEdit_->SetValue(Fnd::WString());
    TextTyped();
}

} // namespace IGD
