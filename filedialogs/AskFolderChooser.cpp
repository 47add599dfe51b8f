#include "Fnd/PathUtils.h"
#include "IGD/FileDialogs.h"
#include "fluxui/dialogs/OS_FolderChooserDialog.h"

namespace IGD {

bool AskFolderChooser(const Fnd::WString& title, Fnd::WString& path, const Fnd::WString&, const Fnd::WString&,
                      unsigned, std::uintptr_t parent) {
    // The toolkit's chooser is always modal over the window that has the person's attention, so
    // the parent handle has nothing more to tell it.
    fluxui::dialogs::OS_FolderChooserDialog chooser;
    chooser.SetWindowTitle(title);
    if (!path.empty())
        chooser.SetDefaultDirectory(path);
    if (!chooser.RunModal())
        return false;
    Fnd::WString chosen = chooser.GetDirectory();
    if (!chosen.empty())
        chosen = Fnd::PathUtils::ToNormalizedPath(chosen);
    path = chosen;
    return true;
}

} // namespace IGD
