#include "MediumReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "AlignedBuffer.h"

namespace QL::Engine {

MediumReader::~MediumReader() {
    if (fd_ >= 0)
        ::close(fd_);
}

int MediumReader::Open(const std::string& path,
                       const std::function<int(const std::string&, std::uint64_t)>* failRead) {
    path_ = path;
    failRead_ = failRead && *failRead ? failRead : nullptr;
    fd_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd_ < 0)
        return errno;
    direct_ = SetDirect(fd_);
    return 0;
}

IoResult MediumReader::Read(std::byte* data, std::size_t length, std::uint64_t offset) {
    if (failRead_) {
        if (const int error = (*failRead_)(path_, offset))
            return IoResult{0, error};
    }
    if (Direct()) {
        const IoResult result = ReadAt(fd_, data, RoundUpToAlignment(length), offset, /*direct=*/true);
        if (result.error != EINVAL) {
            IoResult clipped = result;
            if (clipped.bytes > length)
                clipped.bytes = length;
            return clipped;
        }
        // Some filesystems take O_DIRECT at open and refuse it at the first read.
        if (!ClearDirect(fd_))
            return IoResult{0, errno};
        direct_.store(false, std::memory_order_release);
    }
    ::posix_fadvise(fd_, static_cast<off_t>(offset), static_cast<off_t>(length), POSIX_FADV_DONTNEED);
    return ReadAt(fd_, data, length, offset);
}

} // namespace QL::Engine
