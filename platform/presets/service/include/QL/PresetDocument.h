#pragma once
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "QL/IQLPreset.h"
#include "QL/IQLPresetField.h"
#include "QL/QLPresetConstants.h"

namespace QL {

// What a preset file keeps of one field. The value is not kept: it starts as the format.
struct PresetFieldRecord {
    _QLPresetFieldType type = kQLFieldCustomText;
    Fnd::WString key;
    Fnd::WString format;
    bool required = false;

    bool operator==(const PresetFieldRecord&) const = default;
};

// What a preset file keeps: everything that makes two presets the same preset.
struct PresetDocument {
    _QLPresetCategory category = kQLPresetCategoryRename;
    Fnd::WString name;
    std::vector<PresetFieldRecord> fields;

    bool operator==(const PresetDocument&) const = default;
};

// The record of a preset as it would be saved under `name`.
PresetDocument MakePresetDocument(_QLPresetCategory category, const Fnd::WString& name,
                                  const PresetFieldList& fields);
// New field objects for the records, each with its value equal to its format.
PresetFieldList MakePresetFields(const std::vector<PresetFieldRecord>& records);

// True when the type may stand in a preset of that category: metadata fields in metadata
// presets only, every other type in rename presets only.
bool FieldTypeBelongsTo(_QLPresetFieldType type, _QLPresetCategory category);

} // namespace QL
