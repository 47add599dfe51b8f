#pragma once
#include "Fnd/WString.h"
#include "IGD/SelectedItem.h"
#include "QL/IngestItem.h"
#include "pipeline/gathering/NormalizedRoot.h"

namespace IGD {

// Adds what shall land in the project for one item whose files end up below targetRoot. A clip
// whose source is gone is left out after one box; a folder contributes each file of its content.
// useRename puts a renamed single file under its new name.
void BuildImportItems(const Fnd::WString& sourceRoot, const SelectedItem& item,
                      const Fnd::WString& targetRoot, QL::IngestItemMap& importItems, bool useRename);
// The same, with both roots normalised once by a caller that loops over many items.
void BuildImportItems(const NormalizedRoot& sourceRoot, const SelectedItem& item,
                      const NormalizedRoot& targetRoot, QL::IngestItemMap& importItems, bool useRename);

} // namespace IGD
