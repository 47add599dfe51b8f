#include "QL/Utilities.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>

#include "Fnd/PathUtils.h"
#include "Mid/Utilities.h"

namespace QL {
namespace {

constexpr Fnd::WChar kSeparator = u'/';

struct FolderEntry {
    std::string name; // as the file system spells it, usually UTF-8
    bool descend;     // a real folder; a link to one is listed but not entered
};

// Entries of an open folder in byte order of their names, so that the listing is the same on every
// file system and in every locale. Read through the folder's descriptor: a path longer than the
// system takes is no obstacle. An unreadable folder lists as empty; the copy of the folder then
// fails and names it.
std::vector<FolderEntry> ListFolderSorted(int folder) {
    std::vector<FolderEntry> entries;
    const int listing = ::dup(folder);
    DIR* dir = listing < 0 ? nullptr : ::fdopendir(listing);
    if (!dir) {
        if (listing >= 0)
            ::close(listing);
        return entries;
    }
    while (const dirent* entry = ::readdir(dir)) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        bool descend = entry->d_type == DT_DIR;
        if (entry->d_type == DT_UNKNOWN) {
            struct stat info {};
            descend = ::fstatat(folder, entry->d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(info.st_mode);
        }
        entries.push_back({std::string(name), descend});
    }
    ::closedir(dir);
    // std::string compares as unsigned bytes.
    std::sort(entries.begin(), entries.end(),
              [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
    return entries;
}

int OpenFolderAt(int parent, const char* path) {
    return ::openat(parent, path, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

template <class S> S JoinChild(const S& folder, const S& name) {
    if (!folder.empty() && folder.back() == '/')
        return folder + name;
    return folder + S(1, '/') + name;
}

bool IsFileOnDisk(const Fnd::WString& path) {
    struct stat info {};
    return ::stat(Fnd::ToUTF8(path).c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

// Every spelling of "xmp", the usual ones first: a sidecar written by another tool may use any.
constexpr std::array<std::u16string_view, 8> kXmpSpellings = {u"xmp", u"XMP", u"Xmp", u"xMp",
                                                              u"xmP", u"XMp", u"XmP", u"xMP"};

Fnd::WString FindSidecar(const Fnd::WString& base) {
    for (const std::u16string_view spelling : kXmpSpellings) {
        Fnd::WString candidate = base + u'.' + Fnd::WString(spelling);
        if (IsFileOnDisk(candidate))
            return candidate;
    }
    return {};
}

Fnd::WStringView DirectoryPart(Fnd::WStringView path) {
    const std::size_t slash = path.rfind(kSeparator);
    return slash == Fnd::WStringView::npos ? Fnd::WStringView() : path.substr(0, slash + 1);
}

Fnd::WStringView FileNamePart(Fnd::WStringView path) {
    const std::size_t slash = path.rfind(kSeparator);
    return slash == Fnd::WStringView::npos ? path : path.substr(slash + 1);
}

std::vector<Fnd::WStringView> SplitComponents(Fnd::WStringView path) {
    std::vector<Fnd::WStringView> components;
    std::size_t start = 0;
    while (start < path.size()) {
        std::size_t end = path.find(kSeparator, start);
        if (end == Fnd::WStringView::npos)
            end = path.size();
        if (end > start)
            components.push_back(path.substr(start, end - start));
        start = end + 1;
    }
    return components;
}

} // namespace

void Utilities::ExtendFolderPaths(const Fnd::WString& folder, std::vector<Fnd::WString>& paths) {
    if (folder.empty())
        return;
    // An explicit stack rather than recursion: a deep tree must not exhaust the thread's stack.
    struct OpenFolder {
        Fnd::WString widePath;
        int fd;
        std::vector<FolderEntry> entries;
        std::size_t next = 0;
    };
    std::vector<OpenFolder> open;
    const auto push = [&open](Fnd::WString widePath, int fd) {
        std::vector<FolderEntry> entries = fd < 0 ? std::vector<FolderEntry>() : ListFolderSorted(fd);
        open.push_back({std::move(widePath), fd, std::move(entries)});
    };
    Fnd::WString root = Fnd::PathUtils::RemoveTrailingSlash(folder);
    const int rootFd = OpenFolderAt(AT_FDCWD, Fnd::ToUTF8(root).c_str());
    push(std::move(root), rootFd);
    while (!open.empty()) {
        OpenFolder& current = open.back();
        if (current.next == current.entries.size()) {
            if (current.fd >= 0)
                ::close(current.fd);
            open.pop_back();
            continue;
        }
        const FolderEntry& entry = current.entries[current.next++];
        Fnd::WString wideChild = JoinChild(current.widePath, Fnd::FromUTF8(entry.name));
        paths.push_back(wideChild);
        if (entry.descend)
            push(std::move(wideChild), OpenFolderAt(current.fd, entry.name.c_str())); // current is invalid now
    }
}

Fnd::WString Utilities::GetXMPPath(const Fnd::WString& mediaPath) {
    Fnd::WString drive, directory, stem, extension;
    Fnd::PathUtils::SplitPath(mediaPath, &drive, &directory, &stem, &extension);
    const Fnd::WString stemBase = drive + directory + stem;
    if (Fnd::WString found = FindSidecar(stemBase); !found.empty())
        return found;
    if (!extension.empty()) {
        if (Fnd::WString found = FindSidecar(stemBase + extension); !found.empty())
            return found;
    }
    return stemBase + u".xmp";
}

void Utilities::MergePathList(std::vector<Fnd::WString>& paths, const std::vector<Fnd::WString>& first,
                              const std::vector<Fnd::WString>& second) {
    // Sizes are taken before anything is appended, so that first or second may be paths itself.
    const std::size_t firstSize = first.size();
    const std::size_t secondSize = second.size();
    // With the room reserved no element of paths moves, so views into them stay valid.
    paths.reserve(paths.size() + firstSize + secondSize);
    std::unordered_set<Fnd::WStringView> present(paths.begin(), paths.end());
    const auto appendNew = [&](const std::vector<Fnd::WString>& list, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            if (present.contains(list[i]))
                continue;
            paths.push_back(list[i]);
            present.insert(paths.back());
        }
    };
    appendNew(first, firstSize);
    appendNew(second, secondSize);
}

Fnd::WString Utilities::GetRelativePath(const Fnd::WString& root, const Fnd::WString& path) {
    const Fnd::WString normalRoot = Mid::Utilities::NormalizePathWithoutUNC(root);
    const Fnd::WString normalPath = Mid::Utilities::NormalizePathWithoutUNC(path);
    if (root.empty())
        return normalPath;
    const bool rootIsAbsolute = normalRoot.starts_with(kSeparator);
    // Between an absolute and a relative path there is no way that does not depend on the
    // working folder; the path is answered as it is.
    if (rootIsAbsolute != normalPath.starts_with(kSeparator))
        return normalPath;

    const std::vector<Fnd::WStringView> rootParts = SplitComponents(normalRoot);
    const std::vector<Fnd::WStringView> pathParts = SplitComponents(normalPath);
    const auto [rootEnd, pathEnd] =
        std::mismatch(rootParts.begin(), rootParts.end(), pathParts.begin(), pathParts.end());

    Fnd::WString relative;
    for (auto it = rootEnd; it != rootParts.end(); ++it) {
        if (!relative.empty())
            relative += kSeparator;
        relative += u"..";
    }
    for (auto it = pathEnd; it != pathParts.end(); ++it) {
        if (!relative.empty())
            relative += kSeparator;
        relative += *it;
    }
    return relative;
}

Fnd::WString Utilities::RenameSideCarFile(const Fnd::WString& renamedMediaPath,
                                          const Fnd::WString& oldFileName, const Fnd::WString& newName,
                                          const Fnd::WString& sidecarPath) {
    Fnd::WString renamed(DirectoryPart(renamedMediaPath));
    renamed += newName;
    if (sidecarPath.empty())
        return renamed + u".xmp";

    // What followed the old name in the sidecar's name keeps its spelling: ".MOV.XMP" stays
    // upper case, so the pair still sorts and reads as it did on the card.
    const Fnd::WStringView sidecarName = FileNamePart(sidecarPath);
    Fnd::WStringView suffix;
    if (!oldFileName.empty() && sidecarName.size() > oldFileName.size() &&
        sidecarName.starts_with(oldFileName) && sidecarName[oldFileName.size()] == u'.') {
        suffix = sidecarName.substr(oldFileName.size());
    } else {
        const std::size_t dot = sidecarName.rfind(u'.');
        suffix =
            (dot == Fnd::WStringView::npos || dot == 0) ? Fnd::WStringView(u".xmp") : sidecarName.substr(dot);
    }
    renamed += suffix;
    return renamed;
}

} // namespace QL
