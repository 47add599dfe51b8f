#include "Fnd/PathUtils.h"

#include <algorithm>
#include <climits>
#include <string>
#include <sys/stat.h>

#include "FileNameCharacters.h"

namespace Fnd::PathUtils {

namespace {

constexpr WChar kSeparator = u'/';
// Limits of the kernel and of Linux filesystems, in UTF-8 bytes: NAME_MAX per component and
// PATH_MAX including the terminating NUL.
constexpr std::size_t kMaxComponentBytes = NAME_MAX;
constexpr std::size_t kMaxPathBytes = PATH_MAX - 1;

// The system's form of a path; false when it cannot name anything on disk.
bool ToSystemPath(WStringView path, std::string& out) {
    if (path.empty() || path.find(u'\0') != WStringView::npos)
        return false;
    ToUTF8(path, out);
    return true;
}

bool IsDotOrDotDot(WStringView name) {
    return name == u"." || name == u"..";
}

} // namespace

WString CombinePaths(WStringView first, WStringView second) {
    if (first.empty())
        return WString(second);
    if (second.empty())
        return WString(first);
    const auto firstEnd = first.find_last_not_of(kSeparator);
    const auto secondStart = second.find_first_not_of(kSeparator);
    const WStringView head = firstEnd == WStringView::npos ? WStringView() : first.substr(0, firstEnd + 1);
    const WStringView tail = secondStart == WStringView::npos ? WStringView() : second.substr(secondStart);
    WString out;
    out.reserve(head.size() + 1 + tail.size());
    out.append(head);
    out.push_back(kSeparator);
    out.append(tail);
    return out;
}

namespace {

template <class Char> std::basic_string<Char> FolderOfPath(std::basic_string_view<Char> path) {
    const auto last = path.rfind(Char('/'));
    if (last == path.npos)
        return {Char('.')};
    // "/a//b" lives in "/a", not in "/a/".
    const auto end = path.find_last_not_of(Char('/'), last);
    return end == path.npos ? std::basic_string<Char>(1, Char('/'))
                            : std::basic_string<Char>(path.substr(0, end + 1));
}

template <class Char> std::basic_string<Char> FileNameOfPath(std::basic_string_view<Char> path) {
    const auto last = path.rfind(Char('/'));
    return std::basic_string<Char>(last == path.npos ? path : path.substr(last + 1));
}

} // namespace

std::string FolderOf(std::string_view path) {
    return FolderOfPath(path);
}

WString FolderOf(WStringView path) {
    return FolderOfPath(path);
}

std::string FileNameOf(std::string_view path) {
    return FileNameOfPath(path);
}

WString FileNameOf(WStringView path) {
    return FileNameOfPath(path);
}

WString DirectoryOf(WStringView path) {
    WString folder = FolderOf(path);
    if (folder.back() != kSeparator)
        folder.push_back(kSeparator);
    return folder;
}

WString StemOf(WStringView path) {
    WString stem;
    SplitPath(path, nullptr, nullptr, &stem, nullptr);
    return stem;
}

void SplitPath(WStringView path, WString* drive, WString* directory, WString* stem, WString* extension) {
    const auto lastSeparator = path.rfind(kSeparator);
    const auto nameStart = lastSeparator == WStringView::npos ? 0 : lastSeparator + 1;
    const WStringView name = path.substr(nameStart);

    // A dot at the start of the name marks a hidden file, not an extension, and names made only
    // of dots ("." and "..") have none either.
    auto dot = name.rfind(u'.');
    if (dot == 0 || dot == WStringView::npos || name.find_first_not_of(u'.') == WStringView::npos)
        dot = name.size();

    if (drive)
        drive->clear();
    if (directory)
        directory->assign(path.substr(0, nameStart));
    if (stem)
        stem->assign(name.substr(0, dot));
    if (extension)
        extension->assign(name.substr(dot));
}

WString MakePath(WStringView drive, WStringView directory, WStringView stem, WStringView extension) {
    WString out;
    out.reserve(drive.size() + directory.size() + stem.size() + extension.size() + 2);
    out.append(drive);
    out.append(directory);
    if (!directory.empty() && directory.back() != kSeparator)
        out.push_back(kSeparator);
    out.append(stem);
    if (!extension.empty() && extension.front() != u'.')
        out.push_back(u'.');
    out.append(extension);
    return out;
}

bool ExistsOnDisk(WStringView path, bool requireDirectory) {
    // One buffer per thread: a plan tests hundreds of thousands of paths.
    thread_local std::string systemPath;
    if (!ToSystemPath(path, systemPath))
        return false;
    struct stat info {};
    // stat, not lstat: a link counts as what it points to, and a dangling one as nothing.
    if (::stat(systemPath.c_str(), &info) != 0)
        return false;
    return !requireDirectory || S_ISDIR(info.st_mode);
}

bool IsDirectory(WStringView path) {
    return ExistsOnDisk(path, true);
}

WString RemoveTrailingSlash(WStringView path) {
    const auto end = path.find_last_not_of(kSeparator);
    if (end == WStringView::npos)
        return path.empty() ? WString() : WString(1, kSeparator);
    return WString(path.substr(0, end + 1));
}

bool IsValidPath(WStringView path) {
    std::string systemPath;
    if (!ToSystemPath(path, systemPath) || systemPath.size() > kMaxPathBytes)
        return false;
    std::size_t start = 0;
    while (start < systemPath.size()) {
        auto end = systemPath.find('/', start);
        if (end == std::string::npos)
            end = systemPath.size();
        if (end - start > kMaxComponentBytes)
            return false;
        start = end + 1;
    }
    return true;
}

bool IsValidFileName(WStringView name) {
    if (name.empty() || IsDotOrDotDot(name))
        return false;
    if (std::any_of(name.begin(), name.end(), detail::IsIllegalFileNameCharacter))
        return false;
    return ToUTF8(name).size() <= kMaxComponentBytes;
}

bool RemoveIllegalFileNameCharacters(WString& name) {
    const auto newEnd = std::remove_if(name.begin(), name.end(), detail::IsIllegalFileNameCharacter);
    if (newEnd == name.end())
        return false;
    name.erase(newEnd, name.end());
    return true;
}

} // namespace Fnd::PathUtils
