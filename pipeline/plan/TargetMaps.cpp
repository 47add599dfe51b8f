#include "pipeline/plan/TargetMaps.h"

#include "IGD/SelectedClipItem.h"

namespace IGD {

void BuildRenameMap(const SelectedItem& item, const Fnd::WString& targetRoot,
                    std::map<Fnd::WString, Fnd::WString>& renames) {
    BuildRenameMap(item, NormalizedRoot(targetRoot), renames);
}

void BuildRenameMap(const SelectedItem& item, const NormalizedRoot& targetRoot,
                    std::map<Fnd::WString, Fnd::WString>& renames) {
    if (dynamic_cast<const SelectedClipItem*>(&item) != nullptr && item.HasOutputName())
        renames[targetRoot.TargetPath(item)] = item.GetOutputName();
}

void BuildClipGuidMap(const SelectedItem& item, const Fnd::WString& targetRoot,
                      std::map<Fnd::WString, fluxcore::utility::Guid>& clipGuids) {
    BuildClipGuidMap(item, NormalizedRoot(targetRoot), clipGuids);
}

void BuildClipGuidMap(const SelectedItem& item, const NormalizedRoot& targetRoot,
                      std::map<Fnd::WString, fluxcore::utility::Guid>& clipGuids) {
    clipGuids.clear();
    if (dynamic_cast<const SelectedClipItem*>(&item) != nullptr && !item.GetClipGuid().IsZero())
        clipGuids[targetRoot.TargetPath(item)] = item.GetClipGuid();
}

} // namespace IGD
