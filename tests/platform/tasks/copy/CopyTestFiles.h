#pragma once
// File facts the copy tests check against, found independently of the copier.
#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <vector>

namespace igd::test {

// Streams both files: large copies cost no memory.
bool SameContent(const std::string& a, const std::string& b);
std::string Md5Hex(const std::string& path);
// Sorted names of a folder's entries.
std::vector<std::string> NamesIn(const std::string& folder);
bool Exists(const std::string& path);
struct timespec ModificationTime(const std::string& path);
void SetModificationTime(const std::string& path, std::int64_t seconds, long nanoseconds);
// Inverts the bits of one byte in place.
void FlipByte(const std::string& path, std::uint64_t offset);
// Whether the filesystem that holds folder takes O_DIRECT, asked by trying it.
bool TakesDirectIo(const std::string& folder);

} // namespace igd::test
