#pragma once
#include "templates/section/PresetManagementNormalModeHeader.h"

namespace IGD {

// The rename preset popup: the chosen preset and its scope live in the rename settings.
class RenameTemplateNormalModeHeader : public PresetManagementNormalModeHeader {
public:
    // A hosted application has no apply-scope popup, so it gets the layout without one.
    explicit RenameTemplateNormalModeHeader(bool kilnHosted);
    const char* UI_GetClassName() const override { return "RenameTemplateNormalModeHeader"; }

    void StoreCurrentPreset(const PresetRef& preset) override;
    void StoreApplyScope(std::uint32_t scope) override;

protected:
    void LoadFromSettings() override;
};

} // namespace IGD
