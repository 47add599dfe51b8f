#pragma once
// Answers every question of the system with real Qt dialogs: message boxes, the existing-path
// question, the folder chooser, and modal runs of toolkit windows.
#include "Fnd/InteractionDriver.h"
#include "IgdQt/PictureSource.h"

class QWidget;

namespace igd::qt {

class QtInteractionDriver : public Fnd::IInteractionDriver {
public:
    explicit QtInteractionDriver(PictureSource pictures = {}) : pictures_(pictures) {}

    int AskMessageBox(const Fnd::MessageBoxRequest& request) override;
    Fnd::ExistingPathAnswer AskExistingPath(const Fnd::ExistingPathQuestion& question) override;
    void RunModal(Fnd::IModalSession& session) override;
    bool AskFolder(const Fnd::FolderQuestion& question, Fnd::WString& chosen) override;

    // The window a dialog opens over: the one in front, if any.
    static QWidget* DialogParent();

private:
    PictureSource pictures_;
};

} // namespace igd::qt
