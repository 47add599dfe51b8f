#include "SourceReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "ErrorText.h"
#include "FileIo.h"
#include "SourceChange.h"

namespace QL::Engine {

SourceReader::SourceReader(std::string path,
                           const std::function<int(const std::string&, std::uint64_t)>& beforeRead)
    : path_(std::move(path)), beforeRead_(beforeRead) {}

SourceReader::~SourceReader() {
    if (fd_ >= 0)
        ::close(fd_);
}

int SourceReader::Open() {
    fd_ = ::open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd_ < 0)
        return errno;
    if (::fstat(fd_, &status_) != 0)
        return errno;
    if (S_ISDIR(status_.st_mode))
        return EISDIR;
    if (!S_ISREG(status_.st_mode))
        return EINVAL;
    // Read past the page cache: copying every byte out of it costs a CPU the hashing needs, and a
    // card's media would only push out pages worth keeping. The kernel's read-ahead is the
    // fallback where direct reads are refused.
    direct_ = SetDirect(fd_);
    if (!direct_)
        ::posix_fadvise(fd_, 0, 0, POSIX_FADV_SEQUENTIAL);
    return 0;
}

int SourceReader::ReadInto(Chunk& chunk) {
    chunk.offset = done_;
    if (beforeRead_) {
        if (const int error = beforeRead_(path_, done_))
            return error;
    }
    IoResult read = ReadAt(fd_, chunk.buffer.Data(), chunk.buffer.Size(), done_, direct_);
    // Some filesystems take O_DIRECT at open and refuse it at the first read.
    if (direct_ && read.error == EINVAL) {
        if (!ClearDirect(fd_))
            return errno;
        direct_ = false;
        ::posix_fadvise(fd_, 0, 0, POSIX_FADV_SEQUENTIAL);
        read = ReadAt(fd_, chunk.buffer.Data(), chunk.buffer.Size(), done_);
    }
    chunk.length = read.bytes;
    if (read.error != 0)
        return read.error;
    done_ += read.bytes;
    if (read.bytes != 0 && !direct_) {
        // Start the disk on the next chunk while this one is handed on.
        ::posix_fadvise(fd_, static_cast<off_t>(done_), static_cast<off_t>(chunk.buffer.Size()),
                        POSIX_FADV_WILLNEED);
    }
    return 0;
}

SourceEnd SourceReader::Finish() {
    SourceEnd end;
    end.reason = ChangedWhileRead(fd_, status_, done_);
    end.kind = end.reason.empty() ? SourceEnd::Kind::Complete : SourceEnd::Kind::Failed;
    end.size = end.reason.empty() ? done_ : 0;
    return end;
}

} // namespace QL::Engine
