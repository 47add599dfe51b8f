#pragma once
#include "transfer/SectionViewEx.h"

namespace IGD {

class PresetManagementSection;

// The preset section a header, row or button section stands in, null while it stands alone.
PresetManagementSection* OwningPresetSection(const wrangler::ui::SectionViewEx& section);

} // namespace IGD
