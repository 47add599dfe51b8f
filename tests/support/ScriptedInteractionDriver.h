#pragma once
// An interaction driver for tests: it answers from a script and records every question.
//
//     igd::test::ScopedInteractionDriver ui;     // installed until the end of the scope
//     ui->QueueBoxAnswer(1);                     // the next message box: second button
//     ui->QueueExistingPathAnswer(QL::kCopyActionSkip, /*applyToAll=*/true);
//     RunSomethingThatAsks();
//     ASSERT_EQ(ui->Boxes().size(), 1u);
//     EXPECT_EQ(ui->Boxes()[0].title, u"Destination path does not exist");
//
// Box answers, existing-path answers and folder answers are separate queues, each used in
// order. A question with no answer queued is a test failure (ADD_FAILURE naming the question) and gets the
// safe answer: the box's default button, or cancel for an existing path. ScopedInteractionDriver also fails
// the test if answers are left over when it ends: the code did not ask what the test expected it to ask.
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "Fnd/InteractionDriver.h"

namespace igd::test {

class ScriptedInteractionDriver : public Fnd::IInteractionDriver {
public:
    // The index of the button the next message box answers with.
    void QueueBoxAnswer(int buttonIndex) { boxAnswers_.push_back(buttonIndex); }
    // The next existing-path question proceeds with this copy action.
    void QueueExistingPathAnswer(int action, bool applyToAll = false);
    // The next existing-path question is cancelled: the user gives up the request.
    void QueueExistingPathCancel();

    // The next folder question answers this folder, or is cancelled.
    void QueueFolderAnswer(Fnd::WString folder) { folderAnswers_.push_back({true, std::move(folder)}); }
    void QueueFolderCancel() { folderAnswers_.push_back({false, {}}); }
    // The next modal run is worked by this function, as the person would work the window (type,
    // press OK); the session is the toolkit dialog being run, to be cast to its class.
    void QueueModal(std::function<void(Fnd::IModalSession&)> work) { modalWork_.push_back(std::move(work)); }
    // The next turn of a caller-turned modal run (BeginModal, ModalDuring..., EndModal) is worked by
    // this function, e.g. fill a panel's fields and press its OK (support/PanelTurns.h). Each turn
    // first and last lets the run loop through, so what the window posted is heard in the same
    // turn; a turn with nothing queued, while the window is still open, is a failure and closes it.
    void QueueModalTurn(std::function<void(Fnd::IModalSession&)> action) {
        modalTurns_.push_back(std::move(action));
    }

    int AskMessageBox(const Fnd::MessageBoxRequest& request) override;
    Fnd::ExistingPathAnswer AskExistingPath(const Fnd::ExistingPathQuestion& question) override;
    // A modal run without queued work is a failure, and cancelled.
    void RunModal(Fnd::IModalSession& session) override;
    void BeginModal(Fnd::IModalSession& session) override { ++modalBegins_; }
    void ModalDuring(Fnd::IModalSession& session) override;
    void EndModal(Fnd::IModalSession& session) override { ++modalEnds_; }
    bool AskFolder(const Fnd::FolderQuestion& question, Fnd::WString& chosen) override;
    // Recorded, never shown: a test must not open the desktop's file manager.
    void RevealFile(const Fnd::WString& path) override { reveals_.push_back(path); }

    // Every question asked, in order.
    const std::vector<Fnd::MessageBoxRequest>& Boxes() const { return boxes_; }
    const std::vector<Fnd::ExistingPathQuestion>& ExistingPathQuestions() const { return existingPaths_; }
    const std::vector<Fnd::FolderQuestion>& FolderQuestions() const { return folders_; }
    const std::vector<Fnd::WString>& Reveals() const { return reveals_; }
    // Caller-turned modal runs begun and ended.
    int ModalBegins() const { return modalBegins_; }
    int ModalEnds() const { return modalEnds_; }

    // Answers queued and not asked for yet.
    std::size_t UnusedAnswers() const {
        return boxAnswers_.size() + existingPathAnswers_.size() + folderAnswers_.size() + modalWork_.size() +
               modalTurns_.size();
    }

private:
    std::deque<int> boxAnswers_;
    std::deque<Fnd::ExistingPathAnswer> existingPathAnswers_;
    std::vector<Fnd::MessageBoxRequest> boxes_;
    std::vector<Fnd::ExistingPathQuestion> existingPaths_;
    std::deque<std::pair<bool, Fnd::WString>> folderAnswers_;
    std::vector<Fnd::FolderQuestion> folders_;
    std::vector<Fnd::WString> reveals_;
    std::deque<std::function<void(Fnd::IModalSession&)>> modalWork_;
    std::deque<std::function<void(Fnd::IModalSession&)>> modalTurns_;
    int modalBegins_ = 0;
    int modalEnds_ = 0;
};

// Installs a fresh ScriptedInteractionDriver for its lifetime and then restores the default
// driver (which answers every box with its default button and cancels every existing path).
class ScopedInteractionDriver {
public:
    ScopedInteractionDriver();
    ~ScopedInteractionDriver();
    ScopedInteractionDriver(const ScopedInteractionDriver&) = delete;
    ScopedInteractionDriver& operator=(const ScopedInteractionDriver&) = delete;

    ScriptedInteractionDriver& Driver() const { return *driver_; }
    ScriptedInteractionDriver* operator->() const { return driver_.get(); }

private:
    std::shared_ptr<ScriptedInteractionDriver> driver_;
};

} // namespace igd::test
