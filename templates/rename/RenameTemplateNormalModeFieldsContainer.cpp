#include "templates/rename/RenameTemplateNormalModeFieldsContainer.h"

#include "templates/rename/RenameTemplateNormalModeField.h"

namespace IGD {

PresetManagementNormalModeFieldRef
RenameTemplateNormalModeFieldsContainer::CreateFieldRow(const PresetFieldRef& field) {
    return PresetManagementNormalModeFieldRef(new RenameTemplateNormalModeField(field));
}

} // namespace IGD
