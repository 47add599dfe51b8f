#pragma once
// Plays a replay in the running program: each step waits for the view to settle, then acts from
// Qt's event loop as a person's click would, so the steps go on inside the modal windows that an
// action opens (the dialog, its message boxes, the metadata panel).
#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "ReplayScript.h"
#include "fluxui/ui/UI_Node.h"

class QWidget;

namespace igd::dialog {

enum class BatchState { None, Running, Succeeded, Failed };

// What the host gives a replay besides its dialogs.
struct ReplayHost {
    // The host's own window: its toolkit tree (null when it shows none) and its widget.
    std::function<fluxui::ui::UI_Node*()> tree;
    std::function<QWidget*()> widget;
    // Presses the host's Ingest button; may run the dialog modally before it returns. Null when
    // the host has none.
    std::function<void()> ingest;
    // The batch the last ingest started, and a line saying how it ended.
    std::function<BatchState()> batchState;
    std::function<std::string()> batchSummary;
};

struct ReplayOptions {
    // Where screenshots named by a relative path go; the working folder when empty.
    QString screenshotFolder;
    // How long a step waits for the view to settle, for its control to appear, for a box, and for
    // a batch to end.
    int settleLimitMs = 180000;
    int controlLimitMs = 5000;
    int boxLimitMs = 30000;
    int batchLimitMs = 900000;
};

class ReplayEngine {
public:
    // finished gets 0 when every step ran (or quit was reached), else 1 after the failure has been
    // written to stderr with its line number.
    ReplayEngine(std::vector<ReplayStep> steps, ReplayHost host, ReplayOptions options,
                 std::function<void(int status)> finished);
    ~ReplayEngine();
    ReplayEngine(const ReplayEngine&) = delete;
    ReplayEngine& operator=(const ReplayEngine&) = delete;

    void Start();
    // The message of the failure that ended the replay; empty while none.
    const std::string& Failure() const { return failure_; }

private:
    struct Front {
        fluxui::ui::UI_Node* tree = nullptr;
        QWidget* widget = nullptr;
        bool isBox = false;
        bool isFileDialog = false;
    };

    void Tick();
    // True once the run loop has drained twice in a row and no browser in front is still reading.
    bool Settled();
    bool StepReady(const ReplayStep& step, const Front& front);
    // Acts from a later event, so that a modal run the action opens leaves the ticks free to go on.
    void ActLater(const ReplayStep& step);
    void Act(const ReplayStep& step);
    void Screenshot(const ReplayStep& step, const Front& front);
    void Answer(const ReplayStep& step, const Front& front);
    void Choose(const ReplayStep& step, const Front& front);
    void Fail(const ReplayStep& step, const std::string& message);
    void Finish(int status);
    Front FindFront() const;

    std::vector<ReplayStep> steps_;
    ReplayHost host_;
    ReplayOptions options_;
    std::function<void(int)> finished_;
    QTimer timer_;
    std::size_t next_ = 0;
    bool stepStarted_ = false;
    bool actionPending_ = false;
    bool done_ = false;
    QElapsedTimer stepClock_;
    QElapsedTimer settledClock_;
    bool wasSettled_ = false;
    // Markers posted to the run loop; the view has settled when one has come back untouched.
    std::shared_ptr<int> markersBack_;
    int markersPosted_ = 0;
    std::string failure_;
};

} // namespace igd::dialog
