#include "support/ScriptedInteractionDriver.h"

#include <gtest/gtest.h>

#include "Fnd/RunLoop.h"

namespace igd::test {

void ScriptedInteractionDriver::QueueExistingPathAnswer(int action, bool applyToAll) {
    existingPathAnswers_.push_back({true, action, applyToAll});
}

void ScriptedInteractionDriver::QueueExistingPathCancel() {
    existingPathAnswers_.push_back({false, 0, false});
}

int ScriptedInteractionDriver::AskMessageBox(const Fnd::MessageBoxRequest& request) {
    boxes_.push_back(request);
    if (boxAnswers_.empty()) {
        ADD_FAILURE() << "unscripted message box \"" << Fnd::ToUTF8(request.title)
                      << "\": " << Fnd::ToUTF8(request.text);
        return request.defaultButton;
    }
    const int answer = boxAnswers_.front();
    boxAnswers_.pop_front();
    if (answer < 0 || static_cast<std::size_t>(answer) >= request.buttons.size()) {
        ADD_FAILURE() << "scripted answer " << answer << " is not a button of the box \""
                      << Fnd::ToUTF8(request.title) << "\", which has " << request.buttons.size();
        return request.defaultButton;
    }
    return answer;
}

Fnd::ExistingPathAnswer
ScriptedInteractionDriver::AskExistingPath(const Fnd::ExistingPathQuestion& question) {
    existingPaths_.push_back(question);
    if (existingPathAnswers_.empty()) {
        ADD_FAILURE() << "unscripted existing-path question for " << Fnd::ToUTF8(question.target);
        return {};
    }
    const Fnd::ExistingPathAnswer answer = existingPathAnswers_.front();
    existingPathAnswers_.pop_front();
    return answer;
}

void ScriptedInteractionDriver::RunModal(Fnd::IModalSession& session) {
    if (modalWork_.empty()) {
        ADD_FAILURE() << "unscripted modal run of \"" << Fnd::ToUTF8(session.ModalTitle()) << "\"";
        session.CloseByUser();
        return;
    }
    const auto work = std::move(modalWork_.front());
    modalWork_.pop_front();
    work(session);
    if (!session.IsCloseRequested()) {
        ADD_FAILURE() << "the scripted work left \"" << Fnd::ToUTF8(session.ModalTitle()) << "\" open";
        session.CloseByUser();
    }
}

void ScriptedInteractionDriver::ModalDuring(Fnd::IModalSession& session) {
    Fnd::GetDefaultQueue().Drain();
    if (session.IsCloseRequested())
        return;
    if (modalTurns_.empty()) {
        ADD_FAILURE() << "unscripted modal turn of \"" << Fnd::ToUTF8(session.ModalTitle()) << "\"";
        session.CloseByUser();
        return;
    }
    const auto action = std::move(modalTurns_.front());
    modalTurns_.pop_front();
    action(session);
    Fnd::GetDefaultQueue().Drain();
}

bool ScriptedInteractionDriver::AskFolder(const Fnd::FolderQuestion& question, Fnd::WString& chosen) {
    folders_.push_back(question);
    if (folderAnswers_.empty()) {
        ADD_FAILURE() << "unscripted folder question \"" << Fnd::ToUTF8(question.title) << "\"";
        return false;
    }
    const auto answer = folderAnswers_.front();
    folderAnswers_.pop_front();
    if (answer.first)
        chosen = answer.second;
    return answer.first;
}

ScopedInteractionDriver::ScopedInteractionDriver() : driver_(std::make_shared<ScriptedInteractionDriver>()) {
    Fnd::SetInteractionDriver(driver_);
}

ScopedInteractionDriver::~ScopedInteractionDriver() {
    Fnd::SetInteractionDriver(nullptr);
    EXPECT_EQ(driver_->UnusedAnswers(), 0u) << "scripted answers were queued but never asked for";
}

} // namespace igd::test
