#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "QL/QLPresetConstants.h"

namespace IGD {

// The preset of the category whose file is at the path the settings stored: a user preset first,
// then one the application ships. Null for an empty path, a file no longer there, or a host
// without a preset service.
PresetRef FindPresetAtPath(QL::_QLPresetCategory category, const Fnd::WString& path);

} // namespace IGD
