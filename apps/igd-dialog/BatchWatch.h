#pragma once
// The batch an ingest of this host started, as the host window shows it: it learns the batch
// from the start message the library posts and keeps what the task service says of it.
#include <functional>
#include <string>
#include <vector>

#include "Fnd/Listener.h"
#include "ReplayEngine.h"
#include "fluxcore/Guid.h"

namespace igd::dialog {

class BatchWatch : public Fnd::Listener {
public:
    // changed is called on the UI thread after each message of the batch.
    explicit BatchWatch(std::function<void()> changed);
    ~BatchWatch() override;
    BatchWatch(const BatchWatch&) = delete;
    BatchWatch& operator=(const BatchWatch&) = delete;

    BatchState State() const { return state_; }
    int Percent() const { return percent_; }
    // "Copying A001.MP4" while it runs; how it ended after.
    const std::string& Line() const { return line_; }
    // The files that failed, by name, with why.
    const std::vector<std::string>& Failures() const { return failures_; }
    int FilesVerified() const { return verified_; }

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

private:
    std::function<void()> changed_;
    fluxcore::utility::Guid batch_;
    BatchState state_ = BatchState::None;
    int percent_ = 0;
    std::string line_;
    std::vector<std::string> failures_;
    int verified_ = 0;
    int unverified_ = 0;
};

} // namespace igd::dialog
