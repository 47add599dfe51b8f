#pragma once
// The rows of edit mode, which the user moves and removes.
#include <string>
#include <vector>

#include "templates/fields/PresetManagementEditModeField.h"

namespace IGD {

class PresetManagementEditModeFieldsContainer : public wrangler::ui::SectionViewEx {
public:
    explicit PresetManagementEditModeFieldsContainer(std::string layoutName = {});
    const char* UI_GetClassName() const override { return "PresetManagementEditModeFieldsContainer"; }

    // Copies of the fields of the shown rows, in row order: the order the preset is saved in.
    virtual bool CollectFields(QL::PresetFieldList& fields);
    virtual PresetManagementEditModeFieldRef CreateFieldRow(const PresetFieldRef& field) = 0;

    // Appends a row for the field; with focus, its first control takes the keyboard focus.
    PresetManagementEditModeField& AddRow(const PresetFieldRef& field, bool focus);
    // The first row cannot go up, the last cannot go down.
    void RefreshArrows();
    std::vector<PresetManagementEditModeField*> GetRows() const;
};

} // namespace IGD
