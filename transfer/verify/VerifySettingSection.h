#pragma once
// Whether copies are verified, and how: one number of the settings, -1 for not at all.
#include <memory>
#include <string>

#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_Popup.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class VerifySettingSection : public wrangler::ui::SectionViewEx {
public:
    explicit VerifySettingSection(std::shared_ptr<IngestSettingsController> settings,
                                  std::string layoutName = "igdVerifySetting");
    const char* UI_GetClassName() const override { return "VerifySettingSection"; }

    fluxui::controls::UI_Checkbox& GetVerifyCheckbox() const { return *verifyCheckbox_; }
    fluxui::controls::UI_Popup& GetVerifyPopup() const { return *verifyPopup_; }

protected:
    void BindControls() override;
    void WireControls() override;
    void LoadFromSettings() override;

private:
    void Store();

    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> verifyCheckbox_;
    boost::intrusive_ptr<fluxui::controls::UI_Popup> verifyPopup_;
};

} // namespace IGD
