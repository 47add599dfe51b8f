#include "templates/rename/RenameTemplateEditModeFieldsContainer.h"

#include "templates/rename/RenameTemplateEditModeField.h"

namespace IGD {

PresetManagementEditModeFieldRef
RenameTemplateEditModeFieldsContainer::CreateFieldRow(const PresetFieldRef& field) {
    return PresetManagementEditModeFieldRef(new RenameTemplateEditModeField(field));
}

} // namespace IGD
