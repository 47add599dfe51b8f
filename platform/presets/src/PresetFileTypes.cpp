#include "QL/PresetFileTypes.h"

#include "fluxcore/ZString.h"

namespace QL {

Fnd::WString GetRenamePresetFileExtension() {
    return u".igdrename";
}

Fnd::WString GetRenamePresetTypeString() {
    return fluxcore::Localize("$$$/IGD/Presets/RenamePresetFileType=Rename Preset");
}

Fnd::WString GetMetadataPresetFileExtension() {
    return u".igdmetadata";
}

Fnd::WString GetMetadataPresetTypeString() {
    return fluxcore::Localize("$$$/IGD/Presets/MetadataPresetFileType=Metadata Preset");
}

} // namespace QL
