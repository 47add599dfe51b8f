#include "DurabilityBarrier.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace QL::Engine {

DurabilityBarrier::~DurabilityBarrier() {
    for (const Filesystem& filesystem : filesystems_)
        ::close(filesystem.fd);
}

int DurabilityBarrier::Note(int fd, const std::string& folder) {
    struct stat status {};
    if (::fstat(fd, &status) != 0)
        return -errno;
    for (std::size_t i = 0; i < filesystems_.size(); ++i)
        if (filesystems_[i].device == status.st_dev)
            return static_cast<int>(i);
    const int kept = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (kept < 0)
        return -errno;
    filesystems_.push_back(Filesystem{status.st_dev, kept});
    return static_cast<int>(filesystems_.size() - 1);
}

std::vector<int> DurabilityBarrier::Pass() {
    std::vector<int> errors;
    errors.reserve(filesystems_.size());
    for (const Filesystem& filesystem : filesystems_)
        errors.push_back(::syncfs(filesystem.fd) == 0 ? 0 : errno);
    return errors;
}

} // namespace QL::Engine
