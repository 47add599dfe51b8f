#include "QL/Engine/DestinationLocks.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <utility>

#include "Fnd/PathUtils.h"

namespace QL::Engine {
namespace {

std::string ExistingFolder(std::string path) {
    struct stat info {};
    while (path.size() > 1 && (::stat(path.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)))
        path = Fnd::PathUtils::FolderOf(path);
    return path.empty() ? "/" : path;
}

void AddWithAncestors(const std::string& folder, std::map<std::string, bool>& exclusive) {
    exclusive[folder] = true;
    for (std::string above = Fnd::PathUtils::FolderOf(folder); !above.empty() && above != folder;
         above = Fnd::PathUtils::FolderOf(above)) {
        exclusive.emplace(above, false); // an exclusive entry stays exclusive
        if (above == "/")
            break;
    }
}

} // namespace

DestinationLocks::~DestinationLocks() {
    for (const int fd : fds_)
        ::close(fd);
}

DestinationLocks::DestinationLocks(DestinationLocks&& other) noexcept : fds_(std::exchange(other.fds_, {})) {}

DestinationLocks& DestinationLocks::operator=(DestinationLocks&& other) noexcept {
    if (this != &other) {
        for (const int fd : fds_)
            ::close(fd);
        fds_ = std::exchange(other.fds_, {});
    }
    return *this;
}

DestinationLocks DestinationLocks::Take(const std::vector<std::string>& folders,
                                        const std::function<void(const std::string&)>& waiting) {
    // A path sorts after every folder above it: ancestors are taken first, in one global order.
    std::map<std::string, bool> exclusive;
    for (const std::string& folder : folders)
        if (!folder.empty())
            AddWithAncestors(ExistingFolder(folder), exclusive);
    DestinationLocks locks;
    for (const auto& [folder, alone] : exclusive) {
        const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0)
            continue; // a folder that cannot be opened cannot be written to by this user either
        const int mode = alone ? LOCK_EX : LOCK_SH;
        if (::flock(fd, mode | LOCK_NB) != 0) {
            if (waiting)
                waiting(folder);
            while (::flock(fd, mode) != 0 && errno == EINTR) {
            }
        }
        locks.fds_.push_back(fd);
    }
    return locks;
}

std::string DestinationLocks::CommonFolder(const std::vector<std::string>& targets) {
    if (targets.empty())
        return {};
    std::string common = Fnd::PathUtils::FolderOf(targets.front());
    for (const std::string& target : targets) {
        while (!common.empty() && common != "/" &&
               !(target.size() > common.size() && target.starts_with(common) && target[common.size()] == '/'))
            common = Fnd::PathUtils::FolderOf(common);
    }
    return common;
}

} // namespace QL::Engine
