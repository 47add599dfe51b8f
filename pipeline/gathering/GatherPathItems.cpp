#include "pipeline/gathering/GatherPathItems.h"

#include "Browse/CardScanScope.h"
#include "Browse/FileListForCopy.h"
#include "pipeline/gathering/AddBrowserItems.h"

namespace IGD {

void GatherPathItems(IIngestDialogData& session, const Fnd::WString& path) {
    const Browse::CardScanScope scans;
    const Browse::ProviderWrapper* provider = nullptr;
    Fnd::WString root;
    Fnd::WString name;
    Browse::FileListForCopy::GetProviderAndRootFromPath(path, provider, root, name);
    if (!provider || name.empty())
        return;
    AddBrowserItems(session, CheckedItems{{path, name}}, ClipSettings{}, provider, Fnd::ToUTF8(root));
}

} // namespace IGD
