#include "pipeline/plan/SubmitTranscode.h"

#include <utility>

#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "QL/TaskFactory.h"
#include "fluxcore/FileUtils.h"
#include "pipeline/plan/DestinationCustomData.h"
#include "pipeline/gathering/NormalizedRoot.h"
#include "pipeline/naming/RenameTargets.h"

namespace IGD {
namespace {

using QL::IngestTask::TranscodeClipEntry;
using QL::IngestTask::TranscodeSetting;

// Folder content is transcoded under its own names, with no points.
TranscodeClipEntry PlainClip(Fnd::WString path) {
    TranscodeClipEntry clip;
    clip.path = std::move(path);
    return clip;
}

TranscodeClipEntry ClipEntry(const SelectedClipItem& item, Fnd::WString fullPath, bool useOutputName,
                             const Fnd::WString& name) {
    TranscodeClipEntry clip;
    clip.path = std::move(fullPath);
    clip.useOutputName = useOutputName;
    clip.name = name;
    clip.inPoint = item.GetInPoint();
    clip.outPoint = item.GetOutPoint();
    clip.frameRate = item.GetFrameRate();
    return clip;
}

// Fills the setting's clips for one item; an item of no known kind leaves them empty.
void FillTranscodeClips(TranscodeSetting& setting, const NormalizedRoot& sourceRoot, const SelectedItem& item,
                        bool useRename, bool primary) {
    setting.clips.clear();
    setting.addToProject = primary;
    if (dynamic_cast<const SelectedFolderItem*>(&item) != nullptr) {
        if (!item.HasExtraPaths()) {
            // An empty folder gives an output of its own that is no media of the project.
            setting.addToProject = false;
            setting.clips.push_back(PlainClip(sourceRoot.ItemPath(item)));
            return;
        }
        for (const Fnd::WString& extra : item.ExtraPaths())
            setting.clips.push_back(PlainClip(sourceRoot.Join(extra)));
        return;
    }
    if (const auto* clip = dynamic_cast<const SelectedClipItem*>(&item)) {
        Fnd::WString fullPath = sourceRoot.ItemPath(*clip);
        // The service reads each clip relative to its own folder; the last clip's folder stays
        // until another clip replaces it.
        setting.sourceRoot = fluxcore::utility::FileUtils::GetParentPath(fullPath);
        const bool renamed = useRename && clip->HasOutputName();
        setting.clips.push_back(ClipEntry(*clip, std::move(fullPath), useRename,
                                          renamed ? clip->GetOutputName() : clip->GetClipName()));
    }
}

} // namespace

void SubmitTranscodeForDestination(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                                   const SelectedItemList& items, const QL::IngestCustomData& customData,
                                   const IngestDestination& destination) {
    // The destination's own setting belongs to the settings model and stays as it is.
    TranscodeSetting setting = *destination.GetTranscodeSetting();
    setting.outputPath = destination.GetFullDestinationPath();
    setting.sourceRoot = sourceRoot;
    const bool useRename = destination.IsApplyRename() && AnyItemHasOutputName(items);
    const QL::IngestCustomData data = CustomDataForDestination(customData, destination);
    const NormalizedRoot root(sourceRoot);
    for (const SelectedItemRef& item : items) {
        FillTranscodeClips(setting, root, *item, useRename, destination.IsPrimary());
        QL::IngestTask::TaskFactory::SubmitTranscodeTask(setting, batch, data);
    }
}

void SubmitConcatenateForDestination(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                                     const SelectedItemList& items, const QL::IngestCustomData& customData,
                                     const IngestDestination& destination) {
    TranscodeSetting setting = *destination.GetTranscodeSetting();
    setting.outputPath = destination.GetFullDestinationPath();
    setting.clips.clear();
    setting.addToProject = destination.IsPrimary();
    const NormalizedRoot root(sourceRoot);
    if (!items.empty())
        setting.sourceRoot = fluxcore::utility::FileUtils::GetParentPath(root.ItemPath(*items.front()));
    const bool useOutputName = destination.IsApplyRename() && AnyItemHasOutputName(items);
    for (const SelectedItemRef& item : items) {
        const auto* clip = dynamic_cast<const SelectedClipItem*>(item.get());
        // A folder cannot be stitched; the checks before the plan refuse it in the dialog.
        if (clip == nullptr)
            return;
        setting.clips.push_back(ClipEntry(*clip, root.ItemPath(*clip), useOutputName, {}));
    }
    // Unlike copy and transcode, a stitch carries the metadata template's values to every
    // destination, applied or not.
    QL::IngestTask::TaskFactory::SubmitConcatenateTask(setting, batch, customData);
}

} // namespace IGD
