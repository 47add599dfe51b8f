#include "pipeline/plan/SubmitCopy.h"

#include <iterator>
#include <utility>
#include <vector>

#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "QL/CopySetting.h"
#include "QL/TaskFactory.h"
#include "QL/Utilities.h"
#include "pipeline/plan/DestinationCustomData.h"
#include "pipeline/naming/FileNameCallbacks.h"
#include "host/HostKind.h"
#include "pipeline/plan/ImportItems.h"
#include "pipeline/session/ItemFormats.h"
#include "pipeline/gathering/NormalizedRoot.h"
#include "Fnd/PathUtils.h"
#include "pipeline/naming/RenameTargets.h"
#include "pipeline/plan/TargetMaps.h"

namespace IGD {
namespace {

// Looks up the decisions of each unit's paths. The plan walks the items in the order in which
// their decisions were made, which is usually the map's own order: following the map from the
// last hit keeps that walk linear and in cache, where a tree search per path would miss the cache
// at every level of a large selection. A path without a decision has nothing in its way.
class DecisionCursor {
public:
    explicit DecisionCursor(const CopyActionMap& decisions)
        : decisions_(decisions), next_(decisions.begin()) {}

    std::int32_t ActionFor(const Fnd::WString& relativePath) {
        if (next_ != decisions_.end() && next_->first == relativePath)
            return (next_++)->second;
        const auto found = decisions_.find(relativePath);
        if (found == decisions_.end())
            return QL::kCopyActionNone;
        next_ = std::next(found);
        return found->second;
    }

private:
    const CopyActionMap& decisions_;
    CopyActionMap::const_iterator next_;
};

bool IsSingleFileClip(const SelectedItem& item) {
    const auto* clip = dynamic_cast<const SelectedClipItem*>(&item);
    return clip != nullptr && clip->IsSingleFileType();
}

struct CopyUnitContext {
    const NormalizedRoot& sourceRoot;
    const NormalizedRoot& targetFolder;
    DecisionCursor& decisions;
    const IngestCopyOutputFileNameFunction& outputFileName;
};

QL::IngestTask::CopyUnitRef BuildCopyUnit(const CopyUnitContext& context, const SelectedItem& item,
                                          bool useRename) {
    QL::IngestTask::CopyUnitRef unit(new QL::IngestTask::CopyUnit);
    BuildImportItems(context.sourceRoot, item, context.targetFolder, unit->importItems, useRename);

    QL::CopyEntry& first = unit->entries.emplace_back();
    first.source = context.sourceRoot.ItemPath(item);
    first.target = useRename ? context.targetFolder.TargetPath(item) : context.targetFolder.ItemPath(item);
    first.action = context.decisions.ActionFor(item.GetItemPath());
    if (context.outputFileName)
        context.outputFileName(first.target);
    // The flag goes on the entries of the extra paths only; a service must not read it on the
    // first entry, which keeps false.
    const bool isFolder = dynamic_cast<const SelectedFolderItem*>(&item) != nullptr;

    const std::vector<Fnd::WString>& extras = item.ExtraPaths();
    // Only a renamed single file takes its sidecar along to the new name; every other extra file
    // keeps the name it has.
    const bool renameSidecar = useRename && IsSingleFileClip(item) && item.HasOutputName();
    Fnd::WString sidecar;
    Fnd::WString oldStem;
    if (renameSidecar && !extras.empty()) {
        sidecar = FindSidecarPath(extras);
        oldStem = Fnd::PathUtils::StemOf(item.GetItemPath());
    }
    const Fnd::WString& mainTarget = first.target; // list elements stay where they are
    for (const Fnd::WString& extra : extras) {
        QL::CopyEntry& entry = unit->entries.emplace_back();
        entry.source = context.sourceRoot.Join(extra);
        if (renameSidecar && !sidecar.empty() && extra == sidecar)
            entry.target = QL::Utilities::RenameSideCarFile(mainTarget, oldStem, item.GetOutputName(), extra);
        else
            entry.target = context.targetFolder.Join(extra);
        entry.action = context.decisions.ActionFor(extra);
        entry.isFolder = isFolder;
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
    DecisionCursor cursor(decisions);
    const CopyUnitContext context{source, targetFolder, cursor, outputFileName};

    for (const SelectedItemRef& item : items) {
        // A hosted application renames only what came from a plain folder.
        const bool useRename = renameAll && (!hosted || item->GetItemFormat() == kPlainDirectoryItemFormat);
        setting.units.push_back(BuildCopyUnit(context, *item, useRename));
    }

    QL::IngestTask::TaskFactory::SubmitCopyTask(setting, batch,
                                                CustomDataForDestination(customData, destination));
}

} // namespace IGD
