#pragma once
#include "Fnd/InteractionDriver.h"
#include "fluxui/ui/OS_Window.h"

namespace fluxui::ui {

// A window run modally. The run goes through the interaction driver, which presents the window
// and lets the person work until a close is requested.
class OS_Dialog : public OS_Window, public Fnd::IModalSession {
public:
    using OS_Window::OS_Window;
    const char* UI_GetClassName() const override { return "OS_Dialog"; }

    // Runs until closed and answers the response. A dialog runs one modal loop at a time.
    virtual int RunModal();
    // Asks the loop to end at its next turn.
    void PostClose();
    // The same run, turned by the caller: Begin, then During at each turn of the caller's loop until
    // a close is requested, then End. Begin throws when a run is going on.
    void BeginModal();
    void ModalDuring();
    void EndModal();
    bool IsRunningModal() const { return running_; }

    void SetMinimumSize(fluxcore::geom::PointI size);
    fluxcore::geom::PointI GetMinimumSize() const { return minimumSize_; }
    // Sizes the client area, never below the minimum size.
    void SetContentSize(fluxcore::geom::PointI size);

    // Fnd::IModalSession
    Fnd::WString ModalTitle() const override { return GetTitle(); }
    std::uintptr_t ModalPlatformWindow() const override { return GetPlatformWindow(); }
    bool IsCloseRequested() const override { return closeRequested_; }
    void CloseByUser() override;

protected:
    int response_ = 0;

private:
    bool running_ = false;
    bool closeRequested_ = false;
    fluxcore::geom::PointI minimumSize_;
};

} // namespace fluxui::ui
