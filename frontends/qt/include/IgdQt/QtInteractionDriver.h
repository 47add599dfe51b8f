#pragma once
// Answers every question of the system with real Qt dialogs: message boxes, the existing-path
// question, the folder chooser, and modal runs of toolkit windows.
#include <map>
#include <memory>

#include "Fnd/InteractionDriver.h"
#include "IgdQt/PictureSource.h"

class QWidget;

namespace igd::qt {

class ToolkitDialog;

class QtInteractionDriver : public Fnd::IInteractionDriver {
public:
    explicit QtInteractionDriver(PictureSource pictures = {});
    ~QtInteractionDriver() override;

    int AskMessageBox(const Fnd::MessageBoxRequest& request) override;
    Fnd::ExistingPathAnswer AskExistingPath(const Fnd::ExistingPathQuestion& question) override;
    void RunModal(Fnd::IModalSession& session) override;
    // A run the caller turns: Begin shows the window, each During lets Qt handle what is pending
    // without waiting, End hides it and keeps where the person left it.
    void BeginModal(Fnd::IModalSession& session) override;
    void ModalDuring(Fnd::IModalSession& session) override;
    void EndModal(Fnd::IModalSession& session) override;
    bool AskFolder(const Fnd::FolderQuestion& question, Fnd::WString& chosen) override;

    // The window a dialog opens over: the one in front, if any.
    static QWidget* DialogParent();

private:
    PictureSource pictures_;
    std::map<Fnd::IModalSession*, std::unique_ptr<ToolkitDialog>> turned_;
};

} // namespace igd::qt
