#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <memory>
#include <string>

#include "ChunkPool.h"
#include "ChunkQueue.h"
#include "Md5.h"

namespace QL::Engine {

// Reads a source once, front to back, in whole chunks, hashing it on the way when asked. The
// kernel is told the access is sequential and the next chunk is requested while the current one
// is hashed and handed on.
class SourceReader {
public:
    SourceReader(std::string path, bool hash);
    ~SourceReader();
    SourceReader(const SourceReader&) = delete;
    SourceReader& operator=(const SourceReader&) = delete;

    // 0 or an errno; anything but a regular file is refused (EISDIR, EINVAL).
    int Open();
    const struct stat& Status() const { return status_; }

    // Fills the chunk with the next bytes: length 0 at the end. 0 or an errno.
    int ReadInto(Chunk& chunk);

    // After the last chunk: a Complete end with the digest and size, or a Failed one when the file
    // changed while it was read (a copy of a file still being written is no copy).
    SourceEnd Finish();

private:
    std::string path_;
    int fd_ = -1;
    struct stat status_ {};
    std::uint64_t done_ = 0;
    std::unique_ptr<Md5> md5_;
};

} // namespace QL::Engine
