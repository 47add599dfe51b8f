#pragma once
#include <istream>
#include <optional>
#include <ostream>

#include "Fnd/InteractionDriver.h"
#include "TerminalPanelForm.h"

namespace igd {

// Answers the library's questions on the terminal. An existing target is settled by the policy
// given on the command line; without one, the user is asked when there is a terminal to ask on,
// and otherwise the request is cancelled, so nothing is overwritten unasked. A panel run modally is
// worked on the terminal from the values given (TerminalPanelForm.h).
class TerminalInteractionDriver : public Fnd::IInteractionDriver {
public:
    TerminalInteractionDriver(std::istream& in, std::ostream& out, bool interactive,
                              std::optional<int> conflictAction, PanelValues panelValues = {})
        : in_(in), out_(out), interactive_(interactive), conflictAction_(conflictAction),
          panelValues_(std::move(panelValues)) {}

    int AskMessageBox(const Fnd::MessageBoxRequest& request) override;
    Fnd::ExistingPathAnswer AskExistingPath(const Fnd::ExistingPathQuestion& question) override;
    // The first turn works the whole form; later turns let the panel's answer through the run loop.
    void BeginModal(Fnd::IModalSession& session) override { unworked_ = &session; }
    void ModalDuring(Fnd::IModalSession& session) override;

private:
    std::istream& in_;
    std::ostream& out_;
    bool interactive_;
    std::optional<int> conflictAction_;
    PanelValues panelValues_;
    Fnd::IModalSession* unworked_ = nullptr;
};

} // namespace igd
