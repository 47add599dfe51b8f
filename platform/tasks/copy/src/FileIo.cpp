#include "FileIo.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "AlignedBuffer.h"
#include "Fnd/PathUtils.h"

namespace QL::Engine {

IoResult ReadAt(int fd, std::byte* data, std::size_t length, std::uint64_t offset, bool direct) {
    IoResult result;
    while (result.bytes < length) {
        const ssize_t got = ::pread(fd, data + result.bytes, length - result.bytes,
                                    static_cast<off_t>(offset + result.bytes));
        if (got < 0) {
            if (errno == EINTR)
                continue;
            result.error = errno;
            return result;
        }
        if (got == 0)
            break;
        result.bytes += static_cast<std::size_t>(got);
        if (direct && result.bytes % kIoAlignment != 0)
            break;
    }
    return result;
}

bool SetDirect(int fd) {
    const int flags = ::fcntl(fd, F_GETFL);
    return flags >= 0 && ::fcntl(fd, F_SETFL, flags | O_DIRECT) == 0;
}

bool ClearDirect(int fd) {
    const int flags = ::fcntl(fd, F_GETFL);
    return flags >= 0 && ::fcntl(fd, F_SETFL, flags & ~O_DIRECT) == 0;
}

IoResult WriteAt(int fd, const std::byte* data, std::size_t length, std::uint64_t offset, bool& direct) {
    IoResult result;
    while (result.bytes < length) {
        const std::uint64_t position = offset + result.bytes;
        std::size_t request = length - result.bytes;
        if (direct) {
            // Direct writes must stay on block boundaries; the unaligned tail goes through the
            // page cache and is flushed with the rest.
            const bool aligned = position % kIoAlignment == 0 &&
                                 reinterpret_cast<std::uintptr_t>(data + result.bytes) % kIoAlignment == 0;
            const std::size_t alignedPart = RoundDownToAlignment(request);
            if (!aligned || alignedPart == 0) {
                if (!ClearDirect(fd)) {
                    result.error = errno;
                    return result;
                }
                direct = false;
                continue;
            }
            request = alignedPart;
        }
        const ssize_t written = ::pwrite(fd, data + result.bytes, request, static_cast<off_t>(position));
        if (written < 0) {
            if (errno == EINTR)
                continue;
            if (direct && errno == EINVAL) {
                // The filesystem took O_DIRECT at open but refuses it for this write.
                if (!ClearDirect(fd)) {
                    result.error = errno;
                    return result;
                }
                direct = false;
                continue;
            }
            result.error = errno;
            return result;
        }
        if (written == 0) {
            result.error = EIO;
            return result;
        }
        result.bytes += static_cast<std::size_t>(written);
    }
    return result;
}

void SyncFolderOf(const std::string& path) {
    const int folder = ::open(Fnd::PathUtils::FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    ::fsync(folder);
    ::close(folder);
}

} // namespace QL::Engine
