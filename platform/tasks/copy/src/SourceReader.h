#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <functional>
#include <string>

#include "ChunkPool.h"
#include "ChunkQueue.h"

namespace QL::Engine {

// Reads a source once, front to back, in whole chunks, with direct I/O where the filesystem takes
// it; else through the page cache, the next chunk requested while the current one is handed on.
class SourceReader {
public:
    // beforeRead: a test seam asked before each chunk (FaultSeams.h); may be empty.
    SourceReader(std::string path, const std::function<int(const std::string&, std::uint64_t)>& beforeRead);
    ~SourceReader();
    SourceReader(const SourceReader&) = delete;
    SourceReader& operator=(const SourceReader&) = delete;

    // 0 or an errno; anything but a regular file is refused (EISDIR, EINVAL).
    int Open();
    const struct stat& Status() const { return status_; }

    // Fills the chunk with the next bytes: length 0 at the end. 0 or an errno.
    int ReadInto(Chunk& chunk);

    // After the last chunk: a Complete end with the size, or a Failed one when the file changed
    // while it was read (a copy of a file still being written is no copy).
    SourceEnd Finish();

private:
    std::string path_;
    const std::function<int(const std::string&, std::uint64_t)>& beforeRead_;
    int fd_ = -1;
    bool direct_ = false;
    struct stat status_ {};
    std::uint64_t done_ = 0;
};

} // namespace QL::Engine
