#pragma once
#include <string>

#include "fluxui/controls/UI_StaticText.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

// The name of the preset being edited, over the edit rows.
class PresetManagementEditModeHeader : public wrangler::ui::SectionViewEx {
public:
    explicit PresetManagementEditModeHeader(std::string layoutName);
    const char* UI_GetClassName() const override { return "PresetManagementEditModeHeader"; }

    void SetPresetName(const Fnd::WString& name);
    Fnd::WString GetPresetName() const;

protected:
    void BindControls() override;

private:
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> presetName_;
};

} // namespace IGD
