#pragma once
#include "templates/fields/PresetManagementEditModeFieldsContainer.h"

namespace IGD {

// The rows of a rename preset being edited; it has no layout of its own.
class RenameTemplateEditModeFieldsContainer : public PresetManagementEditModeFieldsContainer {
public:
    RenameTemplateEditModeFieldsContainer() : PresetManagementEditModeFieldsContainer({}) {}
    const char* UI_GetClassName() const override { return "RenameTemplateEditModeFieldsContainer"; }

    PresetManagementEditModeFieldRef CreateFieldRow(const PresetFieldRef& field) override;
};

} // namespace IGD
