#pragma once
#include <string>

#include "templates/section/PresetManagementNormalModeHeader.h"

namespace IGD {

// The preset popup of the metadata section, with the choice and scope kept in the settings.
class MetadataTemplateNormalModeHeader : public PresetManagementNormalModeHeader {
public:
    explicit MetadataTemplateNormalModeHeader(std::string layoutName);
    const char* UI_GetClassName() const override { return "MetadataTemplateNormalModeHeader"; }

    void StoreCurrentPreset(const PresetRef& preset) override;
    void StoreApplyScope(std::uint32_t scope) override;

protected:
    void LoadFromSettings() override;
};

} // namespace IGD
