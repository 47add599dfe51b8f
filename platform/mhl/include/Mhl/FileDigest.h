#pragma once
// Digests of files on the disk, in any hash format a history may name that this tool computes.
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "Mhl/Generation.h"

namespace Mhl {

// The digest of one of the formats this tool computes (c4, md5, xxh128, xxh3, xxh64) that a hash
// lists, preferring the fastest; null when it lists none of them.
const Digest* ComputableDigest(const FileHash& hash);

// Streams the file from the disk: its cached pages are dropped first, so a copy is read from the
// medium and not from memory. Throws std::system_error naming the path when it cannot be read.
std::string DigestOfFile(const std::string& path, const std::string& format);

} // namespace Mhl
