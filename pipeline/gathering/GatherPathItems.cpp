#include "pipeline/gathering/GatherPathItems.h"

#include "Browse/CardScanScope.h"
#include "Browse/FileListForCopy.h"
#include "Mid/Utilities.h"
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
    // A clip named by one of its other files (a later chapter, its index file) is still the clip:
    // the item is the media file the provider names it by.
    const Fnd::WString clipPath = Mid::Utilities::CombinePaths(root, name);
    // Paths gathered into one session share the root the first of them set, so that the items
    // gathered before stay where their paths say.
    const RootChoice rootChoice =
        session.GetSourceRoot().empty() ? RootChoice::FromProvider : RootChoice::KeepSession;
    AddBrowserItems(session, CheckedItems{{clipPath, name}}, ClipSettings{}, provider, Fnd::ToUTF8(root),
                    rootChoice);
}

} // namespace IGD
