#pragma once
#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Something must land in the project: a clip, or a file (not a folder) in a selected folder.
// Else one box says there is nothing to import, and the answer is false.
bool CheckImportItems(const Fnd::WString& sourceRoot, const SelectedItemList& items);

} // namespace IGD
