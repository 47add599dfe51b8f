#pragma once
#include "fluxui/controls/UI_Checkbox.h"
#include "shell/AutoHintTextEdit.h"
#include "templates/fields/PresetManagementEditModeField.h"

namespace IGD {

// A field of the metadata preset being edited: whether it is required, its key and its default value.
class MetadataTemplateEditModeField : public PresetManagementEditModeField {
public:
    explicit MetadataTemplateEditModeField(PresetFieldRef field);
    const char* UI_GetClassName() const override { return "MetadataTemplateEditModeField"; }

    void TakeFocus() override;

    fluxui::controls::UI_Checkbox& GetRequiredCheckBox() const { return *requiredCheckBox_; }
    AutoHintTextEdit& GetKeyEdit() const { return *keyEdit_; }
    AutoHintTextEdit& GetValueEdit() const { return *valueEdit_; }

protected:
    void BindControls() override;
    void WireControls() override;

private:
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> requiredCheckBox_;
    boost::intrusive_ptr<AutoHintTextEdit> keyEdit_;
    boost::intrusive_ptr<AutoHintTextEdit> valueEdit_;
};

} // namespace IGD
