#pragma once
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"
#include "QL/IQLPresetField.h"

namespace QL {

// A new field of that type with empty key, not required. A type with predefined values starts
// with the first of them as format and value, so that what the edit row shows is what is saved;
// any other type starts with an empty format and value.
Fnd::InterfaceRef<IQLPresetField> CreatePresetField(_QLPresetFieldType type);

// An independent copy of all five things: key, value, required flag, format and type.
Fnd::InterfaceRef<IQLPresetField> CreatePresetField(const Fnd::InterfaceRef<IQLPresetField>& field);

// The choices of a field type in popup order; empty for a type without a list. Types 0 and 8
// give padding masks of increasing width; 2 and 3 the same date patterns; 4 and 5 the same time
// patterns.
std::vector<Fnd::WString> GetPredefinedFieldValues(_QLPresetFieldType type);

} // namespace QL
