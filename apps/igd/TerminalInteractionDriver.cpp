#include "TerminalInteractionDriver.h"

#include <string>

#include "Fnd/RunLoop.h"
#include "QL/CopySetting.h"
#include "fluxui/ui/OS_Dialog.h"

namespace igd {

int TerminalInteractionDriver::AskMessageBox(const Fnd::MessageBoxRequest& request) {
    out_ << Fnd::ToValidUTF8(request.title) << ": " << Fnd::ToValidUTF8(request.text) << "\n";
    if (!interactive_ || request.buttons.size() < 2)
        return request.defaultButton;
    for (std::size_t i = 0; i < request.buttons.size(); ++i)
        out_ << "  " << (i + 1) << ") " << Fnd::ToValidUTF8(request.buttons[i])
             << (static_cast<int>(i) == request.defaultButton ? " (default)" : "") << "\n";
    out_ << "> " << std::flush;
    std::string line;
    if (!std::getline(in_, line))
        return request.defaultButton;
    try {
        const int choice = std::stoi(line) - 1;
        if (choice >= 0 && choice < static_cast<int>(request.buttons.size()))
            return choice;
    } catch (const std::exception&) {
    }
    return request.defaultButton;
}

Fnd::ExistingPathAnswer
TerminalInteractionDriver::AskExistingPath(const Fnd::ExistingPathQuestion& question) {
    Fnd::ExistingPathAnswer answer;
    if (conflictAction_) {
        answer.proceed = *conflictAction_ != 0;
        answer.action = *conflictAction_;
        answer.applyToAll = true;
        return answer;
    }
    out_ << Fnd::ToDisplayUTF8(question.target)
         << (question.onlyInCopyList ? " will be written by a waiting ingest.\n" : " exists already.\n");
    if (!interactive_) {
        out_ << "Cancelled: say what to do with --on-conflict.\n";
        return answer;
    }
    out_ << "  s) skip   k) keep both   r) replace   c) cancel   (capital letter: the same for all)\n> "
         << std::flush;
    std::string line;
    if (!std::getline(in_, line) || line.empty())
        return answer;
    const char key = line[0];
    answer.applyToAll = key >= 'A' && key <= 'Z';
    switch (key | 0x20) {
    case 's':
        answer.action = QL::kCopyActionSkip;
        break;
    case 'k':
        answer.action = QL::kCopyActionKeepBoth;
        break;
    case 'r':
        answer.action = QL::kCopyActionReplace;
        break;
    default:
        return Fnd::ExistingPathAnswer{};
    }
    answer.proceed = true;
    return answer;
}

void TerminalInteractionDriver::ModalDuring(Fnd::IModalSession& session) {
    Fnd::GetDefaultQueue().Drain();
    if (session.IsCloseRequested())
        return;
    auto* window =
        dynamic_cast<fluxui::ui::OS_Dialog*>(fluxui::ui::OS_Window::UI_GetWindow(session.ModalPlatformWindow()));
    if (!window || unworked_ != &session) {
        // Nothing the terminal can show, or a form already worked that did not end: closed as the
        // person would close it.
        session.CloseByUser();
        return;
    }
    unworked_ = nullptr;
    WorkPanelOnTerminal(*window, panelValues_, in_, out_, interactive_);
    Fnd::GetDefaultQueue().Drain();
}

} // namespace igd
