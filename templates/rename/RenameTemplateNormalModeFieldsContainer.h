#pragma once
#include "templates/fields/PresetManagementNormalModeFieldsContainer.h"

namespace IGD {

// The rows of a rename preset in normal mode, under their divider.
class RenameTemplateNormalModeFieldsContainer : public PresetManagementNormalModeFieldsContainer {
public:
    RenameTemplateNormalModeFieldsContainer() : PresetManagementNormalModeFieldsContainer("igdDivider") {}
    const char* UI_GetClassName() const override { return "RenameTemplateNormalModeFieldsContainer"; }

    PresetManagementNormalModeFieldRef CreateFieldRow(const PresetFieldRef& field) override;
};

} // namespace IGD
