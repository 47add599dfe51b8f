#pragma once
#include <cstdint>
#include <optional>
#include <string>

namespace QL::Engine {

// Hex MD5 of a file, read in chunks; nothing when it cannot be read.
std::optional<std::string> Md5OfFile(const std::string& path);

// Whether the two files hold the same bytes, read side by side in chunks.
bool SameBytes(const std::string& first, const std::string& second);

// Whether copy matches source as well as the verify mode asks (sizes are the caller's). For MD5
// the source's checksum is answered in checksum.
bool CopyMatchesSource(const std::string& source, const std::string& copy, std::uint32_t verifyMode,
                       std::string& checksum);

} // namespace QL::Engine
