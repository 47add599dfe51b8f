#pragma once
#include <cstdint>

#include "Fnd/Date.h"
#include "Fnd/WString.h"
#include "QL/IQLPreset.h"

namespace IGD {

// What the rename section shows a template would give, before any file is chosen: custom text
// and masks as typed, dates and times of now, a placeholder for the file name, and the custom
// counter's start number. The plain counter shows only its mask.
Fnd::WString BuildRenameSampleText(const QL::PresetFieldList& fields, std::uint32_t startNumber,
                                   Fnd::Date now = Fnd::Date::Now());

} // namespace IGD
