#pragma once
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace Fnd {

using Task = std::function<void()>;

// Where deferred work of the UI thread goes. The host installs one that its event loop drains
// (Qt's in the desktop host); without one, a QueueRunLoop is used that the host drains itself.
class RunLoop {
public:
    virtual ~RunLoop() = default;
    // Safe from any thread.
    virtual void Post(Task task, bool urgent) = 0;
};

// A plain thread-safe queue, drained explicitly on the UI thread.
class QueueRunLoop : public RunLoop {
public:
    void Post(Task task, bool urgent) override;
    // Runs what is waiting, including what those tasks post, until the queue is empty or
    // maxTasks have run. Answers how many ran.
    std::size_t Drain(std::size_t maxTasks = static_cast<std::size_t>(-1));
    std::size_t Pending() const;

private:
    mutable std::mutex mutex_;
    std::deque<Task> queue_;
    std::size_t urgentCount_ = 0; // urgent tasks waiting at the front, kept in the order posted
};

// The installed run loop; a QueueRunLoop until the host installs another.
RunLoop& GetRunLoop();
void SetRunLoop(std::shared_ptr<RunLoop> loop);
// The default queue, for hosts and tests that drain it.
QueueRunLoop& GetDefaultQueue();

} // namespace Fnd
