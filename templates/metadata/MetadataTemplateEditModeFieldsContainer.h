#pragma once
#include "templates/fields/PresetManagementEditModeFieldsContainer.h"

namespace IGD {

// The metadata rows of edit mode. Collecting them for a save is where keys are checked, so that no
// key that breaks the rules reaches a preset file through the dialog.
class MetadataTemplateEditModeFieldsContainer : public PresetManagementEditModeFieldsContainer {
public:
    const char* UI_GetClassName() const override { return "MetadataTemplateEditModeFieldsContainer"; }

    // Rows without a key are left out without a word; a bad or repeated key is said in a stop box
    // and answers false. Keys are checked trimmed but saved as typed.
    bool CollectFields(QL::PresetFieldList& fields) override;
    PresetManagementEditModeFieldRef CreateFieldRow(const PresetFieldRef& field) override;
};

} // namespace IGD
