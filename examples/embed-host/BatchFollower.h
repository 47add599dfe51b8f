#pragma once
// Follows one batch through what the task service reports on its station, and tells the window in
// lines a person reads: progress, each file's outcome, and the batch's end.
#include <functional>
#include <string>

#include "Fnd/Listener.h"
#include "fluxcore/Guid.h"

namespace embed {

class BatchFollower : public Fnd::Listener {
public:
    struct Handlers {
        // The progress of the batch, redrawn in place: "42% of 1.2 MB, A001.mov".
        std::function<void(const std::string& text)> progress;
        // One line for each file settled, and one for a task that failed on its own.
        std::function<void(const std::string& line)> outcome;
        // The batch is over; succeeded when nothing failed or was cancelled and every copy was
        // verified against the source's digest.
        std::function<void(bool succeeded, const std::string& summary)> ended;
    };

    explicit BatchFollower(Handlers handlers);
    ~BatchFollower() override;
    BatchFollower(const BatchFollower&) = delete;
    BatchFollower& operator=(const BatchFollower&) = delete;

    // Follows the next batch that reports; messages of any other are ignored from then on.
    void FollowNext();
    // The batch the library answered; the same one when it has already reported.
    void Follow(const fluxcore::utility::Guid& batch);

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

private:
    bool IsFollowed(const fluxcore::utility::Guid& batch);

    Handlers handlers_;
    fluxcore::utility::Guid batch_;
    int filesCopied_ = 0;
    int filesUnverified_ = 0;
};

} // namespace embed
