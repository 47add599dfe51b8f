#pragma once
#include "templates/section/PresetManagementEditModeHeader.h"

namespace IGD {

// The name of the metadata preset being edited.
class MetadataTemplateEditModeHeader : public PresetManagementEditModeHeader {
public:
    MetadataTemplateEditModeHeader() : PresetManagementEditModeHeader("igdMetadataTemplateEditModeHeader") {}
    const char* UI_GetClassName() const override { return "MetadataTemplateEditModeHeader"; }
};

} // namespace IGD
