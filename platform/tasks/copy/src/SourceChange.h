#pragma once
#include <sys/stat.h>

#include <cstdint>
#include <string>

namespace QL::Engine {

// After a source was read through fd: empty when it still is what was read (the size read, the
// size and modification time seen at opening, still linked), else the reason the copy fails. A
// copy of a file still being written, or of one removed meanwhile (a card pulled, a folder
// cleared: the open descriptor still reads to the end), is no backup of it.
std::string ChangedWhileRead(int fd, const struct stat& opened, std::uint64_t bytesRead);

} // namespace QL::Engine
