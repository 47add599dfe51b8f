#pragma once
#include "fluxui/ui/OS_Window.h"

namespace fluxworkspace::workspace {

// The host's workspace: its main window and the drawing resources of that window.
class Workspace {
public:
    explicit Workspace(fluxui::ui::OS_Window* mainWindow) : mainWindow_(mainWindow) {}
    virtual ~Workspace() = default;

    fluxui::ui::OS_Window* GetMainTopLevelWindow() const { return mainWindow_; }
    virtual fluxui::sketcher::SupplierInterface* GetDrawSupplier() const {
        return mainWindow_ ? mainWindow_->UI_GetDrawSupplier() : nullptr;
    }

private:
    fluxui::ui::OS_Window* mainWindow_;
};

} // namespace fluxworkspace::workspace
