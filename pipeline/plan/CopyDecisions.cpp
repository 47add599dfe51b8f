#include "pipeline/plan/CopyDecisions.h"

#include <vector>

#include "Fnd/PathUtils.h"
#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "QL/IngestUtils.h"
#include "QL/TaskFactory.h"
#include "pipeline/naming/FileNameCallbacks.h"
#include "host/HostKind.h"
#include "pipeline/session/ItemFormats.h"
#include "pipeline/gathering/NormalizedRoot.h"
#include "pipeline/plan/TargetsOfIngest.h"

namespace IGD {
namespace {

// DecidePathCopy with the source path made only when the user must be asked: nearly every target
// is free, and a large selection would otherwise build a source path per file for nothing.
// A target that an earlier file of the same ingest will write is met like one on the disk, except
// that replacing it would lose that file: both are kept. Folders meeting merge, as on the disk.
template <class SourcePath>
bool DecidePathCopyFrom(const SourcePath& sourcePath, const Fnd::WString& target, std::int32_t& action,
                        std::int32_t& applyToAll, TargetsOfIngest& targets, const void* owner) {
    const bool exists = Fnd::PathUtils::ExistsOnDisk(target, false);
    const bool claimed = targets.ClaimedByOther(target, owner);
    if (!exists && !claimed && !QL::IngestTask::TaskScheduler::IsPathInCopyList(target)) {
        action = QL::kCopyActionNone;
        targets.Claim(target, owner);
        return true;
    }
    if (claimed && !exists && Fnd::PathUtils::IsDirectory(sourcePath())) {
        action = QL::kCopyActionNone;
        return true;
    }
    if (applyToAll != 0) {
        action = applyToAll;
    } else {
        int choice = 0;
        int applyChoice = 0;
        if (!QL::IngestUtils::WarnUserForExistPath(sourcePath(), target, Fnd::PathUtils::IsDirectory(target),
                                                   choice, applyChoice, true, !exists, true))
            return false;
        action = choice;
        if (applyChoice == 1)
            applyToAll = choice;
    }
    if (claimed && action == QL::kCopyActionReplace)
        action = QL::kCopyActionKeepBoth;
    if (action != QL::kCopyActionSkip)
        targets.Claim(target, owner);
    return true;
}

constexpr std::int32_t kInheritNothing = 0;

// Items usually arrive in path order, so most answers belong at the end of the map: hinting
// there makes a large selection's bookkeeping linear instead of a tree search per path.
void SetAction(CopyActionMap& actions, const Fnd::WString& path, std::int32_t action) {
    if (actions.empty() || actions.rbegin()->first < path)
        actions.emplace_hint(actions.end(), path, action);
    else
        actions.insert_or_assign(path, action);
}

// What the item's extra paths take over from the answer for the item itself, kInheritNothing
// meaning each is decided on its own. A folder's "skip" covers its content; any other answer
// for a folder says nothing about the files in it. A clip's files go the way of the clip.
std::int32_t InheritedAction(const SelectedItem& item, std::int32_t itemAction) {
    if (dynamic_cast<const SelectedFolderItem*>(&item) != nullptr)
        return itemAction == QL::kCopyActionSkip ? QL::kCopyActionSkip : kInheritNothing;
    if (dynamic_cast<const SelectedClipItem*>(&item) != nullptr)
        return itemAction;
    return kInheritNothing;
}

bool AskForEachPath(const SelectedItem& item, const NormalizedRoot& sourceRoot,
                    const NormalizedRoot& targetFolder, const Fnd::WString& target, CopyActionMap& actions,
                    std::int32_t& applyToAll, TargetsOfIngest& targets) {
    std::int32_t action = QL::kCopyActionNone;
    if (!DecidePathCopyFrom([&] { return sourceRoot.ItemPath(item); }, target, action, applyToAll, targets,
                            &item))
        return false;
    SetAction(actions, item.GetItemPath(), action);

    const std::int32_t inherited = InheritedAction(item, action);
    for (const Fnd::WString& extra : item.ExtraPaths()) {
        if (inherited != kInheritNothing) {
            SetAction(actions, extra, inherited);
            continue;
        }
        std::int32_t extraAction = QL::kCopyActionNone;
        if (!DecidePathCopyFrom([&] { return sourceRoot.Join(extra); }, targetFolder.Join(extra), extraAction,
                                applyToAll, targets, &item))
            return false;
        SetAction(actions, extra, extraAction);
    }
    return true;
}

// A hosted application asks nobody: it keeps both files, under a name its host may choose.
void KeepBothUnasked(SelectedItem& item, IngestDestination& destination, const Fnd::WString& target,
                     CopyActionMap& actions, std::int32_t& applyToAll) {
    const GenerateAutomaticFileNameFunction& automaticName = GetGenerateAutomaticFileNameCallback();
    if (item.GetItemFormat() == kPlainDirectoryItemFormat && automaticName) {
        const std::vector<Fnd::WString> none;
        const Fnd::WString chosen = automaticName(target, Fnd::PathUtils::GetExtensionPart(target), none,
                                                  Fnd::PathUtils::DirectoryOf(target), {}, none);
        if (chosen != target) {
            item.SetOutputName(Fnd::PathUtils::StemOf(chosen));
            destination.SetApplyRename(true);
        }
    }
    applyToAll = QL::kCopyActionKeepBoth;
    SetAction(actions, item.GetItemPath(), QL::kCopyActionKeepBoth);
    for (const Fnd::WString& extra : item.ExtraPaths())
        SetAction(actions, extra, QL::kCopyActionKeepBoth);
}

// The roots and the host kind come from the caller, which knows them for all items at once.
bool DecideItemCopyAt(SelectedItem& item, const NormalizedRoot& sourceRoot, IngestDestination& destination,
                      const NormalizedRoot& targetFolder, bool hosted, CopyActionMap& actions,
                      std::int32_t& applyToAll, TargetsOfIngest& targets) {
    const Fnd::WString target = targetFolder.TargetPath(item);
    if (hosted) {
        KeepBothUnasked(item, destination, target, actions, applyToAll);
        return true;
    }
    return AskForEachPath(item, sourceRoot, targetFolder, target, actions, applyToAll, targets);
}

} // namespace

bool BuildCopyDecisions(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                        const DestinationList& destinations, CopyDecisionMap& decisions) {
    std::int32_t applyToAll = 0;
    TargetsOfIngest targets;
    const bool hosted = IsKilnHosted();
    const NormalizedRoot source(sourceRoot);
    for (const IngestDestinationRef& destination : destinations) {
        if (!destination->IsEnabled())
            continue;
        // A transcode writes new files and has nothing to ask; a hosted application never
        // transcodes, so its plan stops at such a destination for want of decisions.
        const auto setting = destination->GetTranscodeSetting();
        if (setting && (setting->enabled || hosted))
            continue;
        CopyActionMap& actions = decisions[destination];
        const NormalizedRoot targetFolder(destination->GetFullDestinationPath());
        for (const SelectedItemRef& item : items) {
            if (!DecideItemCopyAt(*item, source, *destination, targetFolder, hosted, actions, applyToAll, targets))
                return false;
        }
    }
    return true;
}

bool DecideItemCopy(SelectedItem& item, const Fnd::WString& sourceRoot, IngestDestination& destination,
                    CopyActionMap& actions, std::int32_t& applyToAll) {
    TargetsOfIngest targets;
    return DecideItemCopyAt(item, NormalizedRoot(sourceRoot), destination,
                            NormalizedRoot(destination.GetFullDestinationPath()), IsKilnHosted(), actions,
                            applyToAll, targets);
}

bool DecidePathCopy(const Fnd::WString& source, const Fnd::WString& target, std::int32_t& action,
                    std::int32_t& applyToAll) {
    TargetsOfIngest targets;
    return DecidePathCopyFrom([&source] { return source; }, target, action, applyToAll, targets, nullptr);
}

bool DecideSessionCopies(IIngestDialogData& session) {
    CopyDecisionMap decisions;
    if (!BuildCopyDecisions(session.GetSourceRoot(), session.GetSelectedItems(), session.GetDestinations(),
                            decisions))
        return false;
    session.SetCopyDecisions(decisions);
    return true;
}

} // namespace IGD
