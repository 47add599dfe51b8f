#pragma once
#include "Fnd/WString.h"

namespace QL {

// Extensions (with their leading dot, ".igdrename" and ".igdmetadata") and localised
// descriptions of preset files, for the open dialog of Install Preset. Each category has its own
// extension so that a file is not offered to the wrong list.
Fnd::WString GetRenamePresetFileExtension();
Fnd::WString GetRenamePresetTypeString();
Fnd::WString GetMetadataPresetFileExtension();
Fnd::WString GetMetadataPresetTypeString();

} // namespace QL
