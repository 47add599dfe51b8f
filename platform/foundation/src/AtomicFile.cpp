#include "Fnd/AtomicFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "Fnd/PathUtils.h"

namespace Fnd {
namespace {

[[noreturn]] void Fail(const std::string& path) {
    throw std::system_error(errno, std::generic_category(), path);
}

void WriteAll(int fd, std::string_view content, const std::string& path) {
    while (!content.empty()) {
        const ssize_t written = ::write(fd, content.data(), content.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            Fail(path);
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
}

constexpr std::string_view kRandomPart = ".XXXXXX";
constexpr std::size_t kAddedBytes = 1 + kRandomPart.size(); // "." in front, ".XXXXXX" behind

bool IsRandomCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

// A temporary whose name no other writer uses: mkstemp beside the target.
int OpenTemporary(const std::string& path, std::string& temporary) {
    const std::size_t slash = path.rfind('/');
    const std::string folder = slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
    const std::string name = slash == std::string::npos ? path : path.substr(slash + 1);
    // Any name the filesystem takes must be writable, so the temporary's own name (the target's
    // behind a dot, then mkstemp's suffix) is cut to fit the same 255 bytes.
    constexpr std::size_t kMaxNameBytes = 255;
    temporary = folder + "." + name.substr(0, kMaxNameBytes - kAddedBytes) + std::string(kRandomPart);
    const int fd = ::mkstemp(temporary.data());
    if (fd < 0)
        Fail(path);
    return fd;
}

} // namespace

std::string_view AtomicTemporaryTarget(std::string_view temporaryName) {
    if (temporaryName.size() <= kAddedBytes || temporaryName.front() != '.')
        return {};
    const std::string_view random = temporaryName.substr(temporaryName.size() - kRandomPart.size());
    if (random.front() != '.')
        return {};
    for (const char c : random.substr(1))
        if (!IsRandomCharacter(c))
            return {};
    return temporaryName.substr(1, temporaryName.size() - kAddedBytes);
}

bool WriteFileAtomically(const std::string& path, std::string_view content, bool replace) {
    std::string temporary;
    const int fd = OpenTemporary(path, temporary);
    try {
        WriteAll(fd, content, path);
        if (::fchmod(fd, 0644) != 0 || ::fsync(fd) != 0)
            Fail(path);
    } catch (...) {
        ::close(fd);
        ::unlink(temporary.c_str());
        throw;
    }
    ::close(fd);

    if (replace) {
        if (::rename(temporary.c_str(), path.c_str()) != 0) {
            const int error = errno;
            ::unlink(temporary.c_str());
            errno = error;
            Fail(path);
        }
    } else {
        // link() refuses an existing name, so a file that appeared meanwhile is never replaced.
        const int linked = ::link(temporary.c_str(), path.c_str());
        const int error = errno;
        ::unlink(temporary.c_str());
        if (linked != 0) {
            if (error == EEXIST)
                return false;
            errno = error;
            Fail(path);
        }
    }
    const int folder = ::open(PathUtils::FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
    return true;
}

} // namespace Fnd
