#pragma once
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

#include "FileIo.h"

namespace QL::Engine {

// Reads a file back from the storage medium rather than from the page cache, which would only
// prove that memory holds the right bytes. Uses O_DIRECT where the filesystem takes it; where it
// refuses (EINVAL), each range's cached pages are dropped just before it is read. The caller
// flushes what it reads first: only clean pages can be dropped. Reads may run on several threads
// at once.
class MediumReader {
public:
    MediumReader() = default;
    ~MediumReader();
    MediumReader(const MediumReader&) = delete;
    MediumReader& operator=(const MediumReader&) = delete;

    // 0, or the errno of the open. failRead: a test seam asked before each read (FaultSeams.h).
    int Open(const std::string& path,
             const std::function<int(const std::string&, std::uint64_t)>* failRead = nullptr);
    // False once the filesystem has refused direct reads, at open or at a read.
    bool Direct() const { return direct_.load(std::memory_order_acquire); }

    // Up to length bytes at offset; offset and the buffer are aligned, length is rounded up to the
    // alignment by the caller's buffer. Short only at the end of the file.
    IoResult Read(std::byte* data, std::size_t length, std::uint64_t offset);

private:
    int fd_ = -1;
    std::atomic<bool> direct_{false};
    std::string path_;
    const std::function<int(const std::string&, std::uint64_t)>* failRead_ = nullptr;
};

} // namespace QL::Engine
