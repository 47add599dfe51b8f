#include "templates/metadata/MetadataTemplateNormalModeFieldsContainer.h"

#include "templates/metadata/MetadataTemplateNormalModeField.h"

namespace IGD {

PresetManagementNormalModeFieldRef
MetadataTemplateNormalModeFieldsContainer::CreateFieldRow(const PresetFieldRef& field) {
    return new MetadataTemplateNormalModeField(field);
}

} // namespace IGD
