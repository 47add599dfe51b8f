#include "pipeline/plan/ImportItems.h"

#include <memory>
#include <utility>
#include <vector>

#include "Fnd/PathUtils.h"
#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "pipeline/checks/SourceCheck.h"

namespace IGD {
namespace {

void BuildFolderImportItems(const NormalizedRoot& sourceRoot, const SelectedFolderItem& folder,
                            const NormalizedRoot& targetRoot, QL::IngestItemMap& importItems) {
    for (const Fnd::WString& extra : folder.ExtraPaths()) {
        // Sub-folders travel with the copy but are nothing to import.
        if (Fnd::PathUtils::IsDirectory(sourceRoot.Join(extra)))
            continue;
        auto imported = std::make_shared<QL::IngestItem>();
        imported->path = targetRoot.Join(extra);
        imported->name = Fnd::PathUtils::FileNameOf(imported->path);
        imported->format = folder.GetItemFormat();
        const Fnd::WString& key = imported->path;
        importItems.insert_or_assign(key, std::move(imported));
    }
}

void BuildClipImportItem(const NormalizedRoot& sourceRoot, const SelectedClipItem& clip,
                         const NormalizedRoot& targetRoot, QL::IngestItemMap& importItems, bool useRename) {
    // The common case, a source that is there, needs no list: only a missing one is reported.
    Fnd::WString source = sourceRoot.ItemPath(clip);
    if (!Fnd::PathUtils::ExistsOnDisk(source, false) && !CheckSourcesExist({std::move(source)}))
        return;
    auto imported = std::make_shared<QL::IngestItem>();
    imported->path = useRename ? targetRoot.TargetPath(clip) : targetRoot.ItemPath(clip);
    // The project shows the new name even where the file keeps its old one.
    imported->name = clip.HasOutputName() ? clip.GetOutputName() : Fnd::PathUtils::FileNameOf(imported->path);
    imported->format = clip.GetItemFormat();
    imported->inPoint = clip.GetInPoint();
    imported->outPoint = clip.GetOutPoint();
    imported->frameRate = clip.GetFrameRate();
    imported->extraPaths.reserve(clip.ExtraPaths().size());
    for (const Fnd::WString& extra : clip.ExtraPaths())
        imported->extraPaths.push_back(targetRoot.Join(extra));
    const Fnd::WString& key = imported->path; // stays valid: the moved pointer keeps the item alive
    importItems.insert_or_assign(key, std::move(imported));
}

} // namespace

void BuildImportItems(const Fnd::WString& sourceRoot, const SelectedItem& item,
                      const Fnd::WString& targetRoot, QL::IngestItemMap& importItems, bool useRename) {
    BuildImportItems(NormalizedRoot(sourceRoot), item, NormalizedRoot(targetRoot), importItems, useRename);
}

void BuildImportItems(const NormalizedRoot& sourceRoot, const SelectedItem& item,
                      const NormalizedRoot& targetRoot, QL::IngestItemMap& importItems, bool useRename) {
    if (const auto* folder = dynamic_cast<const SelectedFolderItem*>(&item))
        BuildFolderImportItems(sourceRoot, *folder, targetRoot, importItems);
    else if (const auto* clip = dynamic_cast<const SelectedClipItem*>(&item))
        BuildClipImportItem(sourceRoot, *clip, targetRoot, importItems, useRename);
}

} // namespace IGD
