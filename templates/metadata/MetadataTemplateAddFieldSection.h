#pragma once
#include "fluxui/controls/UI_PictureButton.h"
#include "templates/fields/PresetManagementAddFieldSection.h"

namespace IGD {

// Under the metadata rows: a button that adds an empty metadata field, and the buttons that end editing.
class MetadataTemplateAddFieldSection : public PresetManagementAddFieldSection {
public:
    MetadataTemplateAddFieldSection();
    const char* UI_GetClassName() const override { return "MetadataTemplateAddFieldSection"; }

    fluxui::controls::UI_PictureButton& GetAddButton() const { return *addButton_; }

protected:
    void BindControls() override;
    void WireControls() override;

private:
    boost::intrusive_ptr<fluxui::controls::UI_PictureButton> addButton_;
};

} // namespace IGD
