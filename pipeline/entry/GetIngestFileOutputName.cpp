#include "Fnd/PathUtils.h"
#include "IGD/IngestApi.h"
#include "pipeline/gathering/PrepareSessionForFile.h"

namespace IGD {

Fnd::WString GetIngestFileOutputName(const Fnd::WString& path, IngestDialogDataRef session,
                                     const Fnd::Date date, bool forceNames) {
    // A session that already holds its items was prepared before: gathering again would add the
    // same clips a second time and move the root their paths start from.
    const bool gather = session->GetSelectedItems().empty();
    PrepareSessionForFile(path, *session, date, gather, forceNames);
    const SelectedItemList items = session->GetSelectedItems();
    if (items.empty())
        return Fnd::PathUtils::FileNameOf(path);
    const SelectedItem& first = *items.front();
    const Fnd::WString& itemPath = first.GetItemPath();
    if (!first.HasOutputName())
        return itemPath;
    Fnd::WString directory;
    Fnd::WString extension;
    Fnd::PathUtils::SplitPath(itemPath, nullptr, &directory, nullptr, &extension);
    return directory + first.GetOutputName() + extension;
}

} // namespace IGD
