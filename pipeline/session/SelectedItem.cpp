#include "IGD/SelectedItem.h"

#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"

namespace IGD {

Fnd::WString SelectedItem::GetFullItemPath(const Fnd::WString& root) const {
    return Fnd::PathUtils::CombinePaths(Mid::Utilities::NormalizePathWithoutUNC(root), itemPath_);
}

void SelectedItem::GetFullExtraPaths(const Fnd::WString& root, std::vector<Fnd::WString>& out) const {
    const Fnd::WString normalizedRoot = Mid::Utilities::NormalizePathWithoutUNC(root);
    out.reserve(out.size() + extraPaths_.size());
    for (const Fnd::WString& extra : extraPaths_)
        out.push_back(Fnd::PathUtils::CombinePaths(normalizedRoot, extra));
}

} // namespace IGD
