#pragma once
// Where an item lands after a rename, and which of its files follow the new name.
#include <vector>

#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"
#include "IGD/SelectedItem.h"

namespace IGD {

// The item's path below root. Only a single-file clip with an outputName takes the new name (and
// keeps its extension); a folder-based clip keeps its file names on disk whatever it is called.
Fnd::WString ResolveTargetPath(const SelectedItem& item, const Fnd::WString& root);

bool AnyItemHasOutputName(const SelectedItemList& items);

// The first path with the extension ".xmp" in any case of A to Z; empty when there is none.
Fnd::WString FindSidecarPath(const std::vector<Fnd::WString>& paths);

} // namespace IGD
