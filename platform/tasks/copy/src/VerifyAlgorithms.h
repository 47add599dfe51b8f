#pragma once
#include <cstdint>
#include <string>

#include "Checksum/Checksum.h"

namespace QL::Engine {

// Throws std::invalid_argument for a value that is no verify mode of the task contract.
void RequireVerifyMode(std::uint32_t verifyMode);

// The digest taken of every source: the verify mode's checksum, or xxh128 where the mode compares
// no checksum, so that the destination's manifest lists every copy at the cost of little CPU.
Checksum::Algorithm SourceDigestAlgorithm(std::uint32_t verifyMode);

// "MD5", "XXH128", ...: how a failed check names the checksum that differs.
std::string ChecksumLabel(Checksum::Algorithm algorithm);

} // namespace QL::Engine
