#pragma once
// The preset section's view of the preset service: the presets it lists and the one in use.
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "QL/IQLPresetManager.h"

namespace IGD {

class PresetStore {
public:
    // Makes the manager of the category and reads both lists as the service gives them.
    void Load(QL::_QLPresetCategory category);

    // Writes the fields under the name: a new user preset when isNew, else the current one. The
    // new or rewritten preset becomes current. A name that exists is said in a stop box; any
    // failure of an existing preset gives it its old fields back (not its old name).
    QL::QLPresetStatus SavePresetFields(const Fnd::WString& name, bool isNew, const QL::PresetFieldList& fields);
    // Deletes the current preset; on success it leaves the list and nothing is current.
    QL::QLPresetStatus DeleteCurrent();
    // Installs the file and makes its preset current; null, and nothing changed, when refused.
    PresetRef Install(const Fnd::WString& path);
    // Replaces a user preset of the same path (ignoring the case of A to Z), then sorts the list by
    // name, ignoring case.
    void InsertUserPreset(const PresetRef& preset);

    Fnd::InterfaceRef<QL::IQLPresetManager> manager;
    PresetRef current;
    // Never changed after loading, and never sorted here.
    QL::PresetList systemPresets;
    QL::PresetList userPresets;
    QL::_QLPresetCategory category = QL::kQLPresetCategoryRename;
};

} // namespace IGD
