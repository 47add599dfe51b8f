#pragma once
#include "Fnd/WString.h"
#include "IGD/SelectedItem.h"

namespace IGD {

// Adds, as extra paths relative to root, the sidecars of a file named stem + extension that exist
// beside it under root: first "<stem><extension>.xmp", then "<stem>.xmp".
void AddExistingSidecars(SelectedItem& item, const Fnd::WString& root, const Fnd::WString& stem,
                         const Fnd::WString& extension);

} // namespace IGD
