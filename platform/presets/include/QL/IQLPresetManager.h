#pragma once
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "QL/IQLPreset.h"
#include "QL/QLPresetConstants.h"

namespace QL {

using PresetList = std::vector<Fnd::InterfaceRef<IQLPreset>>;

// The presets of one category: lists them, creates, saves, installs and deletes them. Every
// manager of a category shows the same preset objects, so a value typed into a field through
// one manager's preset is seen through any other.
class IQLPresetManager : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();

    virtual _QLPresetCategory GetCategory() const = 0;
    // A new empty preset of this category, without a file and in no list.
    virtual Fnd::InterfaceRef<IQLPreset> CreatePreset() = 0;
    // The presets the user saved or installed, sorted by name ignoring case. The folder is read
    // again on every call; files that cannot be read are left out and reported (see
    // PresetLoadWarnings.h of the file-backed service).
    virtual PresetList GetUserPresets(bool reserved) = 0;
    // The presets the application ships; read-only.
    virtual PresetList GetSystemPresets() = 0;
    // Writes the preset's file under `name` and gives the preset that name and path. With
    // overwrite false a user preset file of that name must not exist (kPresetNameExists, the
    // existing file untouched); with overwrite true the preset's own file is rewritten, and a
    // renamed preset still never replaces another preset's file. `description` and `fileName`
    // are reserved: the dialog passes an empty text and the name again.
    virtual QLPresetStatus SavePreset(const Fnd::InterfaceRef<IQLPreset>& preset, const Fnd::WString& name,
                                      const Fnd::WString& description, bool overwrite,
                                      const Fnd::WString& fileName) = 0;
    // Takes a copy of a preset file of this category into the user folder and answers the user
    // preset that now stands for it; null when the file cannot be read or is of the other
    // category. A file identical in content to a user preset of the same name answers that
    // preset; a different preset of the same name is kept under "Name (2)", "Name (3)", ...
    virtual Fnd::InterfaceRef<IQLPreset> InstallPreset(const Fnd::WString& path) = 0;
    // Removes a user preset and its file.
    virtual QLPresetStatus DeletePreset(const Fnd::InterfaceRef<IQLPreset>& preset) = 0;
};

// A manager of the category from the preset service the host installed (PresetService.h);
// null when no service is installed, which the dialog treats as having no presets to save to.
Fnd::InterfaceRef<IQLPresetManager> InstantiateQLPresetManager(_QLPresetCategory category);

} // namespace QL
