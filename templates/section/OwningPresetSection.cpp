#include "templates/section/OwningPresetSection.h"

#include "templates/section/PresetManagementSection.h"

namespace IGD {

PresetManagementSection* OwningPresetSection(const wrangler::ui::SectionViewEx& section) {
    for (wrangler::ui::SectionViewEx* parent = section.GetParentSection(); parent; parent = parent->GetParentSection())
        if (auto* owner = dynamic_cast<PresetManagementSection*>(parent))
            return owner;
    return nullptr;
}

} // namespace IGD
