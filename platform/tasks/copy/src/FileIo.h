#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

namespace QL::Engine {

// Thin, loss-free wrappers of the POSIX calls the copier makes: they retry interrupted and short
// transfers and answer errno values instead of throwing, since a failing disk is a user's
// condition, not a fault.

struct IoResult {
    std::size_t bytes = 0; // transferred; a read is short only at the end of the file
    int error = 0;         // errno, 0 when it went well
};

// Reads length bytes at offset, fewer only at the end of the file. direct: the descriptor has
// O_DIRECT, so data, offset and length are aligned and an unaligned count can only mean the end.
IoResult ReadAt(int fd, std::byte* data, std::size_t length, std::uint64_t offset, bool direct = false);

// Writes all of data at offset. When direct is set the descriptor was opened with O_DIRECT: the
// unaligned end of a chunk, and everything after a refusal (EINVAL) or a short direct write, goes
// through the page cache instead and direct is cleared.
IoResult WriteAt(int fd, const std::byte* data, std::size_t length, std::uint64_t offset, bool& direct);

// Puts O_DIRECT on a descriptor; false when its filesystem refuses. Done after open, because an
// open with O_CREAT may create the file before the filesystem refuses direct I/O.
bool SetDirect(int fd);
// Takes O_DIRECT off a descriptor. False when the system refuses.
bool ClearDirect(int fd);

// Flushes the folder that holds path, so that a rename into it survives a crash. Filesystems that
// cannot flush a folder are not an error.
void SyncFolderOf(const std::string& path);

} // namespace QL::Engine
