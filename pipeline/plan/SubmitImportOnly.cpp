#include "pipeline/plan/SubmitImportOnly.h"

#include "HostApp/ApplicationType.h"
#include "IGD/SelectedClipItem.h"
#include "QL/TaskFactory.h"
#include "pipeline/plan/ImportItems.h"

namespace IGD {
namespace {

// The host kind whose project takes no items from a metadata update.
constexpr int kHostWithoutProjectImport = 8;

} // namespace

void SubmitImportForItems(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                          const SelectedItemList& items, const QL::IngestCustomData& customData) {
    QL::IngestTask::ImportSetting setting;
    const NormalizedRoot root(sourceRoot);
    for (const SelectedItemRef& item : items)
        BuildImportItems(root, *item, root, setting.importItems, false);
    QL::IngestTask::TaskFactory::SubmitImportTask(setting, batch, customData);
}

void SubmitUpdateMetadataForItems(const fluxcore::utility::Guid& batch, const Fnd::WString& sourceRoot,
                                  const SelectedItemList& items, const QL::IngestCustomData& customData) {
    if (items.empty())
        return;
    QL::IngestTask::UpdateMetadataSetting setting;
    const NormalizedRoot root(sourceRoot);
    // Names go to the project items under the source paths; the media on disk keep theirs.
    for (const SelectedItemRef& item : items) {
        if (dynamic_cast<const SelectedClipItem*>(item.get()) != nullptr && item->HasOutputName())
            setting.renames[root.ItemPath(*item)] = item->GetOutputName();
    }
    for (const SelectedItemRef& item : items)
        BuildImportItems(root, *item, root, setting.importItems, false);
    setting.addToProject = HostApp::GetApplicationType() != kHostWithoutProjectImport;
    QL::IngestTask::TaskFactory::SubmitUpdateMetadataTask(setting, batch, customData);
}

} // namespace IGD
