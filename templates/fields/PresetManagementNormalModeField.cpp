#include "templates/fields/PresetManagementNormalModeField.h"

#include "shell/AutoHintTextEdit.h"
#include "templates/section/PresetManagementSection.h"

namespace IGD {

PresetManagementNormalModeField::PresetManagementNormalModeField(std::string layoutName, PresetFieldRef field)
    : SectionViewEx(Fnd::WString(), std::move(layoutName)), field_(std::move(field)) {}

fluxui::ui::UI_NodeRef PresetManagementNormalModeField::CreateCustomControl(const Fnd::WString& className) {
    if (className == u"AutoHintTextEdit")
        return fluxui::ui::UI_NodeRef(new AutoHintTextEdit);
    return {};
}

PresetManagementSection* PresetManagementNormalModeField::OwnerSection() const {
    for (SectionViewEx* section = GetParentSection(); section; section = section->GetParentSection())
        if (auto* owner = dynamic_cast<PresetManagementSection*>(section))
            return owner;
    return nullptr;
}

} // namespace IGD
