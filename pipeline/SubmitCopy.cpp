#include "pipeline/SubmitCopy.h"

#include <utility>
#include <vector>

#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "QL/CopySetting.h"
#include "QL/TaskFactory.h"
#include "QL/Utilities.h"
#include "pipeline/DestinationCustomData.h"
#include "pipeline/FileNameCallbacks.h"
#include "pipeline/HostKind.h"
#include "pipeline/ImportItems.h"
#include "pipeline/ItemFormats.h"
#include "pipeline/NormalizedRoot.h"
#include "pipeline/PathParts.h"
#include "pipeline/RenameTargets.h"
#include "pipeline/TargetMaps.h"

namespace IGD {
namespace {

// A path without a decision has nothing in its way.
std::int32_t ActionFor(const CopyActionMap& decisions, const Fnd::WString& relativePath) {
    const auto found = decisions.find(relativePath);
    return found == decisions.end() ? QL::kCopyActionNone : found->second;
}

bool IsSingleFileClip(const SelectedItem& item) {
    const auto* clip = dynamic_cast<const SelectedClipItem*>(&item);
    return clip != nullptr && clip->IsSingleFileType();
}

struct CopyUnitContext {
    const NormalizedRoot& sourceRoot;
    const NormalizedRoot& targetFolder;
    const CopyActionMap& decisions;
    const IngestCopyOutputFileNameFunction& outputFileName;
};

QL::IngestTask::CopyUnitRef BuildCopyUnit(const CopyUnitContext& context, const SelectedItem& item,
                                          bool useRename) {
    QL::IngestTask::CopyUnitRef unit(new QL::IngestTask::CopyUnit);
    BuildImportItems(context.sourceRoot, item, context.targetFolder, unit->importItems, useRename);

    QL::CopyEntry entry;
    entry.source = context.sourceRoot.ItemPath(item);
    entry.target = useRename ? context.targetFolder.TargetPath(item) : context.targetFolder.ItemPath(item);
    entry.action = ActionFor(context.decisions, item.GetItemPath());
    unit->entries.push_back(entry);
    if (context.outputFileName)
        context.outputFileName(entry.target);
    // Set only now: the first entry keeps false, and a service must not read the flag there.
    entry.isFolder = dynamic_cast<const SelectedFolderItem*>(&item) != nullptr;

    const std::vector<Fnd::WString>& extras = item.ExtraPaths();
    // Only a renamed single file takes its sidecar along to the new name; every other extra file
    // keeps the name it has.
    const bool renameSidecar = useRename && IsSingleFileClip(item) && item.HasOutputName();
    Fnd::WString sidecar;
    Fnd::WString oldStem;
    if (renameSidecar && !extras.empty()) {
        sidecar = FindSidecarPath(extras);
        oldStem = StemOf(item.GetItemPath());
    }
    const Fnd::WString mainTarget = std::move(entry.target);
    for (const Fnd::WString& extra : extras) {
        entry.source = context.sourceRoot.Join(extra);
        if (renameSidecar && !sidecar.empty() && extra == sidecar)
            entry.target = QL::Utilities::RenameSideCarFile(mainTarget, oldStem, item.GetOutputName(), extra);
        else
            entry.target = context.targetFolder.Join(extra);
        entry.action = ActionFor(context.decisions, extra);
        unit->entries.push_back(entry);
    }

    if (useRename)
        BuildRenameMap(item, context.targetFolder, unit->renames);
    BuildClipGuidMap(item, context.targetFolder, unit->clipGuids);
    return unit;
}

} // namespace

void SubmitCopyForDestination(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                              const SelectedItemList& items, const QL::IngestCustomData& customData,
                              const IngestDestination& destination, std::uint32_t verifyMode,
                              const CopyActionMap& decisions) {
    QL::IngestTask::CopySetting setting;
    setting.verifyMode = verifyMode;
    setting.addToProject = destination.IsPrimary();

    const NormalizedRoot source(sourceRoot);
    const NormalizedRoot targetFolder(destination.GetFullDestinationPath());
    const bool renameAll = destination.IsApplyRename() && AnyItemHasOutputName(items);
    const bool hosted = IsKilnHosted();
    // A copy, so that a host replacing its function from inside a call cannot pull it away.
    const IngestCopyOutputFileNameFunction outputFileName = GetIngestCopyOutputFileNameCallback();
    const CopyUnitContext context{source, targetFolder, decisions, outputFileName};

    for (const SelectedItemRef& item : items) {
        // A hosted application renames only what came from a plain folder.
        const bool useRename = renameAll && (!hosted || item->GetItemFormat() == kPlainDirectoryItemFormat);
        setting.units.push_back(BuildCopyUnit(context, *item, useRename));
    }

    QL::IngestTask::TaskFactory::SubmitCopyTask(setting, batch,
                                                CustomDataForDestination(customData, destination));
}

} // namespace IGD
