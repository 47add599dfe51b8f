#include "fluxui/dialogs/OS_FolderChooserDialog.h"

#include "Fnd/InteractionDriver.h"

namespace fluxui::dialogs {

bool OS_FolderChooserDialog::RunModal() {
    Fnd::FolderQuestion question;
    question.title = GetWindowTitle();
    question.defaultDirectory = GetDefaultDirectory();
    Fnd::WString chosen;
    if (!Fnd::GetInteractionDriver().AskFolder(question, chosen) || chosen.empty())
        return false;
    directory_ = chosen;
    return true;
}

} // namespace fluxui::dialogs
