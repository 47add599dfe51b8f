#pragma once
#include <istream>
#include <optional>
#include <ostream>

#include "Fnd/InteractionDriver.h"

namespace igd {

// Answers the library's questions on the terminal. An existing target is settled by the policy
// given on the command line; without one, the user is asked when there is a terminal to ask on,
// and otherwise the request is cancelled, so nothing is overwritten unasked.
class TerminalInteractionDriver : public Fnd::IInteractionDriver {
public:
    TerminalInteractionDriver(std::istream& in, std::ostream& out, bool interactive,
                              std::optional<int> conflictAction)
        : in_(in), out_(out), interactive_(interactive), conflictAction_(conflictAction) {}

    int AskMessageBox(const Fnd::MessageBoxRequest& request) override;
    Fnd::ExistingPathAnswer AskExistingPath(const Fnd::ExistingPathQuestion& question) override;

private:
    std::istream& in_;
    std::ostream& out_;
    bool interactive_;
    std::optional<int> conflictAction_;
};

} // namespace igd
