#pragma once
// Asking the person for files and folders. Each call is modal, on the UI thread. A parent is the
// native handle of a toolkit window (OS_Window::GetPlatformWindow), 0 for the application's main
// window. Arguments without a name are kept for the callers' sake and are not read.
#include <cstdint>
#include <vector>

#include "Fnd/WString.h"
#include "IGD/Export.h"

namespace IGD {

// path: where to start on the way in (a folder when it ends in "/", else a file whose folder is
// taken), the chosen file on the way out, normalised. filter: rows as WinCommonFileDialogWrapper::
// SetFileTypes takes them. Without a start, the dialog opens in the folder last used and remembers
// the folder of the file chosen. False, and path as it was, when nothing was chosen or no dialog
// could be made.
IGD_EXPORT bool AskOpenFile(const Fnd::WString& title, Fnd::WString& path, const Fnd::WString&,
                            const Fnd::WString& filter, unsigned, std::uintptr_t parent);
// The same with several files chosen at once.
IGD_EXPORT bool AskOpenFile(const Fnd::WString& title, std::vector<Fnd::WString>& paths, const Fnd::WString&,
                            const Fnd::WString& filter, unsigned, std::uintptr_t parent);

// path: the folder to start in (may be empty), the chosen folder on the way out, normalised.
// False, and path as it was, when cancelled.
IGD_EXPORT bool AskFolderChooser(const Fnd::WString& title, Fnd::WString& path, const Fnd::WString&,
                                 const Fnd::WString&, unsigned, std::uintptr_t parent);

// The destination folder the person chose, starting from initial; initial when cancelled.
// dialogWindow is the handle of the window that asks.
IGD_EXPORT Fnd::WString BrowseForDestination(const Fnd::WString& initial, std::uintptr_t dialogWindow);

} // namespace IGD
