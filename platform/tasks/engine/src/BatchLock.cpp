#include "BatchLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "Fnd/IgdHome.h"

namespace QL::Engine {

BatchLock::~BatchLock() {
    if (fd_ >= 0)
        ::close(fd_);
}

BatchLock::BatchLock(BatchLock&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)), path_(std::move(other.path_)) {}

BatchLock& BatchLock::operator=(BatchLock&& other) noexcept {
    if (this != &other) {
        if (fd_ >= 0)
            ::close(fd_);
        fd_ = std::exchange(other.fd_, -1);
        path_ = std::move(other.path_);
    }
    return *this;
}

BatchLock BatchLock::TryAcquire(const std::string& journalPath, const fluxcore::utility::Guid& batch) {
    const std::string folder = journalPath + ".locks";
    Fnd::EnsureDirectory(folder);
    BatchLock lock;
    lock.path_ = folder + "/" + batch.ToString() + ".lock";
    lock.fd_ = ::open(lock.path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (lock.fd_ < 0)
        throw std::system_error(errno, std::generic_category(), lock.path_);
    if (::flock(lock.fd_, LOCK_EX | LOCK_NB) != 0) {
        ::close(lock.fd_);
        lock.fd_ = -1;
    }
    return lock;
}

void BatchLock::ReleaseFinished() {
    if (fd_ < 0)
        return;
    // Unlinked while still held: a resumer that opened it before reads the batch as finished once
    // it gets the lock.
    ::unlink(path_.c_str());
    ::close(fd_);
    fd_ = -1;
}

} // namespace QL::Engine
