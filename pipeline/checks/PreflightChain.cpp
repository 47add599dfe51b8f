#include "pipeline/checks/PreflightChain.h"

#include <vector>

#include "Fnd/NullInterfaceException.h"
#include "pipeline/checks/ConcatenateChecks.h"
#include "pipeline/checks/DestinationChecks.h"
#include "pipeline/checks/DiskSpaceCheck.h"
#include "host/HostKind.h"
#include "pipeline/checks/ImportItemsCheck.h"
#include "pipeline/gathering/NormalizedRoot.h"
#include "pipeline/checks/SourceCheck.h"
#include "pipeline/checks/SubFolderNameCheck.h"
#include "pipeline/checks/TransferConflictCheck.h"

namespace IGD {
namespace {

struct PreflightPaths {
    std::vector<Fnd::WString> sourcePaths;
    std::vector<Fnd::WString> basePaths;
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
        if (!destination->GetTranscodeSetting())
            throw Fnd::NullInterfaceException("RunPreflightChain: a destination without a transcode setting");
    }
    return paths;
}

// Taken after the sub-folder names are trimmed: "day1" and "day1 " end up as one folder.
std::vector<Fnd::WString> CopyTargets(const DestinationList& destinations) {
    std::vector<Fnd::WString> targets;
    for (const IngestDestinationRef& destination : destinations)
        // Transcoding destinations write new files under new names, so two of them may share a folder.
        if (!destination->GetTranscodeSetting()->enabled)
            targets.push_back(destination->GetFullDestinationPath());
    return targets;
}

} // namespace

bool RunPreflightChain(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                       const DestinationList& destinations) {
    const PreflightPaths paths = GatherPreflightPaths(sourceRoot, items, destinations);
    if (!CheckSourcesExist(paths.sourcePaths))
        return false;
    if (!CheckSubFolderNames(destinations))
        return false;
    if (!CheckDestinationsExist(paths.basePaths))
        return false;
    if (!CheckDestinationsWritable(paths.basePaths))
        return false;
    // On a server project the transfer goes to the server, so local folders cannot clash there.
    if (!IsVaultMode() && !CheckNoDuplicateTargets(CopyTargets(destinations)))
        return false;
    if (!CheckTransferConflicts(sourceRoot, items, destinations))
        return false;
    if (!CheckDiskSpace(paths.sourcePaths, paths.basePaths))
        return false;
    if (!CheckImportItems(sourceRoot, items))
        return false;
    if (!CheckConcatenateNames(destinations))
        return false;
    return !AnyDestinationConcatenates(destinations) || CheckConcatenateSelection(paths.sourcePaths);
}

} // namespace IGD
