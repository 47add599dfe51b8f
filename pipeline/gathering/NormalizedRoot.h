#pragma once
#include "Fnd/WString.h"
#include "IGD/SelectedItem.h"

namespace IGD {

// A root normalised once, so that the paths of many items below it are plain joins. The paths it
// answers are exactly those of SelectedItem::GetFullItemPath and ResolveTargetPath for the same
// root, which normalise the root again on every call.
class NormalizedRoot {
public:
    explicit NormalizedRoot(Fnd::WStringView root);

    const Fnd::WString& Path() const { return root_; }
    Fnd::WString Join(Fnd::WStringView relative) const;
    // The item's own path below the root.
    Fnd::WString ItemPath(const SelectedItem& item) const { return Join(item.GetItemPath()); }
    // The item's path below the root after a rename: only a single-file clip takes its outputName.
    Fnd::WString TargetPath(const SelectedItem& item) const;

private:
    Fnd::WString root_;
};

} // namespace IGD
