#include "Mhl/FolderVerification.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "Mhl/FileDigest.h"
#include "Mhl/IgnorePatterns.h"

namespace Mhl {
namespace {

// Every regular file below root as a relative path, in name order, without what is ignored.
std::vector<std::string> FilesOnDisk(const std::string& root, const std::vector<std::string>& patterns,
                                     std::vector<std::string>& unreadable) {
    namespace fs = std::filesystem;
    std::vector<std::string> files;
    std::error_code error;
    fs::recursive_directory_iterator walk(root, fs::directory_options::none, error);
    if (error) {
        unreadable.push_back(root + ": " + error.message());
        return files;
    }
    const std::size_t prefix = root.size() + (root.ends_with('/') ? 0 : 1);
    for (; walk != fs::recursive_directory_iterator(); walk.increment(error)) {
        if (error) {
            unreadable.push_back(walk->path().string() + ": " + error.message());
            error.clear();
            continue;
        }
        const std::string relative = walk->path().string().substr(prefix);
        if (IsIgnored(relative, patterns)) {
            if (walk->is_directory(error))
                walk.disable_recursion_pending();
            continue;
        }
        if (walk->is_regular_file(error))
            files.push_back(relative);
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace

bool DescribeFile(const std::string& path, FileHash& hash) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        return false;
    hash.size = static_cast<std::uint64_t>(status.st_size);
    hash.lastModified = UtcDateTime(status.st_mtim.tv_sec);
    return true;
}

FolderCheck CheckFolder(const std::string& root, const History& history,
                        const std::function<void(std::size_t, std::size_t)>& progress) {
    FolderCheck check;
    std::vector<const ListedFile*> listed;
    for (const auto& [path, file] : history.Files())
        listed.push_back(&file);
    std::sort(listed.begin(), listed.end(),
              [](const ListedFile* a, const ListedFile* b) { return a->hash.path < b->hash.path; });

    std::size_t done = 0;
    for (const ListedFile* file : listed) {
        const std::string path = root + "/" + file->hash.path;
        FileHash now;
        now.path = file->hash.path;
        const Digest* expected = ComputableDigest(file->hash);
        if (!DescribeFile(path, now)) {
            check.missing.push_back(file->hash.path);
        } else if (!expected) {
            check.uncheckable.push_back(file->hash.path);
        } else {
            try {
                const std::string digest = DigestOfFile(path, expected->format);
                const bool same = digest == expected->value;
                now.digests.push_back({expected->format, digest, same ? kActionVerified : kActionFailed});
                (same ? check.matched : check.altered).push_back(std::move(now));
            } catch (const std::system_error& error) {
                check.unreadable.push_back(std::string(error.what()));
            }
        }
        if (progress)
            progress(++done, listed.size());
    }

    for (std::string& path : FilesOnDisk(root, history.IgnorePatterns(), check.unreadable))
        if (!history.Find(path))
            check.added.push_back(std::move(path));
    return check;
}

std::vector<FileHash> HashAdded(const std::string& root, const std::vector<std::string>& added,
                                const std::string& format, std::vector<std::string>& unreadable) {
    std::vector<FileHash> hashes;
    for (const std::string& relative : added) {
        FileHash hash;
        hash.path = relative;
        try {
            if (!DescribeFile(root + "/" + relative, hash))
                throw std::system_error(errno, std::generic_category(), root + "/" + relative);
            hash.digests.push_back({format, DigestOfFile(root + "/" + relative, format), kActionOriginal});
            hashes.push_back(std::move(hash));
        } catch (const std::system_error& error) {
            unreadable.push_back(error.what());
        }
    }
    return hashes;
}

} // namespace Mhl
