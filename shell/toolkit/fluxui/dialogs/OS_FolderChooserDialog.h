#pragma once
#include "fluxui/dialogs/OS_NavigationDialog.h"

namespace fluxui::dialogs {

// The platform's folder chooser, asked through the interaction driver.
class OS_FolderChooserDialog : public OS_NavigationDialog {
public:
    // True when the person chose a folder.
    bool RunModal();
    // The chosen folder; empty until one was chosen.
    const Fnd::WString& GetDirectory() const { return directory_; }

private:
    Fnd::WString directory_;
};

} // namespace fluxui::dialogs
