#pragma once
#include "fluxui/controls/UI_StaticText.h"
#include "shell/AutoHintTextEdit.h"
#include "templates/fields/PresetManagementNormalModeField.h"

namespace IGD {

// A key and the value the user types for it, for this ingest; the key is marked when required.
class MetadataTemplateNormalModeField : public PresetManagementNormalModeField {
public:
    explicit MetadataTemplateNormalModeField(PresetFieldRef field);
    const char* UI_GetClassName() const override { return "MetadataTemplateNormalModeField"; }

    void ClearText() override;

    const fluxui::controls::UI_StaticText& GetLabel() const { return *label_; }
    AutoHintTextEdit& GetValueEdit() const { return *valueEdit_; }

protected:
    void BindControls() override;
    void WireControls() override;

private:
    // The value goes into the preset's own field, where the ingest reads it.
    void CommitValue();

    boost::intrusive_ptr<fluxui::controls::UI_StaticText> label_;
    boost::intrusive_ptr<AutoHintTextEdit> valueEdit_;
};

} // namespace IGD
