#include "templates/fields/PresetManagementNormalModeField.h"

#include "templates/fields/FieldRowControls.h"
#include "templates/section/OwningPresetSection.h"

namespace IGD {

PresetManagementNormalModeField::PresetManagementNormalModeField(std::string layoutName, PresetFieldRef field)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), field_(std::move(field)) {}

fluxui::ui::UI_NodeRef PresetManagementNormalModeField::CreateCustomControl(const Fnd::WString& className) {
    return CreateFieldRowControl(className);
}

PresetManagementSection* PresetManagementNormalModeField::OwnerSection() const {
    return OwningPresetSection(*this);
}

} // namespace IGD
