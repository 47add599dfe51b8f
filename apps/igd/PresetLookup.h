#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "QL/IQLPresetManager.h"

namespace igd {

// The preset of the category with the name, as the dialog's popup would pick it: a user preset
// wins over a shipped one of the same name. Null when there is none.
IGD::PresetRef FindPreset(QL::_QLPresetCategory category, const Fnd::WString& name);

} // namespace igd
