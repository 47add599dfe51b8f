#pragma once
// Under the edit rows: the control that adds a field (the concrete section's), and Save, Save As
// and Cancel, which end edit mode.
#include <string>

#include "fluxui/controls/UI_PictureButton.h"
#include "transfer/SectionViewEx.h"

namespace IGD {

class PresetManagementSection;

class PresetManagementAddFieldSection : public wrangler::ui::SectionViewEx {
public:
    explicit PresetManagementAddFieldSection(std::string layoutName);
    const char* UI_GetClassName() const override { return "PresetManagementAddFieldSection"; }

    // The name Save saves under; a new preset has no file yet, so Save asks for a name instead and
    // Save As, which would do the same, is disabled.
    void SetPresetName(const Fnd::WString& name, bool isNew);
    const Fnd::WString& GetPresetName() const { return presetName_; }
    bool IsNew() const { return isNew_; }

    fluxui::controls::UI_PictureButton& GetSaveButton() const { return *saveButton_; }
    fluxui::controls::UI_PictureButton& GetSaveAsButton() const { return *saveAsButton_; }
    fluxui::controls::UI_PictureButton& GetCancelButton() const { return *cancelButton_; }

protected:
    // A subclass that overrides these calls them first.
    void BindControls() override;
    void WireControls() override;
    PresetManagementSection* OwnerSection() const;

private:
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> saveButton_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> saveAsButton_;
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> cancelButton_;
    Fnd::WString presetName_;
    bool isNew_ = false;
};

} // namespace IGD
