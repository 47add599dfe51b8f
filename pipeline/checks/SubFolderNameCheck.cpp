#include "pipeline/checks/SubFolderNameCheck.h"

#include "fluxcore/FileUtils.h"
#include "fluxcore/ZString.h"
#include "fluxui/Messagebox.h"

namespace IGD {

bool CheckSubFolderNames(const DestinationList& destinations) {
    for (const IngestDestinationRef& destination : destinations) {
        const Fnd::WString& stored = destination->GetSubFolder();
        if (stored.empty())
            continue;
        const Fnd::WString trimmed = Fnd::Trim(stored, u" \t");
        Fnd::WString replaced = trimmed;
        if (trimmed.empty() ||
            fluxcore::utility::FileUtils::ReplaceIllegalFileNameCharacters(replaced, u'-')) {
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
