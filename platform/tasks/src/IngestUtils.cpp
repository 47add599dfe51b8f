#include "QL/IngestUtils.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_set>

#include "Fnd/InteractionDriver.h"
#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"

namespace QL {
namespace {

// Identity of a file on disk: two paths with the same pair name the same file or folder.
struct FileIdentity {
    dev_t device;
    ino_t inode;
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

struct FileIdentityHash {
    std::size_t operator()(const FileIdentity& id) const noexcept {
        const std::size_t h = std::hash<unsigned long long>()(static_cast<unsigned long long>(id.inode));
        return h ^ (std::hash<unsigned long long>()(static_cast<unsigned long long>(id.device)) *
                    0x9E3779B97F4A7C15ull);
    }
};

std::optional<FileIdentity> IdentityOnDisk(const Fnd::WString& path) {
    struct stat info {};
    if (::stat(Fnd::ToUTF8(path).c_str(), &info) != 0)
        return std::nullopt;
    return FileIdentity{info.st_dev, info.st_ino};
}

// Runs the test over every path in order and stops at the first that fails it, so the user is
// told about one path at a time, the first in the order they see them.
template <class Test>
bool AllPathsPass(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath, Test&& passes) {
    for (const Fnd::WString& path : paths) {
        if (path.empty()) {
            failingPath.clear();
            return false;
        }
        if (!passes(path)) {
            failingPath = path;
            return false;
        }
    }
    return true;
}

// Both paths normalised. The root is the one folder whose children do not follow a separator
// of their own.
bool LexicallyInside(const Fnd::WString& folder, const Fnd::WString& path, bool recursive) {
    Fnd::WStringView rest;
    if (folder == u"/") {
        if (!path.starts_with(u'/'))
            return false;
        rest = Fnd::WStringView(path).substr(1);
    } else {
        if (path.size() <= folder.size() + 1 || !path.starts_with(folder) || path[folder.size()] != u'/')
            return false;
        rest = Fnd::WStringView(path).substr(folder.size() + 1);
    }
    return !rest.empty() && (recursive || rest.find(u'/') == Fnd::WStringView::npos);
}

// The path with every link of its existing part resolved; the part still to be made (a
// destination folder created at the start of the ingest) is kept by name. Normalised input.
std::optional<Fnd::WString> ResolvedOnDisk(const Fnd::WString& path) {
    std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(Fnd::ToUTF8(path).c_str(), nullptr),
                                                         &std::free);
    if (resolved)
        return Fnd::FromUTF8(resolved.get());
    if (errno != ENOENT)
        return std::nullopt;
    const std::size_t separator = path.rfind(u'/');
    if (separator == Fnd::WString::npos || separator + 1 == path.size())
        return std::nullopt;
    const Fnd::WString parent = separator == 0 ? Fnd::WString(u"/") : path.substr(0, separator);
    std::optional<Fnd::WString> resolvedParent = ResolvedOnDisk(parent);
    if (!resolvedParent)
        return std::nullopt;
    if (resolvedParent->back() != u'/')
        resolvedParent->push_back(u'/');
    return *resolvedParent + path.substr(separator + 1);
}

} // namespace

bool IngestUtils::PathsExist(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath) {
    return AllPathsPass(paths, failingPath,
                        [](const Fnd::WString& path) { return Fnd::PathUtils::ExistsOnDisk(path, false); });
}

bool IngestUtils::PathsAreWritable(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath) {
    return AllPathsPass(paths, failingPath, [](const Fnd::WString& path) {
        return ::access(Fnd::ToUTF8(path).c_str(), W_OK) == 0;
    });
}

bool IngestUtils::NoDuplicatedPaths(const std::vector<Fnd::WString>& paths, Fnd::WString& failingPath) {
    // Hash sets keep this linear: a plan may name thousands of targets.
    std::unordered_set<Fnd::WString> seenPaths;
    std::unordered_set<FileIdentity, FileIdentityHash> seenFiles;
    seenPaths.reserve(paths.size());
    seenFiles.reserve(paths.size());
    return AllPathsPass(paths, failingPath, [&](const Fnd::WString& path) {
        if (!seenPaths.insert(Mid::Utilities::NormalizePathWithoutUNC(path)).second)
            return false;
        // The operating system resolves the path as given, links and ".." included; so must we.
        const std::optional<FileIdentity> identity = IdentityOnDisk(path);
        return !identity || seenFiles.insert(*identity).second;
    });
}

bool IngestUtils::FolderContain(const Fnd::WString& folder, const Fnd::WString& path, bool recursive) {
    if (folder.empty() || path.empty())
        return false;
    if (LexicallyInside(Mid::Utilities::NormalizePathWithoutUNC(folder),
                        Mid::Utilities::NormalizePathWithoutUNC(path), recursive))
        return true;
    // A destination reached through a link into the source is still inside it: copying there
    // would write into the tree being read.
    const std::optional<Fnd::WString> resolvedFolder = ResolvedOnDisk(Mid::Utilities::NormalizePathWithoutUNC(folder));
    const std::optional<Fnd::WString> resolvedPath = ResolvedOnDisk(Mid::Utilities::NormalizePathWithoutUNC(path));
    return resolvedFolder && resolvedPath && LexicallyInside(*resolvedFolder, *resolvedPath, recursive);
}

bool IngestUtils::SameFolder(const Fnd::WString& a, const Fnd::WString& b) {
    if (a.empty() || b.empty())
        return false;
    const Fnd::WString normalA = Mid::Utilities::NormalizePathWithoutUNC(a);
    const Fnd::WString normalB = Mid::Utilities::NormalizePathWithoutUNC(b);
    if (normalA == normalB)
        return true;
    const std::optional<FileIdentity> identityA = IdentityOnDisk(normalA);
    const std::optional<FileIdentity> identityB = IdentityOnDisk(normalB);
    if (identityA && identityB)
        return *identityA == *identityB;
    // One is still to be made: the same folder only if the names agree once links are resolved.
    const std::optional<Fnd::WString> resolvedA = ResolvedOnDisk(normalA);
    const std::optional<Fnd::WString> resolvedB = ResolvedOnDisk(normalB);
    return resolvedA && resolvedB && *resolvedA == *resolvedB;
}

bool IngestUtils::WarnUserForExistPath(const Fnd::WString& source, const Fnd::WString& target,
                                       bool isDirectory, int& action, int& applyToAll, bool allowApplyToAll,
                                       bool onlyInCopyList, bool allowCancel) {
    Fnd::ExistingPathQuestion question;
    question.source = source;
    question.target = target;
    question.isDirectory = isDirectory;
    question.onlyInCopyList = onlyInCopyList;
    question.offerApplyToAll = allowApplyToAll;
    question.offerCancel = allowCancel;
    const Fnd::ExistingPathAnswer answer = Fnd::GetInteractionDriver().AskExistingPath(question);
    if (!answer.proceed)
        return false;
    action = answer.action;
    applyToAll = (allowApplyToAll && answer.applyToAll) ? 1 : 0;
    return true;
}

bool IngestUtils::IsLinkFile(const Fnd::WString& path) {
    struct stat info {};
    return !path.empty() && ::lstat(Fnd::ToUTF8(path).c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

} // namespace QL
