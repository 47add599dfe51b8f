#pragma once
#include <cstdint>
#include <optional>
#include <string>

#include "Checksum/Checksum.h"

namespace QL::Engine {

// Hex digest of a file, read in chunks; nothing when it cannot be read.
std::optional<std::string> DigestOfFile(Checksum::Algorithm algorithm, const std::string& path);

// Whether the two files hold the same bytes, read side by side in chunks. The bytes of first are
// given to firstHasher as they are read, when there is one.
bool SameBytes(const std::string& first, const std::string& second, Checksum::Hasher* firstHasher = nullptr);

// Whether copy matches source as well as the verify mode asks (sizes are the caller's), and the
// source's digest with its algorithm's name: the mode's checksum, else xxh128, which every copied
// file carries so that a manifest can list it.
bool CopyMatchesSource(const std::string& source, const std::string& copy, std::uint32_t verifyMode,
                       std::string& checksum, std::string& checksumAlgorithm);

} // namespace QL::Engine
