#include "templates/metadata/MetadataTemplateEditModeFieldsContainer.h"

#include <algorithm>

#include "templates/metadata/MetadataTemplateEditModeField.h"
#include "templates/metadata/ValidateMetadataName.h"

namespace IGD {

bool MetadataTemplateEditModeFieldsContainer::CollectFields(QL::PresetFieldList& fields) {
    if (!PresetManagementEditModeFieldsContainer::CollectFields(fields))
        return false;
    std::erase_if(fields,
                  [](const PresetFieldRef& field) { return TrimMetadataKey(field->GetKey()).empty(); });
    return ShowMetadataNameProblem(CheckMetadataKeys(fields), this);
}

PresetManagementEditModeFieldRef
MetadataTemplateEditModeFieldsContainer::CreateFieldRow(const PresetFieldRef& field) {
    return new MetadataTemplateEditModeField(field);
}

} // namespace IGD
