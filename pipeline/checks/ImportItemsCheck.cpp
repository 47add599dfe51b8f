#include "pipeline/checks/ImportItemsCheck.h"

#include "Fnd/PathUtils.h"
#include "IGD/SelectedFolderItem.h"
#include "fluxcore/ZString.h"
#include "pipeline/gathering/NormalizedRoot.h"
#include "fluxui/Messagebox.h"

namespace IGD {
namespace {

bool HoldsAFile(const NormalizedRoot& root, const SelectedItem& folder) {
    for (const Fnd::WString& extra : folder.ExtraPaths())
        if (!Fnd::PathUtils::IsDirectory(root.Join(extra)))
            return true;
    return false;
}

} // namespace

bool CheckImportItems(const Fnd::WString& sourceRoot, const SelectedItemList& items) {
    const NormalizedRoot root(sourceRoot);
    for (const SelectedItemRef& item : items) {
        if (dynamic_cast<const SelectedFolderItem*>(item.get()) == nullptr)
            return true;
        if (HoldsAFile(root, *item))
            return true;
    }
    AppFrame::MessageBoxW(
        fluxcore::Localize(
            "$$$/Quillon/Ingest/Failure/EmptyImportItemsMessage=There's no item can be import."),
        fluxcore::Localize("$$$/Quillon/Ingest/Failure/EmptyImportItemsTitle=Import Error"),
        AppFrame::kMessageBoxOK, 16, AppFrame::kResultOK);
    return false;
}

} // namespace IGD
