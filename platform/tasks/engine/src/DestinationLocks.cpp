#include "QL/Engine/DestinationLocks.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <map>
#include <mutex>
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

// One process holds each folder once: a second lock of its own on a folder (two batches of one
// resume, say) would wait for itself. Folders are counted here and let go with their last holder.
class HeldFolders {
public:
    static HeldFolders& Instance() {
        static HeldFolders held;
        return held;
    }

    // Answers false when the folder cannot be opened: then it cannot be written to either.
    bool Hold(const std::string& folder, bool exclusive, const std::function<void(const std::string&)>& waiting) {
        std::unique_lock guard(mutex_);
        Folder& held = folders_[folder];
        if (held.fd < 0) {
            held.fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
            if (held.fd < 0) {
                folders_.erase(folder);
                return false;
            }
        } else if (held.exclusive || !exclusive) {
            ++held.holders;
            return true;
        }
        const int fd = held.fd;
        const int mode = exclusive ? LOCK_EX : LOCK_SH;
        if (::flock(fd, mode | LOCK_NB) != 0) {
            if (waiting)
                waiting(folder);
            guard.unlock();
            while (::flock(fd, mode) != 0 && errno == EINTR) {
            }
            guard.lock();
        }
        Folder& now = folders_[folder];
        now.exclusive = now.exclusive || exclusive;
        ++now.holders;
        return true;
    }

    void Release(const std::string& folder) {
        std::lock_guard guard(mutex_);
        const auto found = folders_.find(folder);
        if (found == folders_.end() || --found->second.holders > 0)
            return;
        ::close(found->second.fd);
        folders_.erase(found);
    }

private:
    struct Folder {
        int fd = -1;
        int holders = 0;
        bool exclusive = false;
    };
    std::mutex mutex_;
    std::map<std::string, Folder> folders_;
};

} // namespace

DestinationLocks::~DestinationLocks() {
    Release();
}

void DestinationLocks::Release() {
    for (const std::string& folder : held_)
        HeldFolders::Instance().Release(folder);
    held_.clear();
}

DestinationLocks::DestinationLocks(DestinationLocks&& other) noexcept : held_(std::exchange(other.held_, {})) {}

DestinationLocks& DestinationLocks::operator=(DestinationLocks&& other) noexcept {
    if (this != &other) {
        Release();
        held_ = std::exchange(other.held_, {});
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
    for (const auto& [folder, alone] : exclusive)
        if (HeldFolders::Instance().Hold(folder, alone, waiting))
            locks.held_.push_back(folder);
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
