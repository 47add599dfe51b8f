#pragma once
// The start number of the custom counter as the user types it into its number edit.
#include <cstdint>

#include "Fnd/WString.h"

namespace IGD {

// The number the edit's value stands for under the field's mask: the value as text, filled in
// front from the mask as the names will be, read back as an unsigned 32-bit number. Text that
// does not read back (a number above 4294967295, a mask of letters) gives 0, which the settings
// keep as 1.
std::uint32_t StartNumberFromEdit(double value, Fnd::WStringView mask);

} // namespace IGD
