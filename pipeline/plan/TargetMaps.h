#pragma once
// What a copy unit records under each target path besides the copies themselves.
#include <map>

#include "Fnd/WString.h"
#include "IGD/SelectedItem.h"
#include "fluxcore/Guid.h"
#include "pipeline/gathering/NormalizedRoot.h"

namespace IGD {

// Records the new base name of a renamed clip under its target path.
void BuildRenameMap(const SelectedItem& item, const Fnd::WString& targetRoot,
                    std::map<Fnd::WString, Fnd::WString>& renames);
void BuildRenameMap(const SelectedItem& item, const NormalizedRoot& targetRoot,
                    std::map<Fnd::WString, Fnd::WString>& renames);

// Clears the map, then records the identity of a clip that has one under its target path.
void BuildClipGuidMap(const SelectedItem& item, const Fnd::WString& targetRoot,
                      std::map<Fnd::WString, fluxcore::utility::Guid>& clipGuids);
void BuildClipGuidMap(const SelectedItem& item, const NormalizedRoot& targetRoot,
                      std::map<Fnd::WString, fluxcore::utility::Guid>& clipGuids);

} // namespace IGD
