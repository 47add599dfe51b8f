#pragma once
#include <memory>

#include "fluxui/ui/OS_Window.h"

namespace AppFrame {

// The host application object. A host without one (the command line, the embedding of a settings
// view in a foreign window) installs none, and Instance answers null.
class Application {
public:
    virtual ~Application() = default;
    static Application* Instance();
    // The host installs its application; null removes it.
    static void Install(std::shared_ptr<Application> application);

    // The window that native dialogs are parented to.
    virtual fluxui::ui::OS_Window* GetMainWindow() const = 0;
};

} // namespace AppFrame
