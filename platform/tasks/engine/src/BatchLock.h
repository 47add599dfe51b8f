#pragma once
#include <string>

#include "fluxcore/Guid.h"

namespace QL::Engine {

// Says that a process is running a batch: an exclusive lock on a file beside the journal, which
// the system releases when the process ends however it ends. Resume takes it before touching a
// batch, so two processes never run the same one.
class BatchLock {
public:
    BatchLock() = default;
    ~BatchLock();
    BatchLock(BatchLock&& other) noexcept;
    BatchLock& operator=(BatchLock&& other) noexcept;
    BatchLock(const BatchLock&) = delete;
    BatchLock& operator=(const BatchLock&) = delete;

    // An empty lock when another process holds it. Throws std::system_error when the lock file
    // cannot be made.
    static BatchLock TryAcquire(const std::string& journalPath, const fluxcore::utility::Guid& batch);

    bool Held() const { return fd_ >= 0; }
    // Removes the lock file and lets go: the batch is over.
    void ReleaseFinished();

private:
    int fd_ = -1;
    std::string path_;
};

} // namespace QL::Engine
