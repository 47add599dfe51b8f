#pragma once
#include "templates/section/PresetManagementEditModeHeader.h"

namespace IGD {

// The name of the rename preset being edited.
class RenameTemplateEditModeHeader : public PresetManagementEditModeHeader {
public:
    RenameTemplateEditModeHeader() : PresetManagementEditModeHeader("igdRenameTemplateEditModeHeader") {}
    const char* UI_GetClassName() const override { return "RenameTemplateEditModeHeader"; }
};

} // namespace IGD
