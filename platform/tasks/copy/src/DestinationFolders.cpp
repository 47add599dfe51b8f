#include "QL/Engine/DestinationFolders.h"

#include <sys/stat.h>

#include <cerrno>

#include "ErrorText.h"
#include "Fnd/PathUtils.h"

namespace QL::Engine {
namespace {

constexpr const char* kGone = "destination is gone";

// 0 for a folder, else ENOTDIR or the errno of stat.
int FolderIdentity(const std::string& path, dev_t& device, ino_t& inode) {
    struct stat info {};
    if (::stat(path.c_str(), &info) != 0)
        return errno;
    if (!S_ISDIR(info.st_mode))
        return ENOTDIR;
    device = info.st_dev;
    inode = info.st_ino;
    return 0;
}

std::string WithoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

} // namespace

void DestinationFolders::Note(const std::string& folder) {
    std::lock_guard lock(mutex_);
    for (std::string path = WithoutTrailingSlashes(folder); !path.empty();) {
        if (known_.count(path) != 0)
            return;
        Identity identity;
        if (FolderIdentity(path, identity.device, identity.inode) == 0) {
            known_.emplace(path, identity);
            return;
        }
        const std::string parent = Fnd::PathUtils::FolderOf(path);
        if (parent == path)
            return;
        path = parent;
    }
}

void DestinationFolders::Require(const std::string& folder) {
    std::lock_guard lock(mutex_);
    const std::string path = WithoutTrailingSlashes(folder);
    Identity identity;
    // No folder has device and inode 0: a folder missing now never matches.
    if (FolderIdentity(path, identity.device, identity.inode) != 0)
        identity = Identity{};
    known_.emplace(path, identity);
}

DestinationFolders::Standing DestinationFolders::Check(const std::string& folder) const {
    const auto found = known_.find(folder);
    if (found == known_.end())
        return Standing::Unknown;
    Identity now;
    if (FolderIdentity(folder, now.device, now.inode) != 0 || now.device != found->second.device ||
        now.inode != found->second.inode)
        return Standing::Gone;
    return Standing::Known;
}

std::string DestinationFolders::Ensure(const std::string& folder) {
    std::lock_guard lock(mutex_);
    return EnsureLocked(WithoutTrailingSlashes(folder));
}

std::string DestinationFolders::EnsureLocked(const std::string& folder) {
    switch (Check(folder)) {
    case Standing::Known:
        return {};
    case Standing::Gone:
        return kGone;
    case Standing::Unknown:
        break;
    }
    const std::string parent = Fnd::PathUtils::FolderOf(folder);
    // Reaching the top without a noted folder: the run never noted this destination.
    if (parent.empty() || parent == folder)
        return kGone;
    if (std::string reason = EnsureLocked(parent); !reason.empty())
        return reason;
    // mkdir, never mkdir -p: should the parent vanish right now, this fails rather than making it
    // again.
    if (::mkdir(folder.c_str(), 0777) != 0 && errno != EEXIST)
        return errno == ENOENT ? kGone : Because("could not create the folder", errno);
    Identity made;
    if (const int error = FolderIdentity(folder, made.device, made.inode))
        return Because("could not create the folder", error);
    known_.emplace(folder, made);
    return {};
}

bool DestinationFolders::Gone(const std::string& folder) {
    std::lock_guard lock(mutex_);
    for (std::string path = WithoutTrailingSlashes(folder); !path.empty();) {
        switch (Check(path)) {
        case Standing::Known:
            return false;
        case Standing::Gone:
            return true;
        case Standing::Unknown:
            break;
        }
        const std::string parent = Fnd::PathUtils::FolderOf(path);
        if (parent == path)
            return false;
        path = parent;
    }
    return false;
}

} // namespace QL::Engine
