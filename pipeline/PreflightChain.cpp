#include "pipeline/PreflightChain.h"

#include <vector>

#include "Fnd/NullInterfaceException.h"
#include "pipeline/DestinationChecks.h"
#include "pipeline/HostKind.h"
#include "pipeline/NormalizedRoot.h"
#include "pipeline/SourceCheck.h"

namespace IGD {
namespace {

struct PreflightPaths {
    std::vector<Fnd::WString> sourcePaths;
    std::vector<Fnd::WString> basePaths;
    std::vector<Fnd::WString> copyTargets;
};

PreflightPaths GatherPreflightPaths(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                                    const DestinationList& destinations) {
    PreflightPaths paths;
    const NormalizedRoot root(sourceRoot);
    paths.sourcePaths.reserve(items.size());
    for (const SelectedItemRef& item : items)
        paths.sourcePaths.push_back(root.ItemPath(*item));
    paths.basePaths.reserve(destinations.size());
    for (const IngestDestinationRef& destination : destinations) {
        paths.basePaths.push_back(destination->GetDestinationPath());
        const auto setting = destination->GetTranscodeSetting();
        if (!setting)
            throw Fnd::NullInterfaceException("RunPreflightChain: a destination without a transcode setting");
        // Transcoding destinations write new files under new names, so two of them may share a folder.
        if (!setting->enabled)
            paths.copyTargets.push_back(destination->GetFullDestinationPath());
    }
    return paths;
}

} // namespace

bool RunPreflightChain(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                       const DestinationList& destinations) {
    const PreflightPaths paths = GatherPreflightPaths(sourceRoot, items, destinations);
    if (!CheckSourcesExist(paths.sourcePaths))
        return false;
    // The sub-folder name check goes here.
    if (!CheckDestinationsExist(paths.basePaths))
        return false;
    if (!CheckDestinationsWritable(paths.basePaths))
        return false;
    // On a server project the transfer goes to the server, so local folders cannot clash there.
    if (!IsVaultMode() && !CheckNoDuplicateTargets(paths.copyTargets))
        return false;
    // The checks of transfer conflicts, disk space, importable items, stitch names and the stitch
    // selection follow here, in that order.
    return true;
}

} // namespace IGD
