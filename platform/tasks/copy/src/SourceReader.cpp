#include "SourceReader.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "ErrorText.h"
#include "FileIo.h"

namespace QL::Engine {

SourceReader::SourceReader(std::string path, bool hash)
    : path_(std::move(path)), md5_(hash ? std::make_unique<Md5>() : nullptr) {}

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
    ::posix_fadvise(fd_, 0, 0, POSIX_FADV_SEQUENTIAL);
    return 0;
}

int SourceReader::ReadInto(Chunk& chunk) {
    chunk.offset = done_;
    const IoResult read = ReadAt(fd_, chunk.buffer.Data(), chunk.buffer.Size(), done_);
    chunk.length = read.bytes;
    if (read.error != 0)
        return read.error;
    done_ += read.bytes;
    if (read.bytes != 0) {
        // Start the disk on the next chunk while this one is hashed and written.
        ::posix_fadvise(fd_, static_cast<off_t>(done_), static_cast<off_t>(chunk.buffer.Size()),
                        POSIX_FADV_WILLNEED);
        if (md5_)
            md5_->Update(chunk.buffer.Data(), read.bytes);
    }
    return 0;
}

SourceEnd SourceReader::Finish() {
    SourceEnd end;
    struct stat now {};
    if (::fstat(fd_, &now) != 0) {
        end.kind = SourceEnd::Kind::Failed;
        end.reason = Because("source could not be read", errno);
        return end;
    }
    const bool unchanged = static_cast<std::uint64_t>(status_.st_size) == done_ &&
                           now.st_size == status_.st_size && now.st_mtim.tv_sec == status_.st_mtim.tv_sec &&
                           now.st_mtim.tv_nsec == status_.st_mtim.tv_nsec;
    if (!unchanged) {
        end.kind = SourceEnd::Kind::Failed;
        end.reason = "source could not be read: it changed while it was being read";
        return end;
    }
    end.kind = SourceEnd::Kind::Complete;
    end.size = done_;
    if (md5_)
        end.md5 = md5_->FinishHex();
    return end;
}

} // namespace QL::Engine
