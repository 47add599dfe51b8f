#include "Fnd/PathUtils.h"
#include "IGD/FileDialogs.h"
#include "filedialogs/FileDialogTexts.h"
#include "fluxcore/ZString.h"

namespace IGD {

Fnd::WString BrowseForDestination(const Fnd::WString& initial, std::uintptr_t dialogWindow) {
    Fnd::WString path = initial;
    if (AskFolderChooser(fluxcore::Localize(FileDialogTexts::kFolderChooserCaption), path, Fnd::WString(),
                         Fnd::WString(), 0, dialogWindow) &&
        !path.empty() && Fnd::PathUtils::IsNormalizedPath(path))
        path = Fnd::PathUtils::Win::StripUNC(path);
    return path;
}

} // namespace IGD
