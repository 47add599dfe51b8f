#pragma once
#include <optional>
#include <string_view>

#include "QL/IQLPresetField.h"

namespace QL {

// The word a preset file uses for a field type ("ingestDate"), readable in a text editor and
// independent of the enumeration's numbers. Throws std::invalid_argument for a value outside it.
std::string_view PresetFieldTypeName(_QLPresetFieldType type);
std::optional<_QLPresetFieldType> PresetFieldTypeFromName(std::string_view name);

} // namespace QL
