#include "pipeline/naming/RenameTargets.h"

#include <algorithm>

#include "pipeline/gathering/NormalizedRoot.h"
#include "Fnd/PathUtils.h"

namespace IGD {

Fnd::WString ResolveTargetPath(const SelectedItem& item, const Fnd::WString& root) {
    return NormalizedRoot(root).TargetPath(item);
}

bool AnyItemHasOutputName(const SelectedItemList& items) {
    return std::any_of(items.begin(), items.end(),
                       [](const SelectedItemRef& item) { return item->HasOutputName(); });
}

Fnd::WString FindSidecarPath(const std::vector<Fnd::WString>& paths) {
    for (const Fnd::WString& path : paths) {
        if (Fnd::EqualsIgnoringASCIICase(Fnd::PathUtils::GetExtensionPart(path), u".xmp"))
            return path;
    }
    return {};
}

} // namespace IGD
