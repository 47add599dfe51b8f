#pragma once
#include <string>

#include "QL/PresetDocument.h"

namespace QL {

// Schema name and version written into every preset file; the reader upgrades anything older.
inline constexpr const char* kPresetSchemaName = "igd.preset";
inline constexpr int kPresetSchemaVersion = 1;

// False when a text holds a character that an XML file cannot carry (most control characters):
// such a preset cannot be saved as it is.
bool CanWritePresetDocument(const PresetDocument& document);

// The file's bytes, UTF-8 XML. A document that CanWritePresetDocument refuses is a programming
// fault and throws std::invalid_argument.
std::string SerializePresetDocument(const PresetDocument& document);

} // namespace QL
