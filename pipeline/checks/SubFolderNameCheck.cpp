#include "pipeline/checks/SubFolderNameCheck.h"

#include "Fnd/PathUtils.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {

bool CheckSubFolderNames(const DestinationList& destinations) {
    for (const IngestDestinationRef& destination : destinations) {
        const Fnd::WString& stored = destination->GetSubFolder();
        if (stored.empty())
            continue;
        const Fnd::WString trimmed = Fnd::Trim(stored, u" \t");
        // "." and ".." would put everything into the destination itself or beside it, and a
        // separator would make a path of folders: none of them is one folder's name.
        if (!Fnd::PathUtils::IsValidFileName(trimmed)) {
            // The name as the user typed it, blanks and all, is the one they will recognise.
            fluxui::dialogs::messagebox::Messagebox(
                fluxcore::Localize(
                    "$$$/Quillon/Ingest/Failure/SubFolderIllegalNameTitle=Invalid Folder Name"),
                fluxcore::Localize(
                    "$$$/Quillon/Ingest/Failure/SubFolderIllegalNameSuggest=@0^nThe folder name "
                    "is not valid.",
                    {stored}));
            return false;
        }
        destination->SetSubFolder(trimmed);
    }
    return true;
}

} // namespace IGD
