#include "pipeline/plan/SingleFileSidecars.h"

#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"

namespace IGD {
namespace {

void AddIfExists(SelectedItem& item, const Fnd::WString& root, Fnd::WString name) {
    if (Fnd::PathUtils::ExistsOnDisk(Mid::Utilities::CombinePaths(root, name), false))
        item.AddExtraPath(name);
}

} // namespace

void AddExistingSidecars(SelectedItem& item, const Fnd::WString& root, const Fnd::WString& stem,
                         const Fnd::WString& extension) {
    AddIfExists(item, root, stem + extension + u".xmp");
    AddIfExists(item, root, stem + u".xmp");
}

} // namespace IGD
