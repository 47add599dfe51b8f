#include "pipeline/gathering/NormalizedRoot.h"

#include "Fnd/PathUtils.h"
#include "IGD/SelectedClipItem.h"
#include "Mid/Utilities.h"

namespace IGD {

NormalizedRoot::NormalizedRoot(Fnd::WStringView root)
    : root_(Mid::Utilities::NormalizePathWithoutUNC(root)) {}

Fnd::WString NormalizedRoot::Join(Fnd::WStringView relative) const {
    return Fnd::PathUtils::CombinePaths(root_, relative);
}

Fnd::WString NormalizedRoot::TargetPath(const SelectedItem& item) const {
    Fnd::WString full = ItemPath(item);
    if (!item.HasOutputName())
        return full;
    // A folder-based clip is never renamed on disk, whatever it is called.
    const auto* clip = dynamic_cast<const SelectedClipItem*>(&item);
    if (clip == nullptr || !clip->IsSingleFileType())
        return full;
    Fnd::WString drive;
    Fnd::WString directory;
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(full, &drive, &directory, nullptr, &extension);
    return Fnd::PathUtils::MakePath(drive, directory, item.GetOutputName(), extension);
}

} // namespace IGD
