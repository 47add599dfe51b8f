#pragma once
// Inside destination 0's transcode section: stitch every clip into one file of a given name.
#include <memory>
#include <string>

#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "settings/IngestSettingsController.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class ConcatenateSettingSection : public wrangler::ui::SectionViewEx {
public:
    explicit ConcatenateSettingSection(std::shared_ptr<IngestSettingsController> settings,
                                       std::string layoutName = "igdConcatenateSetting");
    const char* UI_GetClassName() const override { return "ConcatenateSettingSection"; }

    // Writes the stitch choice and name into destination 0's transcode setting: a disabled section
    // never stitches.
    void Store();

    fluxui::controls::UI_Checkbox& GetConcatenateCheckbox() const { return *concatenateCheckbox_; }
    fluxui::controls::UI_TextEdit& GetConcatenateEdit() const { return *concatenateEdit_; }

protected:
    void BindControls() override;
    void WireControls() override;
    void LoadFromSettings() override;

private:
    void StitchToggled();

    std::shared_ptr<IngestSettingsController> settings_;
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> concatenateCheckbox_;
    boost::intrusive_ptr<fluxui::controls::UI_StaticText> concatenateStaticText_;
    boost::intrusive_ptr<fluxui::controls::UI_TextEdit> concatenateEdit_;
    bool loaded_ = false;
};

} // namespace IGD
