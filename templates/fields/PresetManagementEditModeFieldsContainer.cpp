#include "templates/fields/PresetManagementEditModeFieldsContainer.h"

#include "QL/PresetFieldFactory.h"

namespace IGD {

PresetManagementEditModeFieldsContainer::PresetManagementEditModeFieldsContainer(std::string layoutName)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)) {}

std::vector<PresetManagementEditModeField*> PresetManagementEditModeFieldsContainer::GetRows() const {
    std::vector<PresetManagementEditModeField*> rows;
    for (const wrangler::ui::SectionViewExRef& child : GetChildSections())
        if (auto* row = dynamic_cast<PresetManagementEditModeField*>(child.get()))
            rows.push_back(row);
    return rows;
}

bool PresetManagementEditModeFieldsContainer::CollectFields(QL::PresetFieldList& fields) {
    fields.clear();
    // A removed row is hidden at once, before it leaves the list: it is not saved.
    for (PresetManagementEditModeField* row : GetRows())
        if (row->UI_IsShown())
            fields.push_back(QL::CreatePresetField(row->GetField()));
    return true;
}

PresetManagementEditModeField& PresetManagementEditModeFieldsContainer::AddRow(const PresetFieldRef& field,
                                                                                bool focus) {
    const PresetManagementEditModeFieldRef row = CreateFieldRow(field);
    InsertChildSection(row, nullptr);
    BuildAddedSection(*row);
    RefreshArrows();
    row->SetAfterMove([this] { RefreshArrows(); });
    row->UI_Show(true);
    UpdateSectionLayout();
    if (focus)
        row->TakeFocus();
    return *row;
}

void PresetManagementEditModeFieldsContainer::RefreshArrows() {
    for (PresetManagementEditModeField* row : GetRows()) {
        row->GetMoveUpButton().SetDisabled(IsFirstChildSection(row));
        row->GetMoveDownButton().SetDisabled(IsLastChildSection(row));
    }
}

} // namespace IGD
