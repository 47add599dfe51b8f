#pragma once
#include "templates/fields/PresetManagementNormalModeFieldsContainer.h"

namespace IGD {

// The metadata rows of normal mode, one value to type per key.
class MetadataTemplateNormalModeFieldsContainer : public PresetManagementNormalModeFieldsContainer {
public:
    const char* UI_GetClassName() const override { return "MetadataTemplateNormalModeFieldsContainer"; }
    PresetManagementNormalModeFieldRef CreateFieldRow(const PresetFieldRef& field) override;
};

} // namespace IGD
