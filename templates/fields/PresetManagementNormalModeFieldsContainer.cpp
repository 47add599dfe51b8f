#include "templates/fields/PresetManagementNormalModeFieldsContainer.h"

#include "QL/PresetFieldFactory.h"

namespace IGD {
namespace {

bool IsTextField(const PresetFieldRef& field) {
    return field->GetType() == QL::kQLFieldCustomText || field->GetType() == QL::kQLFieldMetadata;
}

} // namespace

PresetManagementNormalModeFieldsContainer::PresetManagementNormalModeFieldsContainer(std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)) {}

std::vector<PresetManagementNormalModeField*> PresetManagementNormalModeFieldsContainer::GetRows() const {
    std::vector<PresetManagementNormalModeField*> rows;
    for (const wrangler::ui::SectionViewExRef& child : GetChildSections())
        if (auto* row = dynamic_cast<PresetManagementNormalModeField*>(child.get()))
            rows.push_back(row);
    return rows;
}

bool PresetManagementNormalModeFieldsContainer::CollectFields(QL::PresetFieldList& fields) {
    fields.clear();
    for (PresetManagementNormalModeField* row : GetRows()) {
        if (!row->UI_IsShown())
            continue;
        PresetFieldRef copy = QL::CreatePresetField(row->GetField());
        // What the user typed becomes the default of a preset saved from here.
        copy->SetFormat(copy->GetValue());
        fields.push_back(copy);
    }
    return true;
}

void PresetManagementNormalModeFieldsContainer::RebuildRows(const QL::PresetFieldList& fields) {
    RemoveAllChildSections();
    for (const PresetFieldRef& field : fields) {
        const PresetManagementNormalModeFieldRef row = CreateFieldRow(field);
        InsertChildSection(row, nullptr);
        BuildAddedSection(*row);
        row->UI_Show(true);
    }
    if (const fluxui::ui::UI_NodeRef& divider = GetLayoutContentView())
        divider->UI_Show(!fields.empty());
    UpdateSectionLayout();
}

bool PresetManagementNormalModeFieldsContainer::HasText() const {
    for (PresetManagementNormalModeField* row : GetRows())
        if (IsTextField(row->GetField()) && !row->GetField()->GetValue().empty())
            return true;
    return false;
}

void PresetManagementNormalModeFieldsContainer::ClearText() {
    for (PresetManagementNormalModeField* row : GetRows())
        if (IsTextField(row->GetField()))
            row->ClearText();
}

} // namespace IGD
